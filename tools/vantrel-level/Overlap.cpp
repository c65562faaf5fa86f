#include "Overlap.h"

#include <algorithm>
#include <vector>

#include "BoxTree.h"
#include "Outline.h"

namespace {

using Point = LevelFile::Point;

/// A point on a slope is rounded by up to 0.71 units.
constexpr double tolerance = 0.75;

bool IsInside(std::span<const Point> outline, double x, double y) {
    return Outline::Contains(outline, x, y) && Outline::DistanceToSides(outline, x, y) > tolerance;
}

/// Adds where along the side pq, from 0 to 1, the outline crosses or touches it.
void AddMeetings(Point p, Point q, std::span<const Point> outline, std::vector<double>& meetings) {
    const double dx = static_cast<double>(q.x) - p.x;
    const double dy = static_cast<double>(q.y) - p.y;
    const double square = dx * dx + dy * dy;
    for (std::size_t i = 0; i < outline.size(); ++i) {
        const Point r = outline[i];
        const Point s = outline[(i + 1) % outline.size()];
        if (Outline::IsOnSegment(p, q, r)) {
            meetings.push_back(
                ((r.x - static_cast<double>(p.x)) * dx + (r.y - static_cast<double>(p.y)) * dy) /
                square);
        }
        if (Outline::Side(p, q, r) * Outline::Side(p, q, s) < 0 &&
            Outline::Side(r, s, p) * Outline::Side(r, s, q) < 0) {
            const double ex = static_cast<double>(s.x) - r.x;
            const double ey = static_cast<double>(s.y) - r.y;
            const double rx = static_cast<double>(r.x) - p.x;
            const double ry = static_cast<double>(r.y) - p.y;
            meetings.push_back((rx * ey - ry * ex) / (dx * ey - dy * ex));
        }
    }
}

/// Whether any side of `sides` passes through the inside of `outline`.
bool AnySideEnters(std::span<const Point> sides, std::span<const Point> outline) {
    const Box box = Box::Round(outline);
    std::vector<double> meetings;
    for (std::size_t i = 0; i < sides.size(); ++i) {
        const Point ends[] = {sides[i], sides[(i + 1) % sides.size()]};
        if (ends[0] == ends[1] || !Box::Round(ends).Meets(box)) {
            continue;
        }
        meetings = {0.0, 1.0};
        AddMeetings(ends[0], ends[1], outline, meetings);
        std::ranges::sort(meetings);
        for (std::size_t m = 0; m + 1 < meetings.size(); ++m) {
            for (const double share : {0.5, 0.25, 0.75}) {
                const double t = meetings[m] + (meetings[m + 1] - meetings[m]) * share;
                const double x = ends[0].x + (static_cast<double>(ends[1].x) - ends[0].x) * t;
                const double y = ends[0].y + (static_cast<double>(ends[1].y) - ends[0].y) * t;
                if (meetings[m] < meetings[m + 1] && IsInside(outline, x, y)) {
                    return true;
                }
            }
        }
    }
    return false;
}

}  // namespace

bool Overlap(std::span<const Point> a, std::span<const Point> b) {
    return AnySideEnters(a, b) || AnySideEnters(b, a);
}
