// Checks of outlines: each on its own, and those whose boxes meet against each other.

#include <algorithm>
#include <deque>
#include <map>

#include "BoxTree.h"
#include "Check.h"
#include "Outline.h"
#include "Overlap.h"

namespace {

using Points = Outline::Points;

/// What the game's polygon and the file's record say of one polygon.
struct Shape {
    const LevelFile::Polygon* record;
    const LevelPolygon* polygon;

    bool HasTriangles() const { return polygon->triangleCount > 0; }
    /// Solid where it stands for as long as the level runs.
    bool IsFixedSolid() const {
        return polygon->solid && HasTriangles() && !polygon->movedByMover &&
               !polygon->toggledByTrigger;
    }
};

std::string Text(LevelFile::Point point) {
    return Message("(", point.x, ", ", point.y, ")");
}

/// The first point that lies on a side it is no end of.
const LevelFile::Point* TouchingCorner(const Points& points) {
    const std::size_t count = points.size();
    std::vector<Box> boxes;
    for (std::size_t i = 0; i < count; ++i) {
        const LevelFile::Point ends[] = {points[i], points[(i + 1) % count]};
        boxes.push_back(Box::Round(ends));
    }
    const BoxTree sides(std::move(boxes));
    std::vector<std::size_t> hits;
    for (const LevelFile::Point& point : points) {
        sides.Find(Box::Round({&point, 1}), hits);
        for (const std::size_t side : hits) {
            const LevelFile::Point a = points[side];
            const LevelFile::Point b = points[(side + 1) % count];
            if (a != point && b != point && Outline::IsOnSegment(a, b, point)) {
                return &point;
            }
        }
    }
    return nullptr;
}

bool HasRepeatedPoint(Points points) {
    std::ranges::sort(points, [](auto a, auto b) { return a.x != b.x ? a.x < b.x : a.y < b.y; });
    return std::ranges::adjacent_find(points) != points.end();
}

void CheckOutline(const Shape& shape, std::size_t number, Problems& problems) {
    const Points& points = shape.record->points;
    const LevelFile::Point* corner = TouchingCorner(points);
    const std::string touch = corner == nullptr ? ""
                                                : Message("corner ", Text(*corner),
                                                          " touches another side of its outline");
    if (shape.HasTriangles()) {
        if (corner != nullptr) {
            problems.Warning("polygon", number, touch);
        }
        if (HasRepeatedPoint(points)) {
            problems.Warning("polygon", number, "has a point twice; the second is dropped");
        }
        return;
    }
    std::string reason = "it can't be cut into triangles";
    if (shape.polygon->PointCount() < 3) {
        reason = "it has fewer than three points";
    } else if (corner != nullptr) {
        reason = touch;
    } else if (shape.polygon->IsInvalid()) {
        reason = "its outline crosses itself";
    }
    problems.Error("polygon", number, Message("has no triangles: ", reason));
}

/// The outline in one form for all starts and directions.
std::vector<std::pair<std::int32_t, std::int32_t>> Canonical(const Points& points) {
    std::vector<std::pair<std::int32_t, std::int32_t>> form;
    for (const LevelFile::Point point : Outline::Reduced(points)) {
        form.emplace_back(point.x, point.y);
    }
    std::rotate(form.begin(), std::min_element(form.begin(), form.end()), form.end());
    return form;
}

void CheckTwins(const std::vector<Shape>& shapes, Problems& problems) {
    std::multimap<std::vector<std::pair<std::int32_t, std::int32_t>>, std::size_t> seen;
    for (std::size_t i = 0; i < shapes.size(); ++i) {
        if (!shapes[i].HasTriangles()) {
            continue;
        }
        auto form = Canonical(shapes[i].record->points);
        const auto [begin, end] = seen.equal_range(form);
        for (auto entry = begin; entry != end; ++entry) {
            const Shape& other = shapes[entry->second];
            const bool bothSolid = shapes[i].IsFixedSolid() && other.IsFixedSolid();
            const bool bothSeen = shapes[i].polygon->visible && other.polygon->visible &&
                                  shapes[i].record->layer == other.record->layer;
            if (bothSolid || bothSeen) {
                problems.Warning("polygon", i, Message("is identical to polygon ", entry->second));
                break;
            }
        }
        seen.emplace(std::move(form), i);
    }
}

void CheckOverlaps(const std::vector<Shape>& shapes, Problems& problems) {
    std::vector<std::size_t> solids;
    std::vector<Box> boxes;
    for (std::size_t i = 0; i < shapes.size(); ++i) {
        if (shapes[i].IsFixedSolid()) {
            solids.push_back(i);
            boxes.push_back(Box::Round(shapes[i].record->points));
        }
    }
    const BoxTree tree(boxes);
    std::vector<std::size_t> hits;
    for (std::size_t i = 0; i < solids.size(); ++i) {
        tree.Find(boxes[i], hits);
        for (const std::size_t j : hits) {
            if (j > i &&
                Overlap(shapes[solids[i]].record->points, shapes[solids[j]].record->points)) {
                problems.Warning("polygon", solids[i], Message("overlaps polygon ", solids[j]));
            }
        }
    }
}

void CheckWaterStart(const LevelFile& level, const std::vector<Shape>& shapes, Problems& problems) {
    /// The water starts in a circle of 10; a particle has a radius of 2.
    constexpr double room = 12.0;
    const double x = level.waterStart.x;
    const double y = level.waterStart.y;
    for (std::size_t i = 0; i < shapes.size(); ++i) {
        const Points& points = shapes[i].record->points;
        if (!shapes[i].polygon->solid || !shapes[i].HasTriangles()) {
            continue;
        }
        if (Outline::Contains(points, x, y)) {
            problems.Error("start", 0, Message("the water starts inside polygon ", i));
        } else if (Outline::DistanceToSides(points, x, y) < room) {
            problems.Warning("start", 0, Message("the water starts closer than 12 to polygon ", i));
        }
    }
}

}  // namespace

void CheckGeometry(const LevelFile& level, const std::deque<LevelPolygon>& polygons,
                   Problems& problems) {
    std::vector<Shape> shapes;
    shapes.reserve(polygons.size());
    auto record = level.polygons.begin();
    for (const LevelPolygon& polygon : polygons) {
        shapes.push_back({&*record++, &polygon});
    }
    for (std::size_t i = 0; i < shapes.size(); ++i) {
        CheckOutline(shapes[i], i, problems);
    }
    CheckTwins(shapes, problems);
    CheckOverlaps(shapes, problems);
    CheckWaterStart(level, shapes, problems);
}
