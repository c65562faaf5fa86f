// The tree of bounds over an outline's sides, and how much rounding it must allow for.
//
// `SegmentsCross` works in single precision, so it can see a crossing where there is none.
// With e the rounding unit, M the largest coordinate and L1, L2 the lengths, the computed
// crossing point of two lines is off, measured across them, by at most
//     B = 2.1 e M^2 (1 / L1 + 1 / L2) + 20 e M,
// from the cancellation in the products of coordinates. Each segment then accepts the point
// by its longer axis alone. If both have the same longer axis, they must come within 2 B of
// each other. If not, the distance grows with 1 / (1 - s t), s and t being the slopes against
// the own longer axis: at most 16 B, unless both slant by more than 3/4 the same way. Such
// pairs are rare in real outlines, and are tested one by one.
//
// `PointInConvexPolygon` errs by at most 3.1 e |edge| |distance to its start| in each of its
// three products. For a triangle of area A and longest side L that moves its border outwards
// by less than 2 k L, k = 3.1 e L^2 / A, as long as k is below 1/2. Where it isn't, all points
// are tested.

#include "level/LevelPolygonOutline.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

#include "engine/Geometry.h"

namespace {

constexpr double roundingUnit = 1.0 / (1 << 24);
constexpr double slantLimit = 0.75;
constexpr double slantFactor = 16.0;
constexpr std::uint32_t leafSize = 4;

std::array<double, 4> AlongAxes(Vector2 p) {
    const double x = p.x;
    const double y = p.y;
    return {x, y, x + y, x - y};
}

double Cross(Vector2 origin, Vector2 end, double x, double y) {
    const double ex = static_cast<double>(end.x) - static_cast<double>(origin.x);
    const double ey = static_cast<double>(end.y) - static_cast<double>(origin.y);
    return ex * (y - static_cast<double>(origin.y)) - ey * (x - static_cast<double>(origin.x));
}

}  // namespace

struct LevelPolygonOutline::Shape {
    Shape(Vector2 a, Vector2 b) {
        const Vector2 d = b - a;
        const float width = std::abs(d.x);
        const float height = std::abs(d.y);
        // The same choice, in the same precision, that SegmentsCross makes.
        alongX = width >= height;
        rising = (d.x > 0.0f) == (d.y > 0.0f);
        slants = static_cast<double>(std::min(width, height)) >
                 slantLimit * static_cast<double>(std::max(width, height));
        length = std::hypot(static_cast<double>(d.x), static_cast<double>(d.y));
    }
    bool alongX;
    bool rising;
    bool slants;
    double length;
};

void LevelPolygonOutline::Bounds::Add(Vector2 point, double reach) {
    const auto at = AlongAxes(point);
    for (std::size_t i = 0; i < axisCount; ++i) {
        const double r = i < 2 ? reach : 2.0 * reach;
        low[i] = std::min(low[i], at[i] - r);
        high[i] = std::max(high[i], at[i] + r);
    }
}

void LevelPolygonOutline::Bounds::Add(const Bounds& other) {
    for (std::size_t i = 0; i < axisCount; ++i) {
        low[i] = std::min(low[i], other.low[i]);
        high[i] = std::max(high[i], other.high[i]);
    }
}

bool LevelPolygonOutline::Bounds::Overlaps(const Bounds& other) const {
    for (std::size_t i = 0; i < axisCount; ++i) {
        if (low[i] > other.high[i] || high[i] < other.low[i]) {
            return false;
        }
    }
    return true;
}

LevelPolygonOutline::LevelPolygonOutline(std::span<const Vector2> outline) : points(outline) {
    if (points.size() <= plainLimit) {
        return;
    }
    const auto count = static_cast<std::uint32_t>(points.size());
    for (const Vector2 p : points) {
        largest = std::max(
            {largest, std::abs(static_cast<double>(p.x)), std::abs(static_cast<double>(p.y))});
    }
    for (std::uint32_t side = 0; side < count; ++side) {
        const Shape shape(SideStart(side), SideEnd(side));
        if (shape.slants) {
            slanting[shape.alongX][shape.rising].push_back(side);
        }
    }
    sides.resize(count);
    std::iota(sides.begin(), sides.end(), 0u);
    nodes.reserve(count);
    Build(0, count);
}

/// How far around itself a segment may be taken to cross another, for its share of B.
double LevelPolygonOutline::Reach(const Shape& shape) const {
    const double cancelled = 2.1 * roundingUnit * largest * largest / shape.length;
    return slantFactor * (cancelled + 10.0 * roundingUnit * largest);
}

std::uint32_t LevelPolygonOutline::Build(std::uint32_t first, std::uint32_t count) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const auto index = static_cast<std::uint32_t>(nodes.size());
    Node node;
    node.bounds.low.fill(infinity);
    node.bounds.high.fill(-infinity);
    node.firstSide = first;
    nodes.push_back(node);
    if (count <= leafSize) {
        node.sideCount = count;
        for (std::uint32_t i = first; i < first + count; ++i) {
            const Vector2 start = SideStart(sides[i]);
            const Vector2 end = SideEnd(sides[i]);
            const double reach = Reach(Shape(start, end));
            node.bounds.Add(start, reach);
            node.bounds.Add(end, reach);
        }
    } else {
        SplitAtMedian(first, count);
        const std::uint32_t half = count / 2;
        const std::uint32_t left = Build(first, half);
        node.right = Build(first + half, count - half);
        node.bounds.Add(nodes[left].bounds);
        node.bounds.Add(nodes[node.right].bounds);
    }
    nodes[index] = node;
    return index;
}

/// Orders the range so that its two halves lie apart along the axis of their wider spread.
void LevelPolygonOutline::SplitAtMedian(std::uint32_t first, std::uint32_t count) {
    const auto begin = sides.begin() + first;
    const auto end = begin + count;
    const auto middle = [this](std::uint32_t side) {
        return SideStart(side) * 0.5f + SideEnd(side) * 0.5f;
    };
    Vector2 low = middle(*begin);
    Vector2 high = low;
    for (auto side = begin; side != end; ++side) {
        const Vector2 m = middle(*side);
        low = {std::min(low.x, m.x), std::min(low.y, m.y)};
        high = {std::max(high.x, m.x), std::max(high.y, m.y)};
    }
    const bool alongX = high.x - low.x >= high.y - low.y;
    std::nth_element(begin, begin + count / 2, end, [&](std::uint32_t a, std::uint32_t b) {
        return alongX ? middle(a).x < middle(b).x : middle(a).y < middle(b).y;
    });
}

/// Whether `test` holds for any side that isn't below a skipped node.
template <typename Skip, typename Test>
bool LevelPolygonOutline::Search(Skip skip, Test test) {
    // The tree is balanced, so that its depth stays below 32.
    std::array<std::uint32_t, 64> stack;
    std::size_t depth = 0;
    stack[depth++] = 0;
    while (depth > 0) {
        const std::uint32_t index = stack[--depth];
        const Node& node = nodes[index];
        ++work;
        if (skip(node.bounds)) {
            continue;
        }
        if (node.right != 0) {
            stack[depth++] = node.right;
            stack[depth++] = index + 1;
            continue;
        }
        work += node.sideCount;
        for (std::uint32_t i = 0; i < node.sideCount; ++i) {
            if (test(sides[node.firstSide + i])) {
                return true;
            }
        }
    }
    return false;
}

bool LevelPolygonOutline::Crosses(Vector2 a, Vector2 b) {
    if (!nodes.empty()) {
        return IsExhausted() || CrossesInTree(a, b);
    }
    for (std::uint32_t side = 0; side < points.size(); ++side) {
        if (CrossesSide(a, b, side)) {
            return true;
        }
    }
    return false;
}

bool LevelPolygonOutline::CrossesSide(Vector2 a, Vector2 b, std::uint32_t side) const {
    return SegmentsCross(a, b, SideStart(side), SideEnd(side));
}

bool LevelPolygonOutline::CrossesInTree(Vector2 a, Vector2 b) {
    const Shape shape(a, b);
    if (shape.length == 0.0) {
        return false;
    }
    const double reach = Reach(shape);
    Bounds bounds{AlongAxes(a), AlongAxes(a)};
    bounds.Add(a, reach);
    bounds.Add(b, reach);
    const double dx = std::abs(static_cast<double>(b.x) - static_cast<double>(a.x));
    const double dy = std::abs(static_cast<double>(b.y) - static_cast<double>(a.y));
    const auto skip = [&](const Bounds& box) {
        if (!box.Overlaps(bounds)) {
            return true;
        }
        // Wholly on one side of the line?
        const double x = 0.5 * (box.low[0] + box.high[0]);
        const double y = 0.5 * (box.low[1] + box.high[1]);
        const double radius = dx * (0.5 * (box.high[1] - box.low[1]) + reach) +
                              dy * (0.5 * (box.high[0] - box.low[0]) + reach);
        return std::abs(Cross(a, b, x, y)) > radius;
    };
    return Search(skip, [&](std::uint32_t side) { return CrossesSide(a, b, side); }) ||
           (shape.slants && CrossesSlanting(a, b, shape));
}

/// The sides that slant as ab does but have the other longer axis.
bool LevelPolygonOutline::CrossesSlanting(Vector2 a, Vector2 b, const Shape& shape) {
    const auto& others = slanting[!shape.alongX][shape.rising];
    work += others.size();
    return std::any_of(others.begin(), others.end(),
                       [&](std::uint32_t side) { return CrossesSide(a, b, side); });
}

bool LevelPolygonOutline::HoldsPoint(const std::array<Vector2, 3>& triangle) {
    if (!nodes.empty()) {
        return IsExhausted() || HoldsPointInTree(triangle);
    }
    return std::any_of(points.begin(), points.end(),
                       [&](Vector2 point) { return HoldsPoint(triangle, point); });
}

bool LevelPolygonOutline::HoldsPoint(const std::array<Vector2, 3>& triangle, Vector2 point) {
    return point != triangle[0] && point != triangle[1] && point != triangle[2] &&
           PointInConvexPolygon(point.x, point.y, triangle);
}

bool LevelPolygonOutline::HoldsPointInTree(const std::array<Vector2, 3>& triangle) {
    const auto test = [&](std::uint32_t side) { return HoldsPoint(triangle, SideStart(side)); };
    const double area = 0.5 * Cross(triangle[0], triangle[1], static_cast<double>(triangle[2].x),
                                    static_cast<double>(triangle[2].y));
    double longest = 0.0;
    for (std::size_t i = 0; i < 3; ++i) {
        longest = std::max(longest, Shape(triangle[i], triangle[(i + 1) % 3]).length);
    }
    const double k = 3.2 * roundingUnit * longest * longest / std::abs(area);
    if (!(k < 0.5)) {
        return Search([](const Bounds&) { return false; }, test);
    }
    if (area < 0.0) {
        return false;
    }
    Bounds bounds{AlongAxes(triangle[0]), AlongAxes(triangle[0])};
    for (const Vector2 corner : triangle) {
        bounds.Add(corner, 2.0 * k * longest);
    }
    // A point at most L away from the triangle passes an edge by no more than this.
    const double slack = 6.4 * roundingUnit * longest * longest;
    const auto skip = [&](const Bounds& box) {
        if (!box.Overlaps(bounds)) {
            return true;
        }
        const double x = 0.5 * (box.low[0] + box.high[0]);
        const double y = 0.5 * (box.low[1] + box.high[1]);
        const double width = 0.5 * (box.high[0] - box.low[0]);
        const double height = 0.5 * (box.high[1] - box.low[1]);
        for (std::size_t i = 0; i < 3; ++i) {
            const Vector2 p = triangle[i];
            const Vector2 q = triangle[(i + 1) % 3];
            const double dx = std::abs(static_cast<double>(q.x) - static_cast<double>(p.x));
            const double dy = std::abs(static_cast<double>(q.y) - static_cast<double>(p.y));
            if (Cross(p, q, x, y) + dx * height + dy * width < -slack) {
                return true;
            }
        }
        return false;
    };
    return Search(skip, test);
}
