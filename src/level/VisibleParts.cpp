// Finds hidden cells of a grid over the level, and cuts triangles to the cells that show.

#include "level/VisibleParts.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

namespace {

constexpr float smallestCell = 16.0f;  // world units
constexpr int mostCells = 256;         // along each side
/// Levels that reach farther are drawn whole; their numbers are too coarse to be cut.
constexpr float farthest = 30000.0f;
/// A cell counts as covered if what lies this near to it is covered too, world units. Much
/// more than rounding moves the edge of a polygon on the screen.
constexpr float coverMargin = 0.25f;
/// How far pieces reach over their cuts, world units. More than rounding moves a corner, and
/// less than an eightieth of a pixel.
constexpr float overlap = 0.01f;

/// A convex piece while it is cut: four corners and one more for each cut.
struct Piece {
    std::array<Vector2, 8> corner;
    std::size_t count = 0;
    void Add(Vector2 at) { corner[count++] = at; }
};

/// The side of the line through `from` on which `inwards` points, that and `overlap` more.
struct HalfPlane {
    Vector2 from;
    Vector2 inwards;
    float Depth(Vector2 at) const { return Dot(at - from, inwards) + overlap; }
};

std::array<HalfPlane, 3> SidesOf(const Vector2* triangle) {
    std::array<HalfPlane, 3> sides;
    for (std::size_t i = 0; i < 3; ++i) {
        const Vector2 from = triangle[i];
        const Vector2 along = triangle[(i + 1) % 3] - from;
        Vector2 inwards = Vector2{-along.y, along.x} / std::max(Length(along), 1e-6f);
        if (Dot(triangle[(i + 2) % 3] - from, inwards) < 0.0f) {
            inwards = -inwards;
        }
        sides[i] = {from, inwards};
    }
    return sides;
}

Piece Cut(const Piece& piece, const HalfPlane& side) {
    Piece inside;
    for (std::size_t i = 0; i < piece.count; ++i) {
        const Vector2 a = piece.corner[i];
        const Vector2 b = piece.corner[(i + 1) % piece.count];
        const float depthA = side.Depth(a);
        const float depthB = side.Depth(b);
        if (depthA >= 0.0f) {
            inside.Add(a);
        }
        if ((depthA < 0.0f) != (depthB < 0.0f)) {
            inside.Add(a + (b - a) * (depthA / (depthA - depthB)));
        }
        if (inside.count + 2 > inside.corner.size()) {
            break;  // a convex piece never gets here
        }
    }
    return inside;
}

/// Whether a box lies beyond one of the sides.
bool IsOutside(const std::array<HalfPlane, 3>& sides, float left, float top, float right,
               float bottom) {
    return std::ranges::any_of(sides, [&](const HalfPlane& side) {
        const Vector2 deepest{side.inwards.x > 0.0f ? right : left,
                              side.inwards.y > 0.0f ? bottom : top};
        return side.Depth(deepest) < 0.0f;
    });
}

/// Appends what of a box lies within the sides, with the overlap all around.
void AppendPiece(const std::array<HalfPlane, 3>& sides, Vector2 from, Vector2 to,
                 std::vector<Vector2>& corners) {
    from -= {overlap, overlap};
    to += {overlap, overlap};
    Piece piece;
    piece.Add(from);
    piece.Add({to.x, from.y});
    piece.Add(to);
    piece.Add({from.x, to.y});
    for (const HalfPlane& side : sides) {
        piece = Cut(piece, side);
    }
    for (std::size_t i = 2; i < piece.count; ++i) {
        corners.insert(corners.end(), {piece.corner[0], piece.corner[i - 1], piece.corner[i]});
    }
}

enum class CellState : std::uint8_t { Outside, Shown, Hidden };

/// The cells around one triangle.
class CellStates {
public:
    CellStates(int theLeft, int theTop, int theRight, int theBottom)
        : left(theLeft),
          top(theTop),
          right(theRight),
          bottom(theBottom),
          states(static_cast<std::size_t>((right - left + 1) * (bottom - top + 1))) {}

    CellState& At(int x, int y) {
        return states[static_cast<std::size_t>((y - top) * (right - left + 1) + x - left)];
    }

    struct Corner {
        int right, bottom;
    };
    /// Takes out a box of shown cells from its upper left one on, as wide and then as high as
    /// may be; cells outside of the triangle may be among them.
    Corner TakeBox(int x, int y) {
        Corner box{x, y};
        while (box.right < right && At(box.right + 1, y) == CellState::Shown) {
            ++box.right;
        }
        while (box.bottom < bottom && MayTakeRow(x, box.right, box.bottom + 1)) {
            ++box.bottom;
        }
        for (int row = y; row <= box.bottom; ++row) {
            for (int column = x; column <= box.right; ++column) {
                At(column, row) = CellState::Outside;
            }
        }
        return box;
    }

private:
    bool MayTakeRow(int from, int to, int y) {
        bool shown = false;
        for (int x = from; x <= to; ++x) {
            if (At(x, y) == CellState::Hidden) {
                return false;
            }
            shown = shown || At(x, y) == CellState::Shown;
        }
        return shown;
    }

    int left, top, right, bottom;
    std::vector<CellState> states;  // all Outside at first
};

/// Whether a segment touches a box: they are apart along an axis or across the segment if not.
bool Touches(Vector2 a, Vector2 b, float left, float top, float right, float bottom) {
    if (std::max(a.x, b.x) < left || std::min(a.x, b.x) > right || std::max(a.y, b.y) < top ||
        std::min(a.y, b.y) > bottom) {
        return false;
    }
    const Vector2 across{a.y - b.y, b.x - a.x};
    const float distance = Dot(Vector2{left + right, top + bottom} * 0.5f - a, across);
    const float reach =
        ((right - left) * std::fabs(across.x) + (bottom - top) * std::fabs(across.y)) * 0.5f;
    return std::fabs(distance) <= reach;
}

bool IsInside(const LevelPolygon& polygon, Vector2 at) {
    bool inside = false;
    Vector2 a = polygon.Point(polygon.PointCount() - 1);
    for (std::size_t i = 0; i < polygon.PointCount(); ++i) {
        const Vector2 b = polygon.Point(i);
        if ((a.y > at.y) != (b.y > at.y) &&
            at.x < a.x + (b.x - a.x) * ((at.y - a.y) / (b.y - a.y))) {
            inside = !inside;
        }
        a = b;
    }
    return inside;
}

}  // namespace

VisibleParts::VisibleParts(std::span<const Entry> drawn) : entries(drawn) {
    Box all{farthest, farthest, -farthest, -farthest};
    for (const Entry& entry : entries) {
        for (std::size_t i = 0; i < entry.polygon->PointCount(); ++i) {
            const Vector2 at = entry.polygon->Point(i);
            if (!(std::fabs(at.x) < farthest && std::fabs(at.y) < farthest)) {
                return;
            }
            all = {std::min(all.left, at.x), std::min(all.top, at.y), std::max(all.right, at.x),
                   std::max(all.bottom, at.y)};
        }
    }
    if (entries.empty()) {
        return;
    }
    origin = {all.left, all.top};
    const float extent = std::max(all.right - all.left, all.bottom - all.top);
    cellSize = std::max(smallestCell, extent / static_cast<float>(mostCells));
    columns = static_cast<int>((all.right - all.left) / cellSize) + 1;
    rows = static_cast<int>((all.bottom - all.top) / cellSize) + 1;
    lastCover.assign(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows), -1);
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (entries[i].opaque) {
            Cover(static_cast<int>(i));
        }
    }
}

VisibleParts::CellRange VisibleParts::CellsOf(const Box& box) const {
    const auto cell = [this](float distance, int count) {
        return std::clamp(static_cast<int>(std::floor(distance / cellSize)), 0, count - 1);
    };
    return {cell(box.left - origin.x, columns), cell(box.top - origin.y, rows),
            cell(box.right - origin.x, columns), cell(box.bottom - origin.y, rows)};
}

VisibleParts::Box VisibleParts::BoxOf(const CellRange& cells) const {
    return {origin.x + static_cast<float>(cells.left) * cellSize,
            origin.y + static_cast<float>(cells.top) * cellSize,
            origin.x + static_cast<float>(cells.right + 1) * cellSize,
            origin.y + static_cast<float>(cells.bottom + 1) * cellSize};
}

/// Marks the cells that lie in the polygon: those that no side touches, by their centres.
void VisibleParts::Cover(int index) {
    const LevelPolygon& polygon = *entries[static_cast<std::size_t>(index)].polygon;
    const auto [minX, maxX] = std::minmax_element(polygon.pointsX.begin(), polygon.pointsX.end());
    const auto [minY, maxY] = std::minmax_element(polygon.pointsY.begin(), polygon.pointsY.end());
    const CellRange range = CellsOf({*minX, *minY, *maxX, *maxY});
    const auto width = static_cast<std::size_t>(range.right - range.left + 1);
    const auto height = static_cast<std::size_t>(range.bottom - range.top + 1);
    std::vector<bool> touched(width * height);
    const auto place = [&](int x, int y) {
        return static_cast<std::size_t>(y - range.top) * width +
               static_cast<std::size_t>(x - range.left);
    };
    Vector2 a = polygon.Point(polygon.PointCount() - 1);
    for (std::size_t i = 0; i < polygon.PointCount(); ++i) {
        const Vector2 b = polygon.Point(i);
        const CellRange side =
            CellsOf({std::min(a.x, b.x) - coverMargin, std::min(a.y, b.y) - coverMargin,
                     std::max(a.x, b.x) + coverMargin, std::max(a.y, b.y) + coverMargin});
        for (int y = std::max(side.top, range.top); y <= std::min(side.bottom, range.bottom); ++y) {
            for (int x = std::max(side.left, range.left); x <= std::min(side.right, range.right);
                 ++x) {
                const Box box = BoxOf({x, y, x, y});
                if (Touches(a, b, box.left - coverMargin, box.top - coverMargin,
                            box.right + coverMargin, box.bottom + coverMargin)) {
                    touched[place(x, y)] = true;
                }
            }
        }
        a = b;
    }
    for (int y = range.top; y <= range.bottom; ++y) {
        for (int x = range.left; x <= range.right; ++x) {
            const Box box = BoxOf({x, y, x, y});
            const Vector2 centre{(box.left + box.right) * 0.5f, (box.top + box.bottom) * 0.5f};
            if (!touched[place(x, y)] && IsInside(polygon, centre)) {
                lastCover[static_cast<std::size_t>(y * columns + x)] = index;
            }
        }
    }
}

bool VisibleParts::IsHidden(int x, int y, int index) const {
    return lastCover[static_cast<std::size_t>(y * columns + x)] > index;
}

void VisibleParts::AppendTriangles(std::size_t index, std::vector<Vector2>& corners) const {
    const Entry& entry = entries[index];
    for (std::size_t i = 0; i + 2 < entry.polygon->triangleX.size(); i += 3) {
        Vector2 triangle[3];
        for (std::size_t c = 0; c < 3; ++c) {
            triangle[c] = {entry.polygon->triangleX[i + c], entry.polygon->triangleY[i + c]};
        }
        if (entry.opaque && !lastCover.empty()) {
            AppendPieces(static_cast<int>(index), triangle, corners);
        } else {
            corners.insert(corners.end(), triangle, triangle + 3);
        }
    }
}

void VisibleParts::AppendPieces(int index, const Vector2* triangle,
                                std::vector<Vector2>& corners) const {
    const auto [minX, maxX] = std::minmax({triangle[0].x, triangle[1].x, triangle[2].x});
    const auto [minY, maxY] = std::minmax({triangle[0].y, triangle[1].y, triangle[2].y});
    const CellRange range = CellsOf({minX, minY, maxX, maxY});
    const std::array<HalfPlane, 3> sides = SidesOf(triangle);
    CellStates cells(range.left, range.top, range.right, range.bottom);
    bool anyHidden = false;
    for (int y = range.top; y <= range.bottom; ++y) {
        for (int x = range.left; x <= range.right; ++x) {
            const Box box = BoxOf({x, y, x, y});
            if (!IsOutside(sides, box.left, box.top, box.right, box.bottom)) {
                const bool hidden = IsHidden(x, y, index);
                anyHidden = anyHidden || hidden;
                cells.At(x, y) = hidden ? CellState::Hidden : CellState::Shown;
            }
        }
    }
    if (!anyHidden) {
        corners.insert(corners.end(), triangle, triangle + 3);
        return;
    }
    for (int y = range.top; y <= range.bottom; ++y) {
        for (int x = range.left; x <= range.right; ++x) {
            if (cells.At(x, y) == CellState::Shown) {
                const auto [right, bottom] = cells.TakeBox(x, y);
                const Box box = BoxOf({x, y, right, bottom});
                AppendPiece(sides, {std::max(box.left, minX), std::max(box.top, minY)},
                            {std::min(box.right, maxX), std::min(box.bottom, maxY)}, corners);
            }
        }
    }
}
