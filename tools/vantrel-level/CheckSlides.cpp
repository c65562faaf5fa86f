// Finds sides of moving polygons that lie in the line of a wall, face to face: along their
// whole way, or at one of its ends. A drop that rests on the wall, and that a step has taken a
// little too deep into the polygon, is pushed out of it by such a side, and so into the wall.

#include <algorithm>
#include <cmath>
#include <deque>
#include <optional>
#include <unordered_map>
#include <vector>

#include "BoxTree.h"
#include "Check.h"
#include "level/BspEdges.h"

namespace {

/// Units: how far a drop moves between two collisions. A side that lies nearer to the wall's
/// line than this, before it or in the wall, meets drops that rest on the wall.
constexpr float hop = 1.7f;
/// Cosine of an angle up to which a side and a wall are face to face, 14 degrees.
constexpr float facing = 0.97f;
/// Units that they must have beside each other.
constexpr float shortest = 1.0f;

/// Where on its way the side meets the wall.
enum class When : std::uint8_t { Along, AtStart, AtEnd };

/// Sides with normals that point into the polygon, as those of walls do.
std::vector<BspSegment> SidesOf(const LevelPolygon& polygon) {
    std::vector<BspSegment> sides;
    for (std::size_t i = 0; i < polygon.PointCount(); ++i) {
        const Vector2 a = polygon.Point(i);
        const Vector2 b = polygon.Point((i + 1) % polygon.PointCount());
        sides.emplace_back().SetEnds(polygon.winding != 0 ? a : b, polygon.winding != 0 ? b : a);
    }
    return sides;
}

Box BoxRound(const BspSegment& edge, Vector2 way, double margin) {
    const auto [left, right] =
        std::minmax({edge.start.x, edge.end.x, edge.start.x + way.x, edge.end.x + way.x});
    const auto [top, bottom] =
        std::minmax({edge.start.y, edge.end.y, edge.start.y + way.y, edge.end.y + way.y});
    return {left - margin, top - margin, right + margin, bottom + margin};
}

/// The middle of the stretch of the wall that the side, displaced, lies in line with; none if it
/// doesn't. On a `way` along the wall the stretch is all that the side passes.
std::optional<Vector2> InLine(const BspSegment& side, Vector2 at, Vector2 way,
                              const BspSegment& wall) {
    // The side runs the other way than the wall.
    const auto along = [&](Vector2 point) { return Dot(point - wall.start, wall.direction); };
    const float begin = along(side.end + at);
    const float end = along(side.start + at);
    const float low = std::max(0.0f, std::min(begin, begin + along(wall.start + way)));
    const float high = std::min(wall.length, std::max(end, end + along(wall.start + way)));
    const auto gap = [&](Vector2 point) { return Dot(wall.start - point - at, wall.normal); };
    const float slope = (gap(side.start) - gap(side.end)) / (end - begin);
    // The side's ends, or where the wall ends before them.
    const bool passes = way != Vector2{};
    const float nearGap = gap(side.end) + (passes ? 0.0f : (low - begin) * slope);
    const float farGap = gap(side.start) - (passes ? 0.0f : (end - high) * slope);
    if (high - low < shortest || std::min(nearGap, farGap) >= hop ||
        std::max(nearGap, farGap) <= -hop) {
        return std::nullopt;
    }
    return wall.start + wall.direction * ((low + high) / 2.0f);
}

class Slides {
public:
    Slides(const LevelFile& file, std::deque<LevelPolygon>& polygons, Problems& into)
        : level(file), problems(into), walls(BspEdges::Clean(BspEdges::Collect(polygons))) {
        for (const LevelPolygon& polygon : polygons) {
            numbers.emplace(&polygon, numbers.size());
        }
        for (const BspSegment& wall : walls) {
            boxes.push_back(BoxRound(wall, {}, 0.0));
        }
    }

    void Check(const std::deque<LevelPolygon>& polygons) {
        const BoxTree tree(boxes);
        for (const LevelPolygon& polygon : polygons) {
            const std::size_t number = numbers[&polygon];
            if (!polygon.solid || !polygon.movedByMover || polygon.triangleCount == 0) {
                continue;
            }
            for (std::size_t i = 0; i < level.movers.size(); ++i) {
                if (level.movers[i].id == polygon.id) {
                    CheckPath(tree, polygon, number, i);
                }
            }
        }
    }

private:
    void CheckPath(const BoxTree& tree, const LevelPolygon& polygon, std::size_t number,
                   std::size_t mover) {
        const LevelFile::Point start = level.movers[mover].start;
        const LevelFile::Point end = level.movers[mover].end;
        const Vector2 way{static_cast<float>(end.x - start.x), static_cast<float>(end.y - start.y)};
        for (const BspSegment& side : SidesOf(polygon)) {
            told.clear();
            tree.Find(BoxRound(side, way, hop), hits);
            for (const std::size_t hit : hits) {
                const BspSegment& wall = walls[hit];
                if (Dot(side.normal, wall.normal) < -facing) {
                    CheckPair(side, way, wall, number, mover);
                }
            }
        }
    }

    void CheckPair(const BspSegment& side, Vector2 way, const BspSegment& wall, std::size_t number,
                   std::size_t mover) {
        if (std::abs(Dot(way, wall.normal)) < hop) {
            Tell(number, mover, wall, When::Along, InLine(side, {}, way, wall));
        } else {
            Tell(number, mover, wall, When::AtStart, InLine(side, {}, {}, wall));
            Tell(number, mover, wall, When::AtEnd, InLine(side, way, {}, wall));
        }
    }

    void Tell(std::size_t number, std::size_t mover, const BspSegment& wall, When when,
              std::optional<Vector2> place) {
        const std::size_t other = numbers[wall.polygon];
        const std::pair<std::size_t, When> pair{other, when};
        if (!place || std::ranges::find(told, pair) != told.end()) {
            return;
        }
        told.push_back(pair);
        constexpr const char* words[] = {"slides along", "starts its way in line with",
                                         "ends its way in line with"};
        problems.Warning(
            "polygon", number,
            Message(words[static_cast<std::size_t>(when)], " a side of polygon ", other, " near (",
                    std::lround(place->x), ", ", std::lround(place->y), "), carried by mover ",
                    mover, ": it pushes drops into it; let it run into that side"));
    }

    const LevelFile& level;
    Problems& problems;
    std::vector<BspSegment> walls;
    std::vector<Box> boxes;
    std::unordered_map<const LevelPolygon*, std::size_t> numbers;
    std::vector<std::pair<std::size_t, When>> told;  ///< of this side
    std::vector<std::size_t> hits;
};

}  // namespace

void CheckSlides(const LevelFile& level, std::deque<LevelPolygon>& polygons, Problems& problems) {
    Slides(level, polygons, problems).Check(polygons);
}
