// Plane geometry in single precision; the order of the operations is part of the results.

#include "engine/Geometry.h"

#include <bit>
#include <cmath>
#include <utility>

namespace {

// Whether `point`, which lies on the line through s and e, lies between them. The longer axis
// decides, as it is the more exact.
bool IsWithin(Vector2 point, Vector2 s, Vector2 e) {
    const bool alongX = std::abs(e.x - s.x) >= std::abs(e.y - s.y);
    const float t = alongX ? (point.x - s.x) / (e.x - s.x) : (point.y - s.y) / (e.y - s.y);
    return !(t < 0.0f || t > 1.0f);
}

}  // namespace

void FixTriangleWinding(Vector2& p0, Vector2& p1, Vector2& p2) {
    const Vector2 m = (p0 + p2) * 0.5f;
    const Vector2 e1 = p1 - p0;
    const Vector2 e2 = p2 - p1;
    if ((m.x - p0.x) * -e1.y + (m.y - p0.y) * e1.x < 0.0f &&
        (m.x - p1.x) * -e2.y + (m.y - p1.y) * e2.x < 0.0f) {
        std::swap(p1, p2);
    }
}

std::optional<Vector2> LineIntersection(Vector2 a, Vector2 b, Vector2 c, Vector2 d) {
    const float denominator = (a.x - b.x) * (c.y - d.y) - (a.y - b.y) * (c.x - d.x);
    if (denominator == 0.0f) {
        return std::nullopt;
    }
    const float u = a.x * b.y - a.y * b.x;
    const float v = c.x * d.y - c.y * d.x;
    return Vector2{(u * (c.x - d.x) - (a.x - b.x) * v) / denominator,
                   (u * (c.y - d.y) - (a.y - b.y) * v) / denominator};
}

bool SegmentsCross(Vector2 a, Vector2 b, Vector2 c, Vector2 d) {
    if (a == c || a == d || b == c || b == d || a == b || c == d) {
        return false;
    }
    const auto crossing = LineIntersection(a, b, c, d);
    return crossing && IsWithin(*crossing, a, b) && IsWithin(*crossing, c, d);
}

bool PointInConvexPolygon(float x, float y, std::span<const Vector2> points) {
    for (std::size_t i = 0; i < points.size(); ++i) {
        const Vector2 e = points[(i + 1) % points.size()] - points[i];
        const Vector2 q = Vector2{x, y} - points[i];
        if (e.x * q.y - e.y * q.x < 0.0f) {
            return false;
        }
    }
    return true;
}

float RoundNearest(float value) {
    return std::round(value);
}

std::uint32_t NextPowerOfTwo(std::uint32_t value) {
    // Above the largest power there is no answer; it wraps to 0, as 0 itself gives.
    constexpr std::uint32_t largest = 0x80000000;
    return value == 0 || value > largest ? 0 : std::bit_ceil(value);
}
