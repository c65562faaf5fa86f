#include "Outline.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <unordered_set>

#include "level/LevelPolygon.h"

namespace Outline {

namespace {

/// Products of differences of 32-bit coordinates need 66 bits.
__extension__ using Wide = __int128;

Wide Cross(Point a, Point b, Point c) {
    const Wide abX = Wide{b.x} - a.x;
    const Wide abY = Wide{b.y} - a.y;
    return abX * (Wide{c.y} - a.y) - abY * (Wide{c.x} - a.x);
}

int Sign(Wide value) {
    return value > 0 ? 1 : (value < 0 ? -1 : 0);
}

/// How many starting points are tried before an outline is given up: fewer of large outlines,
/// which take long.
std::size_t MostStarts(std::size_t points) {
    return std::min(points, std::clamp<std::size_t>(100000 / (points + 1), 1, 100));
}

LevelPolygon MakePolygon(const Points& points) {
    std::vector<Vector2> corners;
    for (const Point point : points) {
        corners.push_back({static_cast<float>(point.x), static_cast<float>(point.y)});
    }
    LevelPolygon polygon;
    polygon.AddPoints(corners);
    return polygon;
}

Points WithoutRepeats(const Points& points) {
    std::unordered_set<std::uint64_t> seen;
    Points kept;
    for (const Point point : points) {
        const auto key = std::uint64_t{static_cast<std::uint32_t>(point.x)} << 32 |
                         static_cast<std::uint32_t>(point.y);
        if (seen.insert(key).second) {
            kept.push_back(point);
        }
    }
    return kept;
}

/// One round of dropping; a dropped point's neighbours are compared with what stays.
Points WithoutStraightPoints(const Points& points) {
    Points kept;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const Point before = kept.empty() ? points.back() : kept.back();
        const Point after = i + 1 < points.size() ? points[i + 1]
                            : kept.empty()        ? points.front()
                                                  : kept.front();
        if (!IsOnSegment(before, after, points[i])) {
            kept.push_back(points[i]);
        }
    }
    return kept;
}

int Turn(const Points& points) {
    Wide doubleArea = 0;
    for (std::size_t i = 1; i + 1 < points.size(); ++i) {
        doubleArea += Cross(points[0], points[i], points[i + 1]);
    }
    return Sign(doubleArea);
}

}  // namespace

int Side(Point a, Point b, Point c) {
    return Sign(Cross(a, b, c));
}

bool IsOnSegment(Point a, Point b, Point c) {
    return c.x >= std::min(a.x, b.x) && c.x <= std::max(a.x, b.x) && c.y >= std::min(a.y, b.y) &&
           c.y <= std::max(a.y, b.y) && Cross(a, b, c) == 0;
}

Points Reduced(const Points& points) {
    Points reduced = WithoutRepeats(points);
    while (reduced.size() >= 3) {
        Points fewer = WithoutStraightPoints(reduced);
        if (fewer.size() == reduced.size() || fewer.size() < 2) {
            break;
        }
        reduced = std::move(fewer);
    }
    if (Turn(reduced) < 0) {
        std::reverse(reduced.begin() + 1, reduced.end());
    }
    return reduced;
}

Points Tidy(const Points& points) {
    Points tidy = Reduced(points);
    // Needles and narrow spikes only work from some starting points, since the side from the
    // last point to the first is treated apart.
    const std::size_t tries = MostStarts(tidy.size());
    for (std::size_t start = 0; start < tries; ++start) {
        const LevelPolygon polygon = MakePolygon(tidy);
        if (polygon.triangleCount > 0 && polygon.winding == 1) {
            return tidy;
        }
        if (start == 0 && polygon.IsInvalid()) {
            return tidy;
        }
        std::rotate(tidy.begin(), tidy.begin() + 1, tidy.end());
    }
    return Reduced(points);
}

bool Contains(std::span<const Point> outline, double x, double y) {
    bool isInside = false;
    for (std::size_t i = 0; i < outline.size(); ++i) {
        const Point a = outline[i];
        const Point b = outline[(i + 1) % outline.size()];
        const double ax = a.x;
        const double ay = a.y;
        const double bx = b.x;
        const double by = b.y;
        const double side = (bx - ax) * (y - ay) - (by - ay) * (x - ax);
        if (side == 0.0 && x >= std::min(ax, bx) && x <= std::max(ax, bx) &&
            y >= std::min(ay, by) && y <= std::max(ay, by)) {
            return true;
        }
        if ((ay > y) != (by > y) && (side < 0.0) == (by < ay)) {
            isInside = !isInside;
        }
    }
    return isInside;
}

double DistanceToSides(std::span<const Point> outline, double x, double y) {
    double nearest = std::numeric_limits<double>::infinity();
    for (std::size_t i = 0; i < outline.size(); ++i) {
        const Point a = outline[i];
        const Point b = outline[(i + 1) % outline.size()];
        const double dx = static_cast<double>(b.x) - a.x;
        const double dy = static_cast<double>(b.y) - a.y;
        const double square = dx * dx + dy * dy;
        const double t =
            square > 0.0 ? std::clamp(((x - a.x) * dx + (y - a.y) * dy) / square, 0.0, 1.0) : 0.0;
        nearest = std::min(nearest, std::hypot(x - a.x - dx * t, y - a.y - dy * t));
    }
    return nearest;
}

}  // namespace Outline
