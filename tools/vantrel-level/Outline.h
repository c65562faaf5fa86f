#pragma once
// Exact plane geometry on whole-number outlines: what the compiler does to them, and the
// questions that the checks ask of them.

#include <cstdint>
#include <span>
#include <vector>

#include "level/LevelFile.h"

namespace Outline {

using Point = LevelFile::Point;
using Points = std::vector<Point>;

/// The outline without points that stand there twice or on the straight line between their
/// neighbours, turning from +x towards +y, and starting with the first point that stays.
Points Reduced(const Points& points);

/// The outline as the compiler writes it: reduced, and starting where it can be cut into
/// triangles at the first try, if there is such a point. Tidying twice changes nothing.
Points Tidy(const Points& points);

/// Which side of the line from a to b the point c lies on: 1 towards the inside of tidy
/// outlines, -1 the other side, 0 on the line.
int Side(Point a, Point b, Point c);

/// Whether c lies on the segment ab, ends included.
bool IsOnSegment(Point a, Point b, Point c);

/// Whether the point lies inside or on the outline, crossings counted.
bool Contains(std::span<const Point> outline, double x, double y);

/// Distance from the point to the nearest side; infinite without sides.
double DistanceToSides(std::span<const Point> outline, double x, double y);

}  // namespace Outline
