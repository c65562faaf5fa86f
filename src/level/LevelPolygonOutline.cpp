// The plain walks, and the choice between them and the tree.

#include "level/LevelPolygonOutline.h"

#include <algorithm>

#include "engine/Geometry.h"
#include "platform/Assert.h"

LevelPolygonOutline::LevelPolygonOutline(std::span<const Vector2> outline) : points(outline) {
    VANTREL_ASSERT(points.size() >= 3);
    if (points.size() > plainLimit) {
        tree.emplace(points);
    }
}

bool LevelPolygonOutline::Crosses(Vector2 a, Vector2 b) {
    if (tree) {
        return IsExhausted() || tree->Crosses(a, b, work);
    }
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (SegmentsCross(a, b, points[i], points[i + 1 < points.size() ? i + 1 : 0])) {
            return true;
        }
    }
    return false;
}

bool LevelPolygonOutline::HoldsPoint(const std::array<Vector2, 3>& triangle) {
    if (tree) {
        return IsExhausted() || tree->HoldsPoint(triangle, work);
    }
    return std::any_of(points.begin(), points.end(), [&](Vector2 p) {
        return p != triangle[0] && p != triangle[1] && p != triangle[2] &&
               PointInConvexPolygon(p.x, p.y, triangle);
    });
}
