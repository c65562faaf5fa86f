#pragma once
// Small levels made in code.

#include <deque>
#include <initializer_list>

#include "level/LevelPolygon.h"

namespace TestLevel {

/// A solid polygon from its outline.
inline LevelPolygon Polygon(std::initializer_list<Vector2> points, float friction = 1.0f) {
    LevelPolygon polygon;
    for (const Vector2 point : points) {
        polygon.AddPoint(point.x, point.y);
    }
    polygon.SetFriction(friction);
    return polygon;
}

/// An axis-aligned solid box.
inline LevelPolygon Box(float left, float top, float right, float bottom, float friction = 1.0f) {
    return Polygon({{left, top}, {right, top}, {right, bottom}, {left, bottom}}, friction);
}

/// Floor and two walls round (0, 0) to (width, height), each `thickness` thick, open on top.
inline std::deque<LevelPolygon> Bowl(float width, float height, float thickness = 40.0f) {
    std::deque<LevelPolygon> polygons;
    polygons.push_back(Box(-thickness, 0.0f, 0.0f, height));
    polygons.push_back(Box(width, 0.0f, width + thickness, height));
    polygons.push_back(Box(-thickness, height, width + thickness, height + thickness));
    return polygons;
}

}  // namespace TestLevel
