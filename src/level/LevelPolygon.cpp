// The outline of a level polygon and its surface.

#include "level/LevelPolygon.h"

#include <bit>
#include <unordered_set>

#include "engine/Geometry.h"
#include "level/LevelPolygonOutline.h"

namespace {

/// Equal for equal points: adding 0 makes -0 into 0.
std::uint64_t PointKey(Vector2 p) {
    const std::uint64_t x = std::bit_cast<std::uint32_t>(p.x + 0.0f);
    const std::uint64_t y = std::bit_cast<std::uint32_t>(p.y + 0.0f);
    return x << 32 | y;
}

/// Whether the side that begins at point i crosses one of those before it.
bool CrossesEarlierSide(std::span<const Vector2> points, std::size_t i) {
    for (std::size_t k = 0; k < i; ++k) {
        if (SegmentsCross(points[k], points[k + 1], points[i], points[i + 1]) ||
            SegmentsCross(points[i], points[i + 1], points[k], points[k + 1])) {
            return true;
        }
    }
    return false;
}

bool ClosingSideCrosses(std::span<const Vector2> points) {
    for (std::size_t i = 0; i + 1 < points.size(); ++i) {
        if (SegmentsCross(points[i], points[i + 1], points.back(), points.front())) {
            return true;
        }
    }
    return false;
}

/// How many points, from the first on, make the longest outline that isn't invalid. A crossing
/// of two sides stays whatever follows; the closing side is another one with each point.
std::size_t ValidBeginning(std::span<const Vector2> points) {
    std::size_t count = 3;
    while (count < points.size() && !CrossesEarlierSide(points, count - 1)) {
        ++count;
    }
    while (count > 3 && ClosingSideCrosses(points.first(count))) {
        --count;
    }
    return count;
}

}  // namespace

void LevelPolygon::AddPoint(float x, float y) {
    for (std::size_t i = PointCount(); i-- > 0;) {
        if (pointsX[i] == x && pointsY[i] == y) {
            return;
        }
    }
    pointsX.push_back(x);
    pointsY.push_back(y);
    Triangulate(1);
}

void LevelPolygon::AddPoints(std::span<const Vector2> points) {
    std::unordered_set<std::uint64_t> known;
    known.reserve(PointCount() + points.size());
    for (std::size_t i = 0; i < PointCount(); ++i) {
        known.insert(PointKey(Point(i)));
    }
    const std::size_t before = PointCount();
    for (const Vector2 point : points) {
        if (known.insert(PointKey(point)).second) {
            pointsX.push_back(point.x);
            pointsY.push_back(point.y);
        }
    }
    if (PointCount() == before) {
        return;
    }
    Triangulate(1);
    if (PointCount() > 3 && PointCount() <= windingLimit && IsInvalid()) {
        KeepWindingOfBeginning(before);
    }
}

void LevelPolygon::KeepWindingOfBeginning(std::size_t before) {
    std::vector<Vector2> points(PointCount());
    for (std::size_t i = 0; i < points.size(); ++i) {
        points[i] = Point(i);
    }
    const auto count = static_cast<std::ptrdiff_t>(ValidBeginning(points));
    if (count <= static_cast<std::ptrdiff_t>(before)) {
        return;
    }
    LevelPolygon beginning;
    beginning.pointsX.assign(pointsX.begin(), pointsX.begin() + count);
    beginning.pointsY.assign(pointsY.begin(), pointsY.begin() + count);
    beginning.Triangulate(1);
    winding = beginning.winding;
}

void LevelPolygon::SetFriction(float value) {
    friction = value;
    Clamp(friction, 0.0f, 1.0f);
}

bool LevelPolygon::IsInvalid() const {
    if (PointCount() < 3) {
        return true;
    }
    std::vector<Vector2> points(PointCount());
    for (std::size_t i = 0; i < points.size(); ++i) {
        points[i] = Point(i);
    }
    LevelPolygonOutline outline(points);
    for (std::size_t i = 0; i + 1 < points.size(); ++i) {
        if (outline.Crosses(points[i], points[i + 1])) {
            return true;
        }
    }
    return false;
}

bool LevelPolygon::EdgeCrossesOutline(Vector2 a, Vector2 b) const {
    const std::size_t count = PointCount();
    for (std::size_t i = 0; i < count; ++i) {
        if (SegmentsCross(a, b, Point(i), Point(i + 1 < count ? i + 1 : 0))) {
            return true;
        }
    }
    return false;
}
