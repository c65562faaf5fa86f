#pragma once
// Worlds of solid polygons in every degenerate arrangement that authors and tiles produce,
// made from a number so that a failure can be repeated.

#include <cmath>
#include <cstdint>
#include <deque>
#include <vector>

#include "level/LevelPolygon.h"

namespace BspWorlds {

/// A small generator with the same numbers on every platform.
class Dice {
public:
    explicit Dice(std::uint32_t seed) : state(seed * 2654435761u + 12345u) {}

    /// 0 to limit - 1.
    int Below(int limit) {
        state = state * 1664525u + 1013904223u;
        return static_cast<int>((state >> 8) % static_cast<std::uint32_t>(limit));
    }
    float Within(float low, float high) {
        return low + (high - low) * static_cast<float>(Below(1 << 20)) / float(1 << 20);
    }

private:
    std::uint32_t state;
};

/// A usable polygon from an outline that turns from +x towards +y (winding 1) or back (0).
inline LevelPolygon Outline(const std::vector<Vector2>& points, std::uint8_t winding = 1) {
    LevelPolygon polygon;
    for (const Vector2 point : points) {
        polygon.pointsX.push_back(point.x);
        polygon.pointsY.push_back(point.y);
    }
    polygon.winding = winding;
    polygon.triangleCount = static_cast<std::uint32_t>(points.size() - 2);
    return polygon;
}

inline LevelPolygon Rectangle(float left, float top, float right, float bottom) {
    return Outline({{left, top}, {right, top}, {right, bottom}, {left, bottom}});
}

/// A star-shaped outline round (x, y) with whole coordinates; concave where radii vary.
inline LevelPolygon Star(Dice& dice, float x, float y, float size, int corners) {
    std::vector<Vector2> points;
    for (int i = 0; i < corners; ++i) {
        const float angle = fullTurn * static_cast<float>(i) / static_cast<float>(corners);
        const float radius = dice.Within(0.4f * size, size);
        points.push_back(
            {std::round(x + radius * std::cos(angle)), std::round(y + radius * std::sin(angle))});
    }
    const bool reversed = dice.Below(2) == 0;
    if (reversed) {
        points = {points.rbegin(), points.rend()};
    }
    return Outline(points, reversed ? 0 : 1);
}

/// Tiles on a square grid, about two thirds of them filled.
inline std::deque<LevelPolygon> Tiles(std::uint32_t seed, int side) {
    Dice dice(seed);
    std::deque<LevelPolygon> polygons;
    for (int i = 0; i < side * side; ++i) {
        if (dice.Below(3) > 0) {
            const float x = 32.0f * static_cast<float>(i % side);
            const float y = 32.0f * static_cast<float>(i / side);
            const float width = dice.Below(4) == 0 ? 64.0f : 32.0f;
            polygons.push_back(Rectangle(x, y, x + width, y + 32.0f));
        }
    }
    return polygons;
}

/// Boxes that overlap, touch, repeat each other and share lines.
inline std::deque<LevelPolygon> Boxes(std::uint32_t seed, int count) {
    Dice dice(seed);
    std::deque<LevelPolygon> polygons;
    for (int i = 0; i < count; ++i) {
        const auto x = static_cast<float>(10 * dice.Below(30));
        const auto y = static_cast<float>(10 * dice.Below(30));
        const auto width = static_cast<float>(10 + 10 * dice.Below(8));
        const auto height = static_cast<float>(10 + 10 * dice.Below(8));
        polygons.push_back(Rectangle(x, y, x + width, y + height));
    }
    return polygons;
}

/// Stars strewn over a square, so that few touch: the like of a cave.
inline std::deque<LevelPolygon> Stars(std::uint32_t seed, int count, float size = 60.0f) {
    Dice dice(seed);
    std::deque<LevelPolygon> polygons;
    const float side = 1.5f * size * std::sqrt(static_cast<float>(count));
    for (int i = 0; i < count; ++i) {
        const float x = dice.Within(0.0f, side);
        const float y = dice.Within(0.0f, side);
        polygons.push_back(Star(dice, x, y, size, 3 + dice.Below(8)));
    }
    return polygons;
}

/// Boxes whose tops all lie on one line, nested and overlapping.
inline std::deque<LevelPolygon> Skyline(std::uint32_t seed, int count) {
    Dice dice(seed);
    std::deque<LevelPolygon> polygons;
    for (int i = 0; i < count; ++i) {
        const auto x = static_cast<float>(dice.Below(10 * count));
        const auto width = static_cast<float>(1 + dice.Below(2 * count));
        polygons.push_back(Rectangle(x, 0.0f, x + width, static_cast<float>(1 + dice.Below(50))));
    }
    return polygons;
}

/// One round polygon: nearly every edge has all others on its solid side, so that the tree is
/// about as deep as it has edges.
inline std::deque<LevelPolygon> Round(int corners, float radius) {
    std::vector<Vector2> points;
    for (int i = 0; i < corners; ++i) {
        const float angle = fullTurn * static_cast<float>(i) / static_cast<float>(corners);
        points.push_back({radius * std::cos(angle), radius * std::sin(angle)});
    }
    return {Outline(points)};
}

/// The same with all corners moved by up to two hundredths, about as far as the corners of
/// polygons that touch may be apart.
inline std::deque<LevelPolygon> Nudged(std::uint32_t seed, std::deque<LevelPolygon> polygons) {
    Dice dice(seed);
    for (LevelPolygon& polygon : polygons) {
        for (std::size_t i = 0; i < polygon.PointCount(); ++i) {
            polygon.pointsX[i] += dice.Within(-0.02f, 0.02f);
            polygon.pointsY[i] += dice.Within(-0.02f, 0.02f);
        }
    }
    return polygons;
}

/// Gives polygons the flags and surfaces that a level's triggers, movers and decoration do.
inline void MixFlags(std::uint32_t seed, std::deque<LevelPolygon>& polygons) {
    Dice dice(seed);
    for (LevelPolygon& polygon : polygons) {
        const int kind = dice.Below(12);
        polygon.solid = kind > 2 ? 1 : 0;
        polygon.visible = kind > 1 ? 1 : 0;
        polygon.movedByMover = kind == 3 ? 1 : 0;
        polygon.toggledByTrigger = kind == 4 ? 1 : 0;
        polygon.friction = 0.125f * static_cast<float>(dice.Below(9));
    }
}

}  // namespace BspWorlds
