// Ways for water to get lost: walls that drops pass through, seams that they get into, and a
// bottom that is open. All are asked of the cleaned edges, which are what drops collide with.

#include <algorithm>
#include <cmath>
#include <deque>
#include <limits>
#include <map>
#include <optional>
#include <unordered_map>

#include "BoxTree.h"
#include "Check.h"
#include "Outline.h"
#include "level/BspEdges.h"
#include "level/TriggerTypes.h"

namespace {

using Edges = std::vector<BspSegment>;
using Numbers = std::unordered_map<const LevelPolygon*, std::size_t>;

/// Units. A drop has a radius of 2; from one hop to the next it can pass a thinner wall.
constexpr double thinnest = 4.0;

/// Thickness of the solid between two edges that face away from each other, in the middle of
/// where they lie side by side; none if they don't for at least as long as walls must be thick.
std::optional<double> Thickness(const BspSegment& a, const BspSegment& b, Vector2& middle) {
    const double facing = -Dot(a.normal, b.normal);
    if (facing < 0.5) {
        return std::nullopt;
    }
    const float from = std::clamp(Dot(b.start - a.start, a.direction), 0.0f, a.length);
    const float to = std::clamp(Dot(b.end - a.start, a.direction), 0.0f, a.length);
    if (std::abs(from - to) < static_cast<float>(thinnest)) {
        return std::nullopt;
    }
    middle = a.start + a.direction * ((from + to) / 2.0f);
    // From there along a's normal, which points into the solid, to b's line.
    return Dot(middle - b.start, b.normal) / facing;
}

/// The polygons that stay solid, for asking what lies at a point.
class Solids {
public:
    Solids(const LevelFile& level, const std::deque<LevelPolygon>& polygons) {
        std::vector<Box> boxes;
        auto record = level.polygons.begin();
        for (const LevelPolygon& polygon : polygons) {
            if (polygon.solid && polygon.triangleCount > 0 && !polygon.movedByMover &&
                !polygon.toggledByTrigger) {
                outlines.push_back(&record->points);
                boxes.push_back(Box::Round(record->points));
            }
            ++record;
        }
        tree.emplace(std::move(boxes));
    }

    std::ptrdiff_t CountAt(Vector2 point) {
        tree->Find({point.x, point.y, point.x, point.y}, hits);
        return std::ranges::count_if(hits, [&](std::size_t number) {
            return Outline::Contains(*outlines[number], point.x, point.y);
        });
    }
    bool Contain(Vector2 point) { return CountAt(point) > 0; }

private:
    std::vector<const Outline::Points*> outlines;
    std::optional<BoxTree> tree;
    std::vector<std::size_t> hits;
};

void CheckThickness(const Edges& edges, Solids& solids, const Numbers& numbers,
                    Problems& problems) {
    std::vector<Box> boxes;
    boxes.reserve(edges.size());
    for (const BspSegment& edge : edges) {
        const auto [left, right] = std::minmax(edge.start.x, edge.end.x);
        const auto [top, bottom] = std::minmax(edge.start.y, edge.end.y);
        boxes.push_back({left, top, right, bottom});
    }
    const BoxTree tree(boxes);
    std::map<std::size_t, Vector2> thin;  // by polygon, the first place of each
    std::vector<std::size_t> hits;
    for (std::size_t i = 0; i < edges.size(); ++i) {
        const Box& box = boxes[i];
        tree.Find(
            {box.left - thinnest, box.top - thinnest, box.right + thinnest, box.bottom + thinnest},
            hits);
        for (const std::size_t j : hits) {
            Vector2 middle;
            const auto thickness = j > i ? Thickness(edges[i], edges[j], middle) : std::nullopt;
            if (!thickness || *thickness <= 0.0 || *thickness >= thinnest) {
                continue;
            }
            // Where polygons overlap, edges lie inside of a solid that is thicker.
            const Vector2 normal = edges[i].normal;
            const float beyond = static_cast<float>(*thickness) + 1.0f;
            if (!solids.Contain(middle - normal) && !solids.Contain(middle + normal * beyond)) {
                thin.emplace(numbers.at(edges[i].polygon), middle);
            }
        }
    }
    for (const auto& [number, place] : thin) {
        problems.Warning("polygon", number,
                         Message("is thinner than ", thinnest, " near (", std::lround(place.x),
                                 ", ", std::lround(place.y), "): drops pass through"));
    }
}

/// Seams that weren't cleaned away: edges that face a solid instead of the space for water. Those
/// of solids that overlap, behind which lies the other one too, are told of elsewhere.
void CheckSeams(const Edges& edges, Solids& solids, const Numbers& numbers, Problems& problems) {
    for (const BspSegment& edge : edges) {
        const Vector2 middle = (edge.start + edge.end) * 0.5f;
        if (!edge.polygon->toggledByTrigger && solids.Contain(middle - edge.normal) &&
            solids.CountAt(middle + edge.normal) == 1) {
            problems.Warning(
                "polygon", numbers.at(edge.polygon),
                Message("has an edge inside of another solid near (", std::lround(middle.x), ", ",
                        std::lround(middle.y), "): drops get in at its ends"));
        }
    }
}

bool IsKill(const LevelFile::Trigger& trigger) {
    return TriggerTypes::Kills(TriggerTypes::KindOf(trigger.type));
}

/// A coarse grid over the level and a little to its sides, with the start of the water in the
/// middle of a cell. Cells are taken where a drop has no room beside an edge, or dies. As a
/// cell is as wide as the room a drop takes, no way leads through an edge; ways of less than
/// two cells' width may be missed. Levels too large for small cells get larger ones.
class FreeSpace {
public:
    FreeSpace(const Box& level, LevelFile::Point start) {
        constexpr double sideMargin = 40.0;
        constexpr double mostCells = 4e6;
        constexpr double mostInLine = 65536.0;
        const double width = level.right - level.left + 2.0 * sideMargin;
        const double height = level.bottom - level.top;
        cell = std::max(
            {4.0, std::sqrt(width * height / mostCells), width / mostInLine, height / mostInLine});
        const double before = std::floor((start.x - level.left + sideMargin) / cell);
        const double above = std::floor((start.y - level.top) / cell);
        left = start.x - before * cell;
        top = start.y - above * cell;
        columns = static_cast<std::size_t>(width / cell) + 1;
        rows = static_cast<std::size_t>(height / cell) + 2;
        isTaken.assign(columns * rows, 0);
        startCell = static_cast<std::size_t>(above) * columns + static_cast<std::size_t>(before);
    }

    void Take(const BspSegment& edge) {
        const double room = cell / 2.0;
        const auto [low, high] = std::minmax(edge.start.y, edge.end.y);
        ForRange(low - room, high + room, top, rows, [&](std::size_t row) {
            const double y = Y(row);
            const auto [from, to] = Between(edge, y - room, y + room);
            ForRange(from - room, to + room, left, columns, [&](std::size_t column) {
                if (Distance(edge, X(column), y) <= room) {
                    isTaken[row * columns + column] = 1;
                }
            });
        });
    }

    void Take(const LevelFile::Trigger& trigger) {
        const LevelFile::Point* c = trigger.corners;
        const LevelFile::Point halves[2][3] = {{c[0], c[1], c[2]}, {c[2], c[3], c[0]}};
        const Box box = Box::Round(trigger.corners);
        ForRange(box.top, box.bottom, top, rows, [&](std::size_t row) {
            ForRange(box.left, box.right, left, columns, [&](std::size_t column) {
                const bool isInside = Outline::Contains(halves[0], X(column), Y(row)) ||
                                      Outline::Contains(halves[1], X(column), Y(row));
                if (isInside) {
                    isTaken[row * columns + column] = 1;
                }
            });
        });
    }

    /// Spreads from the start over all cells that a way leads to, and takes them; then calls
    /// `atBottom` with the place of each in the bottom row, from the left.
    template <typename AtBottom>
    void Spread(AtBottom atBottom) {
        std::vector<std::size_t> open;
        std::vector<std::uint8_t> isReached(columns, 0);
        const auto enter = [&](std::size_t index) {
            if (isTaken[index] == 0) {
                isTaken[index] = 1;
                open.push_back(index);
            }
        };
        enter(startCell);
        while (!open.empty()) {
            const std::size_t index = open.back();
            open.pop_back();
            const std::size_t column = index % columns;
            const std::size_t row = index / columns;
            if (row + 1 == rows) {
                isReached[column] = 1;
            } else {
                enter(index + columns);
            }
            if (row > 0) {
                enter(index - columns);
            }
            if (column > 0) {
                enter(index - 1);
            }
            if (column + 1 < columns) {
                enter(index + 1);
            }
        }
        for (std::size_t column = 0; column < columns; ++column) {
            if (isReached[column] != 0) {
                atBottom(X(column), Y(rows - 1));
            }
        }
    }

private:
    double X(std::size_t column) const { return left + static_cast<double>(column) * cell; }
    double Y(std::size_t row) const { return top + static_cast<double>(row) * cell; }

    /// Calls with the numbers of all rows or columns whose middle lies in the range.
    template <typename Call>
    void ForRange(double from, double to, double origin, std::size_t count, Call call) const {
        const double first = std::max(0.0, std::ceil((from - origin) / cell));
        const double last =
            std::min(static_cast<double>(count) - 1.0, std::floor((to - origin) / cell));
        for (double number = first; number <= last; number += 1.0) {
            call(static_cast<std::size_t>(number));
        }
    }

    /// Least and greatest x of the edge between two heights.
    static std::pair<double, double> Between(const BspSegment& edge, double low, double high) {
        const double x = edge.start.x;
        const double y = edge.start.y;
        const double runX = edge.end.x - x;
        const double runY = edge.end.y - y;
        if (runY == 0.0) {
            return std::minmax(x, x + runX);
        }
        const double a = std::clamp((low - y) / runY, 0.0, 1.0);
        const double b = std::clamp((high - y) / runY, 0.0, 1.0);
        return std::minmax(x + a * runX, x + b * runX);
    }

    static double Distance(const BspSegment& edge, double x, double y) {
        const double dx = x - edge.start.x;
        const double dy = y - edge.start.y;
        const double along =
            std::clamp(dx * edge.direction.x + dy * edge.direction.y, 0.0, double{edge.length});
        return std::hypot(dx - along * edge.direction.x, dy - along * edge.direction.y);
    }

    double cell = 0.0;
    double left = 0.0;
    double top = 0.0;
    std::size_t columns = 0;
    std::size_t rows = 0;
    std::size_t startCell = 0;
    std::vector<std::uint8_t> isTaken;
};

/// Polygons that move or can be switched off don't close a level.
void CheckBottom(const LevelFile& level, const Edges& edges, Problems& problems) {
    Box box = Box::Round({&level.waterStart, 1});
    std::size_t fixedEdges = 0;
    for (const BspSegment& edge : edges) {
        if (!edge.polygon->toggledByTrigger) {
            ++fixedEdges;
            box.left = std::min<double>({box.left, edge.start.x, edge.end.x});
            box.right = std::max<double>({box.right, edge.start.x, edge.end.x});
            box.top = std::min<double>({box.top, edge.start.y, edge.end.y});
            box.bottom = std::max<double>({box.bottom, edge.start.y, edge.end.y});
        }
    }
    if (fixedEdges == 0) {
        return;
    }
    FreeSpace space(box, level.waterStart);
    for (const BspSegment& edge : edges) {
        if (!edge.polygon->toggledByTrigger) {
            space.Take(edge);
        }
    }
    std::vector<Box> kills;
    for (const LevelFile::Trigger& trigger : level.triggers) {
        if (IsKill(trigger)) {
            space.Take(trigger);
            kills.push_back(Box::Round(trigger.corners));
        }
    }
    std::optional<std::pair<double, double>> exit;
    space.Spread([&](double x, double y) {
        const bool isOverKill = std::ranges::any_of(kills, [&](const Box& kill) {
            return kill.left <= x && x <= kill.right && kill.bottom >= y;
        });
        if (!isOverKill && !exit) {
            exit = {x, y};
        }
    });
    if (exit) {
        problems.Warning("level", 0,
                         Message("is open at the bottom near (", std::lround(exit->first), ", ",
                                 std::lround(exit->second),
                                 ") without a kill trigger below: water that outruns the camera "
                                 "may stay for ever"));
    }
}

}  // namespace

void CheckSpace(const LevelFile& level, std::deque<LevelPolygon>& polygons, Problems& problems) {
    const Edges edges = BspEdges::Clean(BspEdges::Collect(polygons));
    Numbers numbers;
    for (const LevelPolygon& polygon : polygons) {
        numbers.emplace(&polygon, numbers.size());
    }
    Solids solids(level, polygons);
    CheckThickness(edges, solids, numbers, problems);
    CheckSeams(edges, solids, numbers, problems);
    CheckBottom(level, edges, problems);
}
