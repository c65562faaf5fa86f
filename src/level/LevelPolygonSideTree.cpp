// `SegmentsCross` works in single precision, so it can see a crossing where there is none.
// With e the rounding unit, M the largest coordinate, and u1, u2 the errors that the two
// lines' constants (a.x b.y - a.y b.x) really have, each divided by its segment's length, the
// computed crossing point lies off, measured across the lines, by at most
//     B = u1 + u2 + 20 e M.
// Each segment then accepts the point by its longer axis alone. Two segments of one longer
// axis must overlap along it, and come within 2 B of each other along the shorter one. Two of
// different longer axes come within 4 B / (1 - s t), where s and t are their slopes against
// their own longer axes; only if both slant the same way can s t come near to 1, and then any
// distance is possible. Nodes beyond these bounds are left out, so that the answer is that of
// the plain walk.

#include "level/LevelPolygonSideTree.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "engine/Geometry.h"
#include "level/LevelPolygonTriangleReach.h"
#include "platform/Assert.h"

namespace {

constexpr double roundingUnit = 1.0 / (1 << 24);
/// Above this product of slopes a distance says nothing about a crossing.
constexpr double slopeLimit = 0.95;
constexpr std::uint32_t leafSize = 4;
constexpr double infinity = std::numeric_limits<double>::infinity();

}  // namespace

LevelPolygonSideTree::Shape::Shape(Vector2 a, Vector2 b) {
    const double ax = a.x;
    const double ay = a.y;
    const double bx = b.x;
    const double by = b.y;
    dx = bx - ax;
    dy = by - ay;
    const double width = std::abs(dx);
    const double height = std::abs(dy);
    // The comparison and the constant in the same precision that SegmentsCross has.
    alongX = std::abs(b.x - a.x) >= std::abs(b.y - a.y);
    rising = (dx > 0.0) == (dy > 0.0);
    slope = std::min(width, height) / std::max(width, height);
    const float constant = a.x * b.y - a.y * b.x;
    error = std::abs(static_cast<double>(constant) - (ax * by - ay * bx)) /
            std::sqrt(width * width + height * height);
}

/// The segment ab, with how far from it a node's sides can be taken to cross it.
struct LevelPolygonSideTree::Query {
    Query(Vector2 start, Vector2 end, double unit)
        : a(start),
          b(end),
          precision(unit),
          shape(a, b),
          ax(a.x),
          ay(a.y),
          minX(std::min(a.x, b.x)),
          maxX(std::max(a.x, b.x)),
          minY(std::min(a.y, b.y)),
          maxY(std::max(a.y, b.y)) {}

    bool Misses(const Node& node, bool alongX) const {
        double reachX;
        double reachY;
        const double error = shape.error + node.error + 25.0 * precision;
        if (alongX == shape.alongX) {
            const double along = 8.0 * precision;
            const double across = 2.0 * error + 2.0 * along;
            reachX = alongX ? along : across;
            reachY = alongX ? across : along;
        } else {
            const double slopes = shape.slope * node.slope[shape.rising];
            if (slopes > slopeLimit) {
                return false;
            }
            reachX = reachY = 4.0 * error / (1.0 - slopes);
        }
        return node.minX > maxX + reachX || node.maxX < minX - reachX ||
               node.minY > maxY + reachY || node.maxY < minY - reachY ||
               IsBesideLine(node, reachX, reachY) || IsBesideSlab(node, reachX, reachY);
    }

    /// Whether the node's box is on one side of the segment's line.
    bool IsBesideLine(const Node& node, double reachX, double reachY) const {
        const double x = 0.5 * (node.minX + node.maxX) - ax;
        const double y = 0.5 * (node.minY + node.maxY) - ay;
        return std::abs(shape.dx * y - shape.dy * x) >
               std::abs(shape.dx) * (0.5 * (node.maxY - node.minY) + reachY) +
                   std::abs(shape.dy) * (0.5 * (node.maxX - node.minX) + reachX);
    }

    bool IsBesideSlab(const Node& node, double reachX, double reachY) const {
        const double reach = std::abs(node.normalX) * reachX + std::abs(node.normalY) * reachY;
        const double atA = ax * node.normalX + ay * node.normalY;
        const double atB = atA + shape.dx * node.normalX + shape.dy * node.normalY;
        return std::min(atA, atB) > node.slabHigh + reach ||
               std::max(atA, atB) < node.slabLow - reach;
    }

    Vector2 a, b;
    double precision;
    Shape shape;
    double ax, ay;
    double minX, maxX, minY, maxY;
};

LevelPolygonSideTree::LevelPolygonSideTree(std::span<const Vector2> outline) : points(outline) {
    VANTREL_ASSERT(points.size() >= 3);
    std::array<std::vector<std::uint32_t>, 2> byAxis;
    for (std::uint32_t side = 0; side < points.size(); ++side) {
        const Vector2 p = points[side];
        const double size = std::max(std::abs(p.x), std::abs(p.y));
        precision = std::max(precision, size * roundingUnit);
        byAxis[Shape(p, End(side)).alongX].push_back(side);
    }
    nodes.reserve(points.size());
    sides.reserve(points.size());
    for (const auto& members : byAxis) {
        if (!members.empty()) {
            const auto first = static_cast<std::uint32_t>(sides.size());
            sides.insert(sides.end(), members.begin(), members.end());
            roots.push_back(static_cast<std::uint32_t>(nodes.size()));
            Build(first, static_cast<std::uint32_t>(members.size()));
        }
    }
}

void LevelPolygonSideTree::Build(std::uint32_t first, std::uint32_t count) {
    const auto index = nodes.size();
    nodes.push_back(Bound(first, count));
    if (count > leafSize) {
        SplitAtMedian(first, count);
        const std::uint32_t half = count / 2;
        Build(first, half);
        nodes[index].right = static_cast<std::uint32_t>(nodes.size());
        Build(first + half, count - half);
    }
}

LevelPolygonSideTree::Node LevelPolygonSideTree::Bound(std::uint32_t first,
                                                       std::uint32_t count) const {
    Node node{};
    node.first = first;
    node.count = count;
    node.minX = node.minY = node.slabLow = infinity;
    node.maxX = node.maxY = node.slabHigh = -infinity;
    double meanX = 0.0;
    double meanY = 0.0;
    for (std::uint32_t i = first; i < first + count; ++i) {
        const Shape shape(Start(sides[i]), End(sides[i]));
        node.error = std::max(node.error, shape.error);
        node.slope[shape.rising] = std::max(node.slope[shape.rising], shape.slope);
        const double sign = (shape.alongX ? shape.dx : shape.dy) < 0.0 ? -1.0 : 1.0;
        meanX += sign * shape.dx;
        meanY += sign * shape.dy;
    }
    const double length = std::sqrt(meanX * meanX + meanY * meanY);
    node.normalX = -meanY / length;
    node.normalY = meanX / length;
    for (std::uint32_t i = first; i < first + count; ++i) {
        for (const Vector2 p : {Start(sides[i]), End(sides[i])}) {
            const double x = p.x;
            const double y = p.y;
            const double across = x * node.normalX + y * node.normalY;
            node.minX = std::min(node.minX, x);
            node.maxX = std::max(node.maxX, x);
            node.minY = std::min(node.minY, y);
            node.maxY = std::max(node.maxY, y);
            node.slabLow = std::min(node.slabLow, across);
            node.slabHigh = std::max(node.slabHigh, across);
        }
    }
    return node;
}

/// Orders the range so that its two halves lie apart along the axis of their wider spread.
void LevelPolygonSideTree::SplitAtMedian(std::uint32_t first, std::uint32_t count) {
    const auto begin = sides.begin() + first;
    const auto end = begin + count;
    Vector2 low = Middle(*begin);
    Vector2 high = low;
    for (auto side = begin; side != end; ++side) {
        const Vector2 m = Middle(*side);
        low = {std::min(low.x, m.x), std::min(low.y, m.y)};
        high = {std::max(high.x, m.x), std::max(high.y, m.y)};
    }
    const bool alongX = high.x - low.x >= high.y - low.y;
    std::nth_element(begin, begin + count / 2, end, [&](std::uint32_t a, std::uint32_t b) {
        return alongX ? Middle(a).x < Middle(b).x : Middle(a).y < Middle(b).y;
    });
}

bool LevelPolygonSideTree::Crosses(Vector2 a, Vector2 b, std::uint64_t& work) const {
    if (a == b) {
        return false;
    }
    const Query query(a, b, precision);
    return std::any_of(roots.begin(), roots.end(), [&](std::uint32_t root) {
        const std::uint32_t any = sides[nodes[root].first];
        const bool alongX = Shape(Start(any), End(any)).alongX;
        return FindsSide(
            root, [&](const Node& node) { return query.Misses(node, alongX); },
            [&](std::uint32_t side) { return SegmentsCross(a, b, Start(side), End(side)); }, work);
    });
}

bool LevelPolygonSideTree::HoldsPoint(const std::array<Vector2, 3>& triangle,
                                      std::uint64_t& work) const {
    const LevelPolygonTriangleReach reach(triangle);
    const auto misses = [&reach](const Node& node) { return reach.Misses(node); };
    // Each point is the start of a side.
    const auto isHeld = [&](std::uint32_t side) {
        const Vector2 point = Start(side);
        return std::find(triangle.begin(), triangle.end(), point) == triangle.end() &&
               PointInConvexPolygon(point.x, point.y, triangle);
    };
    return reach.HasInside() && std::any_of(roots.begin(), roots.end(), [&](std::uint32_t root) {
               return FindsSide(root, misses, isHeld, work);
           });
}

template <class Misses, class Test>
bool LevelPolygonSideTree::FindsSide(std::uint32_t root, const Misses& misses, const Test& passes,
                                     std::uint64_t& work) const {
    // Halving keeps the depth below 32.
    std::array<std::uint32_t, 64> stack;
    std::size_t depth = 0;
    stack[depth++] = root;
    while (depth > 0) {
        const std::uint32_t index = stack[--depth];
        const Node& node = nodes[index];
        ++work;
        if (misses(node)) {
            continue;
        }
        if (node.right != 0) {
            stack[depth++] = node.right;
            stack[depth++] = index + 1;
            continue;
        }
        work += node.count;
        const auto first = sides.begin() + node.first;
        if (std::any_of(first, first + node.count, passes)) {
            return true;
        }
    }
    return false;
}
