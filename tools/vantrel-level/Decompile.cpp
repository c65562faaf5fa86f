#include "Decompile.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>
#include <string_view>

#include "Names.h"
#include "Outline.h"
#include "level/TriggerTypes.h"

namespace {

using Json = nlohmann::json;
using Point = LevelFile::Point;

/// The double with the shortest decimal form that narrows to this float: 0.1f gives 0.1.
double Plain(float value) {
    std::array<char, 64> text{};
    const auto written = std::to_chars(text.data(), text.data() + text.size(), value);
    double plain = 0.0;
    std::from_chars(text.data(), written.ptr, plain);
    const bool isSame = std::bit_cast<std::uint32_t>(static_cast<float>(plain)) ==
                        std::bit_cast<std::uint32_t>(value);
    return isSame ? plain : static_cast<double>(value);
}

/// A property list that leaves out what is at its default, as Tiled itself does.
class Properties {
public:
    void Id(const char* name, std::uint32_t value) {
        if (value > static_cast<std::uint32_t>(std::numeric_limits<std::int32_t>::max())) {
            Put(name, "string", std::to_string(value));  // beyond Tiled's whole numbers
        } else if (value != 0) {
            Put(name, "int", value);
        }
    }
    void Float(const char* name, float value, float standard) {
        if (std::bit_cast<std::uint32_t>(value) != std::bit_cast<std::uint32_t>(standard)) {
            Put(name, "float", Plain(value));
        }
    }
    void Byte(const char* name, std::uint8_t value) {
        if (value == 1) {
            Put(name, "bool", true);
        } else if (value > 1) {
            Put(name, "int", value);
        }
    }
    void FileName(const char* name, const std::string& value) {
        if (!value.empty()) {
            Put(name, "string", Names::ToText(value));
        }
    }
    /// A word of an enum, or the number itself where it has no word.
    void Word(const char* name, const char* type, std::span<const Names::Word> words,
              std::uint32_t value, std::uint32_t standard) {
        if (const auto word = Names::WordOf(words, value); !word) {
            Id(name, value);
        } else if (value != standard) {
            Enum(name, type, *word);
        }
    }
    void Enum(const char* name, const char* type, std::string_view word) {
        Put(name, "string", word);
        list.back()["propertytype"] = type;
    }
    template <typename Value>
    void Put(const char* name, const char* type, const Value& value) {
        list.push_back({{"name", name}, {"type", type}, {"value", value}});
    }

    Json list = Json::array();
};

/// The map that is being written: groups in drawing order, objects numbered as they come.
class Writer {
public:
    std::string Write(const LevelFile& level);

private:
    struct Layer {
        std::string name;
        Json objects = Json::array();
    };

    /// The objects of the group of that name, which is made at the first call.
    Json& Group(const std::string& name) {
        const auto found = std::ranges::find(layers, name, &Layer::name);
        return (found != layers.end() ? *found : layers.emplace_back(Layer{name})).objects;
    }
    Json Object(const char* kind, double x, double y) {
        return {{"height", 0},     {"id", nextId++}, {"name", ""}, {"rotation", 0}, {"type", kind},
                {"visible", true}, {"width", 0},     {"x", x},     {"y", y}};
    }
    Json PointObject(const char* kind, Point position) {
        Json object = Object(kind, position.x, position.y);
        object["point"] = true;
        return object;
    }
    Json ShapeObject(const char* kind, const char* shape, std::span<const Point> points);
    Json ArrowObject(const char* kind, Point position, Vector2 direction, Properties& properties);
    static void Finish(Json& group, Json object, Properties& properties) {
        if (!properties.list.empty()) {
            object["properties"] = std::move(properties.list);
        }
        group.push_back(std::move(object));
    }
    void WriteDrawn(const LevelFile& level);
    void WriteTriggers(const LevelFile& level);
    void WriteActors(const LevelFile& level);

    std::vector<Layer> layers;
    int nextId = 1;
};

Json Writer::ShapeObject(const char* kind, const char* shape, std::span<const Point> points) {
    const Point first = points.empty() ? Point{} : points.front();
    Json object = Object(kind, first.x, first.y);
    Json list = Json::array();
    for (const Point point : points) {
        list.push_back(
            {{"x", std::int64_t{point.x} - first.x}, {"y", std::int64_t{point.y} - first.y}});
    }
    object[shape] = std::move(list);
    return object;
}

/// A line for a direction that an author can see and drag, else a point with properties.
Json Writer::ArrowObject(const char* kind, Point position, Vector2 direction,
                         Properties& properties) {
    constexpr double visibleLength = 8.0;
    const auto x = static_cast<double>(direction.x);
    const auto y = static_cast<double>(direction.y);
    const double endX = position.x + x;
    const double endY = position.y + y;
    const auto isWhole = [](double value) {
        return value == std::floor(value) && !(value == 0.0 && std::signbit(value));
    };
    const auto isCoordinate = [](double value) {
        return value >= std::numeric_limits<std::int32_t>::min() &&
               value <= std::numeric_limits<std::int32_t>::max();
    };
    if (isWhole(x) && isWhole(y) && isCoordinate(endX) && isCoordinate(endY) &&
        std::hypot(x, y) >= visibleLength) {
        const Point end{static_cast<std::int32_t>(endX), static_cast<std::int32_t>(endY)};
        return ShapeObject(kind, "polyline", std::array{position, end});
    }
    properties.Float("directionX", direction.x, 0.0f);
    properties.Float("directionY", direction.y, 0.0f);
    return PointObject(kind, position);
}

/// Polygons and sprites go to groups by drawing layer where that keeps the order of the file,
/// else to one group with the layer as a property.
void Writer::WriteDrawn(const LevelFile& level) {
    const bool polygonsSorted =
        std::ranges::is_sorted(level.polygons, {}, &LevelFile::Polygon::layer);
    const bool objectsSorted = std::ranges::is_sorted(level.objects, {}, &LevelFile::Object::layer);
    const auto groupOf = [&](std::int32_t layer, bool isSorted, const char* mixed) -> Json& {
        return Group(isSorted ? "layer " + std::to_string(layer) : mixed);
    };
    const auto putLayer = [](Properties& properties, std::int32_t layer, bool isSorted) {
        if (!isSorted) {
            properties.Word("layer", "Layer", Names::layers, static_cast<std::uint32_t>(layer),
                            ~0u);
        }
    };
    for (int layer = 0; layer <= 4; ++layer) {
        const bool isUsed =
            (polygonsSorted &&
             std::ranges::count(level.polygons, layer, &LevelFile::Polygon::layer) > 0) ||
            (objectsSorted &&
             std::ranges::count(level.objects, layer, &LevelFile::Object::layer) > 0);
        if (isUsed) {
            Group("layer " + std::to_string(layer));
        }
    }
    for (const LevelFile::Polygon& polygon : level.polygons) {
        Properties properties;
        properties.Id("id", polygon.id);
        properties.FileName("texture", polygon.texture);
        properties.Word("surface", "Surface", Names::surfaces, polygon.surface, 3);
        properties.Word("flags", "Flags", Names::flags, polygon.flags, 0);
        putLayer(properties, polygon.layer, polygonsSorted);
        if (Outline::Tidy(polygon.points) != polygon.points) {
            properties.Put("exact", "bool", true);
        }
        Finish(groupOf(polygon.layer, polygonsSorted, "polygons"),
               ShapeObject("Polygon", "polygon", polygon.points), properties);
    }
    for (const LevelFile::Object& sprite : level.objects) {
        Properties properties;
        properties.Id("id", sprite.id);
        properties.FileName("texture", sprite.texture);
        properties.Byte("mirrored", sprite.mirrored);
        putLayer(properties, sprite.layer, objectsSorted);
        Finish(groupOf(sprite.layer, objectsSorted, "objects"),
               PointObject("Object", sprite.position), properties);
    }
}

bool IsRectangle(const LevelFile::Trigger& trigger) {
    const Point* c = trigger.corners;
    return c[0].x < c[2].x && c[0].y < c[2].y && c[1] == Point{c[2].x, c[0].y} &&
           c[3] == Point{c[0].x, c[2].y};
}

void Writer::WriteTriggers(const LevelFile& level) {
    for (const LevelFile::Trigger& trigger : level.triggers) {
        Properties properties;
        properties.Id("target", trigger.targetId);
        properties.Float("delay", trigger.delay, 0.0f);
        const auto number = static_cast<std::int32_t>(trigger.type);
        if (const TriggerType* type = TriggerTypes::Find(number); type == nullptr) {
            properties.Put("type", "int", number);
        } else if (type->kind != TriggerKind::Null) {
            properties.Enum("type", "TriggerType", type->name);
        }
        if (IsRectangle(trigger)) {
            const Point corner = trigger.corners[0];
            Json object = Object("Trigger", corner.x, corner.y);
            object["width"] = std::int64_t{trigger.corners[2].x} - corner.x;
            object["height"] = std::int64_t{trigger.corners[2].y} - corner.y;
            Finish(Group("triggers"), std::move(object), properties);
        } else {
            Finish(Group("triggers"), ShapeObject("Trigger", "polygon", trigger.corners),
                   properties);
        }
    }
}

void Writer::WriteActors(const LevelFile& level) {
    for (const LevelFile::Force& force : level.forces) {
        Properties properties;
        properties.Id("id", force.id);
        properties.Float("strength", force.strength, 10.0f);
        Json object = ArrowObject("Force", force.position, force.direction, properties);
        Finish(Group("actors"), std::move(object), properties);
    }
    for (const LevelFile::Mover& mover : level.movers) {
        Properties properties;
        properties.Id("id", mover.id);
        properties.Float("speed", mover.speed, 50.0f);
        Finish(Group("actors"),
               ShapeObject("Mover", "polyline", std::array{mover.start, mover.end}), properties);
    }
    for (const LevelFile::Sound& sound : level.sounds) {
        Properties properties;
        properties.Id("id", sound.id);
        properties.Byte("looping", sound.looping);
        properties.FileName("sound", sound.sound);
        Json object = PointObject("Sound", sound.position);
        if (const std::int64_t radius = sound.strength; radius > 0) {
            object = Object("Sound", static_cast<double>(sound.position.x - radius),
                            static_cast<double>(sound.position.y - radius));
            object["ellipse"] = true;
            object["width"] = object["height"] = 2 * radius;
        }
        Finish(Group("actors"), std::move(object), properties);
    }
    for (const LevelFile::Emitter& emitter : level.emitters) {
        Properties properties;
        properties.Id("id", emitter.id);
        properties.FileName("settings", emitter.settings);
        Json object = ArrowObject("Emitter", emitter.position, emitter.direction, properties);
        Finish(Group("actors"), std::move(object), properties);
    }
}

std::string Writer::Write(const LevelFile& level) {
    WriteDrawn(level);
    WriteTriggers(level);
    WriteActors(level);
    Group("start").push_back(PointObject("WaterStart", level.waterStart));
    Group("start").push_back(PointObject("CameraStart", level.cameraStart));
    Json list = Json::array();
    for (Layer& layer : layers) {
        list.push_back({{"draworder", "index"},
                        {"id", list.size() + 1},
                        {"name", layer.name},
                        {"objects", std::move(layer.objects)},
                        {"opacity", 1},
                        {"type", "objectgroup"},
                        {"visible", true},
                        {"x", 0},
                        {"y", 0}});
    }
    const std::size_t nextLayer = list.size() + 1;
    const Json map = {{"compressionlevel", -1},
                      {"height", 30},
                      {"infinite", true},
                      {"layers", std::move(list)},
                      {"nextlayerid", nextLayer},
                      {"nextobjectid", nextId},
                      {"orientation", "orthogonal"},
                      {"renderorder", "right-down"},
                      {"tiledversion", "1.10.2"},
                      {"tileheight", 20},
                      {"tilesets", Json::array()},
                      {"tilewidth", 20},
                      {"type", "map"},
                      {"version", "1.10"},
                      {"width", 40}};
    return map.dump(1) + "\n";
}

}  // namespace

std::string Decompile(const LevelFile& level) {
    return Writer().Write(level);
}
