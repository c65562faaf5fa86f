// `PointInConvexPolygon` works in single precision. With e the rounding unit, each of its
// three products errs by at most 3.1 e |edge| |distance from its start|. For a triangle of
// area A and longest side L that moves its corners outwards by less than 2 k L with
// k = 3.1 e L^2 / A, as long as k is below 1/2; a thinner one can reach anywhere along its
// sides. Nodes beyond these bounds are left out, so that the answer is that of the plain walk.

#include "level/LevelPolygonPointTree.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "engine/Geometry.h"
#include "platform/Assert.h"

namespace {

/// Error of a cross product, by the lengths of its two vectors; a little above the bound.
constexpr double productError = 3.2 / (1 << 24);
constexpr std::uint32_t leafSize = 8;
constexpr double infinity = std::numeric_limits<double>::infinity();

struct Wide {
    explicit Wide(Vector2 v) : x(static_cast<double>(v.x)), y(static_cast<double>(v.y)) {}
    Wide(Vector2 from, Vector2 to) : Wide(to) {
        x -= static_cast<double>(from.x);
        y -= static_cast<double>(from.y);
    }
    double x, y;
};

bool HoldsOtherPoint(const std::array<Vector2, 3>& triangle, Vector2 point) {
    return point != triangle[0] && point != triangle[1] && point != triangle[2] &&
           PointInConvexPolygon(point.x, point.y, triangle);
}

}  // namespace

struct LevelPolygonPointTree::Query {
    explicit Query(const std::array<Vector2, 3>& triangle)
        : corners{Wide(triangle[0]), Wide(triangle[1]), Wide(triangle[2])},
          edges{Wide(triangle[0], triangle[1]), Wide(triangle[1], triangle[2]),
                Wide(triangle[2], triangle[0])} {
        double longest = 0.0;  // squared
        for (const Wide edge : edges) {
            longest = std::max(longest, edge.x * edge.x + edge.y * edge.y);
        }
        const double area = 0.5 * (edges[1].x * edges[2].y - edges[1].y * edges[2].x);
        const double k = productError * longest / std::abs(area);
        const bool isThin = !(k < 0.5);
        hasInside = isThin || area > 0.0;
        const double reach = isThin ? infinity : 2.0 * k * std::sqrt(longest);
        const auto [lowX, highX] = std::minmax({corners[0].x, corners[1].x, corners[2].x});
        const auto [lowY, highY] = std::minmax({corners[0].y, corners[1].y, corners[2].y});
        minX = lowX - reach;
        maxX = highX + reach;
        minY = lowY - reach;
        maxY = highY + reach;
    }

    bool Misses(const Node& node) const {
        if (node.minX > maxX || node.maxX < minX || node.minY > maxY || node.maxY < minY) {
            return true;
        }
        const double width = 0.5 * (node.maxX - node.minX);
        const double height = 0.5 * (node.maxY - node.minY);
        for (std::size_t i = 0; i < 3; ++i) {
            const double x = node.minX + width - corners[i].x;
            const double y = node.minY + height - corners[i].y;
            const double edgeX = std::abs(edges[i].x);
            const double edgeY = std::abs(edges[i].y);
            const double farthest = std::abs(x) + width + std::abs(y) + height;
            const double radius =
                edgeX * height + edgeY * width + productError * (edgeX + edgeY) * farthest;
            if (edges[i].x * y - edges[i].y * x + radius < 0.0) {
                return true;
            }
        }
        return false;
    }

    std::array<Wide, 3> corners;
    std::array<Wide, 3> edges;
    bool hasInside;  ///< false for a triangle that turns the other way round
    double minX, maxX, minY, maxY;
};

LevelPolygonPointTree::LevelPolygonPointTree(std::span<const Vector2> points)
    : ordered(points.begin(), points.end()) {
    VANTREL_ASSERT(!ordered.empty());
    nodes.reserve(ordered.size());
    Build(0, static_cast<std::uint32_t>(ordered.size()));
}

void LevelPolygonPointTree::Build(std::uint32_t first, std::uint32_t count) {
    const auto index = nodes.size();
    Node node{infinity, -infinity, infinity, -infinity, first, count, 0};
    const auto begin = ordered.begin() + first;
    const auto end = begin + count;
    std::for_each(begin, end, [&](Vector2 p) {
        const Wide at(p);
        node.minX = std::min(node.minX, at.x);
        node.maxX = std::max(node.maxX, at.x);
        node.minY = std::min(node.minY, at.y);
        node.maxY = std::max(node.maxY, at.y);
    });
    nodes.push_back(node);
    if (count <= leafSize) {
        return;
    }
    const std::uint32_t half = count / 2;
    const bool alongX = node.maxX - node.minX >= node.maxY - node.minY;
    std::nth_element(begin, begin + half, end,
                     [&](Vector2 a, Vector2 b) { return alongX ? a.x < b.x : a.y < b.y; });
    Build(first, half);
    nodes[index].right = static_cast<std::uint32_t>(nodes.size());
    Build(first + half, count - half);
}

bool LevelPolygonPointTree::Holds(const std::array<Vector2, 3>& triangle,
                                  std::uint64_t& work) const {
    const Query query(triangle);
    if (!query.hasInside) {
        return false;
    }
    // Halving keeps the depth below 32.
    std::array<std::uint32_t, 64> stack;
    std::size_t depth = 0;
    stack[depth++] = 0;
    while (depth > 0) {
        const std::uint32_t index = stack[--depth];
        const Node& node = nodes[index];
        ++work;
        if (query.Misses(node)) {
            continue;
        }
        if (node.right != 0) {
            stack[depth++] = node.right;
            stack[depth++] = index + 1;
            continue;
        }
        work += node.count;
        for (std::uint32_t i = node.first; i < node.first + node.count; ++i) {
            if (HoldsOtherPoint(triangle, ordered[i])) {
                return true;
            }
        }
    }
    return false;
}
