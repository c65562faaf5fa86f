// The shape of a trigger.

#include "actors/Trigger.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "engine/Geometry.h"

namespace {

/// A triangle lower than this share of its longest side counts as thin.
constexpr float thinnest = 0.001f;

/// See Trigger::boxReach. The point test turns each side by under a millionth through rounding,
/// which carries a tip of a triangle that isn't thin by far less than a hundredth of its size.
float BoxReach(const TriggerTriangle& triangle) {
    const float longest = *std::max_element(triangle.lengths.begin(), triangle.lengths.end());
    const Vector2 a = triangle.corners[1] - triangle.corners[0];
    const Vector2 b = triangle.corners[2] - triangle.corners[0];
    const float doubleArea = std::fabs(a.x * b.y - a.y * b.x);
    if (!(doubleArea > thinnest * longest * longest)) {
        return std::numeric_limits<float>::infinity();
    }
    return 0.01f * longest;
}

}  // namespace

void TriggerTriangle::Set(Vector2 p0, Vector2 p1, Vector2 p2) {
    FixTriangleWinding(p0, p1, p2);
    corners = {p0, p1, p2};
    for (std::size_t i = 0; i < 3; ++i) {
        edges[i] = corners[(i + 1) % 3] - corners[i];
        lengths[i] = Length(edges[i]);
        if (lengths[i] > 0.0f) {
            edges[i] /= lengths[i];
        }
        normals[i] = {-edges[i].y, edges[i].x};
    }
}

void Trigger::SetCorners(Vector2 corner0, Vector2 corner1, Vector2 corner2, Vector2 corner3) {
    triangleA.Set(corner0, corner1, corner2);
    triangleB.Set(corner2, corner3, corner0);
    const auto xs = {corner0.x, corner1.x, corner2.x, corner3.x};
    const auto ys = {corner0.y, corner1.y, corner2.y, corner3.y};
    const auto isFinite = [](float value) { return std::isfinite(value); };
    if (!std::ranges::all_of(xs, isFinite) || !std::ranges::all_of(ys, isFinite)) {
        // Overlaps no square, so it is never tested.
        minX = minY = std::numeric_limits<float>::infinity();
        maxX = maxY = -std::numeric_limits<float>::infinity();
        return;
    }
    minX = std::min(xs);
    maxX = std::max(xs);
    minY = std::min(ys);
    maxY = std::max(ys);
    boxReach = std::max(BoxReach(triangleA), BoxReach(triangleB));
}

Vector2 Trigger::Centre() const {
    Vector2 sum;
    for (const Vector2 corner : triangleA.corners) {
        sum += corner;
    }
    for (const Vector2 corner : triangleB.corners) {
        sum += corner;
    }
    return sum / 6.0f;
}
