#pragma once
// Where a triangle can hold points.
//
// `PointInConvexPolygon` works in single precision. With e the rounding unit, each of its
// three products errs by at most 3.1 e |edge| |distance from its start|. For a triangle of
// area A and longest side L that moves its corners outwards by less than 2 k L with
// k = 3.1 e L^2 / A, as long as k is below 1/2; a thinner one can reach anywhere along its
// sides. What lies beyond these bounds is left out, so that the answer is that of a plain walk.

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>

#include "engine/Vector2.h"

class LevelPolygonTriangleReach {
public:
    explicit LevelPolygonTriangleReach(const std::array<Vector2, 3>& triangle)
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
        const double reach =
            isThin ? std::numeric_limits<double>::infinity() : 2.0 * k * std::sqrt(longest);
        const auto [lowX, highX] = std::minmax({corners[0].x, corners[1].x, corners[2].x});
        const auto [lowY, highY] = std::minmax({corners[0].y, corners[1].y, corners[2].y});
        minX = lowX - reach;
        maxX = highX + reach;
        minY = lowY - reach;
        maxY = highY + reach;
    }

    /// False for a triangle that turns the other way round: it holds nothing.
    bool HasInside() const { return hasInside; }

    /// Whether nothing in the box can be held. The box has `minX`, `maxX`, `minY` and `maxY`.
    template <class Box>
    bool Misses(const Box& box) const {
        if (box.minX > maxX || box.maxX < minX || box.minY > maxY || box.maxY < minY) {
            return true;
        }
        const double width = 0.5 * (box.maxX - box.minX);
        const double height = 0.5 * (box.maxY - box.minY);
        for (std::size_t i = 0; i < 3; ++i) {
            const double x = box.minX + width - corners[i].x;
            const double y = box.minY + height - corners[i].y;
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

private:
    struct Wide {
        explicit Wide(Vector2 v) : x(static_cast<double>(v.x)), y(static_cast<double>(v.y)) {}
        Wide(Vector2 from, Vector2 to) : Wide(to) {
            x -= static_cast<double>(from.x);
            y -= static_cast<double>(from.y);
        }
        double x, y;
    };

    /// Error of a cross product, by the lengths of its two vectors; a little above the bound.
    static constexpr double productError = 3.2 / (1 << 24);

    std::array<Wide, 3> corners;
    std::array<Wide, 3> edges;
    bool hasInside;
    double minX, maxX, minY, maxY;
};
