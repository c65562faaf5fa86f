#pragma once
// A Tiled map in JSON as a flat list of its objects in map order, with rotation and layer
// offsets worked in. What the objects mean is the compiler's business (Compile.h).

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <variant>
#include <vector>

struct MapPoint {
    double x = 0.0;
    double y = 0.0;
};

using MapProperty = std::variant<bool, std::int64_t, double, std::string>;

struct MapObject {
    enum class Shape { Point, Rectangle, Ellipse, Polygon, Polyline };

    std::int64_t id = 0;  ///< Tiled's own number, for messages
    std::string name;     ///< the author's name for it, for messages
    std::string kind;     ///< the class of the object; may be empty
    Shape shape = Shape::Point;
    /// World positions: one of a point, the four corners of a rectangle, the centre of an
    /// ellipse, the points of the other shapes.
    std::vector<MapPoint> points;
    double width = 0.0;  ///< of an ellipse
    double height = 0.0;
    /// The number of the nearest enclosing layer that is named like "layer 2".
    std::optional<std::int64_t> drawingLayer;
    std::map<std::string, MapProperty> properties;

    /// 'object 12 "gate"', on one line.
    std::string Label() const;
};

/// All objects but texts, which are notes of the author. Empty layers of tiles and images are
/// passed over. None with `failure` set if the file is no such map.
std::optional<std::vector<MapObject>> ReadMap(std::span<const std::byte> bytes,
                                              std::string& failure);
