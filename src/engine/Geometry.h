#pragma once
// Small plane geometry that polygons, triggers, text and video share.

#include <cstdint>
#include <optional>
#include <span>

#include "engine/Vector2.h"

/// Swaps p1 and p2 if the triangle turns the other way round.
void FixTriangleWinding(Vector2& p0, Vector2& p1, Vector2& p2);

/// Crossing point of the infinite lines ab and cd; none if they are exactly parallel.
std::optional<Vector2> LineIntersection(Vector2 a, Vector2 b, Vector2 c, Vector2 d);

/// Whether the segments ab and cd cross. Segments that share an end point exactly, and
/// parallel ones, don't; a segment that ends inside the other does.
bool SegmentsCross(Vector2 a, Vector2 b, Vector2 c, Vector2 d);

/// Whether (x, y) lies in the polygon or on its edge. The points turn from +x towards +y.
bool PointInConvexPolygon(float x, float y, std::span<const Vector2> points);

/// The nearest whole number, halves away from zero.
float RoundNearest(float value);

/// The smallest power of two that isn't below `value`; 0 gives 0.
std::uint32_t NextPowerOfTwo(std::uint32_t value);
