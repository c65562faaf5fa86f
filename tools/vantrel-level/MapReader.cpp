#include "MapReader.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <nlohmann/json.hpp>

namespace {

using Json = nlohmann::json;

constexpr int deepestGroup = 64;

/// What the layers round an object add to it.
struct Surroundings {
    double offsetX = 0.0;
    double offsetY = 0.0;
    std::optional<std::int64_t> drawingLayer;
    int depth = 0;
};

const Json* Member(const Json& owner, const char* name) {
    const auto found = owner.is_object() ? owner.find(name) : owner.end();
    return found == owner.end() ? nullptr : &*found;
}

double Number(const Json& owner, const char* name) {
    const Json* member = Member(owner, name);
    return member != nullptr && member->is_number() ? member->get<double>() : 0.0;
}

std::string Text(const Json& owner, const char* name) {
    const Json* member = Member(owner, name);
    return member != nullptr && member->is_string() ? member->get<std::string>() : std::string();
}

bool IsSet(const Json& owner, const char* name) {
    const Json* member = Member(owner, name);
    return member != nullptr && member->is_boolean() && member->get<bool>();
}

/// The 2 of "layer 2" or "Layer 2 walls".
std::optional<std::int64_t> DrawingLayerOf(const std::string& name) {
    constexpr std::string_view prefix = "layer ";
    if (name.size() <= prefix.size() ||
        !std::equal(prefix.begin(), prefix.end(), name.begin(),
                    [](char a, char b) { return a == (b >= 'A' && b <= 'Z' ? b + 32 : b); })) {
        return std::nullopt;
    }
    std::int64_t number = 0;
    const auto [end, error] =
        std::from_chars(name.data() + prefix.size(), name.data() + name.size(), number);
    const bool isWord = end != name.data() + name.size() && *end != ' ';
    return error == std::errc() && !isWord ? std::optional(number) : std::nullopt;
}

class Reader {
public:
    explicit Reader(std::string& failureText) : failure(failureText) {}

    bool ReadLayers(const Json& owner, const Surroundings& surroundings);

    std::vector<MapObject> objects;

private:
    bool ReadLayer(const Json& layer, Surroundings surroundings);
    bool ReadObject(const Json& json, const Surroundings& surroundings);
    bool ReadShape(const Json& json, MapObject& object);
    bool ReadPoints(const Json& json, MapObject& object);
    bool ReadProperties(const Json& json, MapObject& object);
    bool Fail(const std::string& text) {
        failure = text;
        return false;
    }

    std::string& failure;
};

bool Reader::ReadLayers(const Json& owner, const Surroundings& surroundings) {
    const Json* layers = Member(owner, "layers");
    if (layers == nullptr || !layers->is_array()) {
        return Fail("not a Tiled map: it has no layers");
    }
    if (surroundings.depth > deepestGroup) {
        return Fail("group layers are nested too deeply");
    }
    return std::all_of(layers->begin(), layers->end(),
                       [&](const Json& layer) { return ReadLayer(layer, surroundings); });
}

/// Whether any cell holds a tile. Packed data can't be told from empty data.
bool HoldsTiles(const Json& layer) {
    const auto isFilled = [](const Json& data) {
        return data.is_string() || std::any_of(data.begin(), data.end(), [](const Json& tile) {
                   return !tile.is_number() || tile.get<double>() != 0.0;
               });
    };
    const Json* data = Member(layer, "data");
    if (data != nullptr && isFilled(*data)) {
        return true;
    }
    const Json* chunks = Member(layer, "chunks");
    return chunks != nullptr && chunks->is_array() &&
           std::any_of(chunks->begin(), chunks->end(), [&](const Json& chunk) {
               const Json* part = Member(chunk, "data");
               return part != nullptr && isFilled(*part);
           });
}

bool Reader::ReadLayer(const Json& layer, Surroundings surroundings) {
    const std::string type = Text(layer, "type");
    const std::string name = Text(layer, "name");
    surroundings.offsetX += Number(layer, "offsetx");
    surroundings.offsetY += Number(layer, "offsety");
    ++surroundings.depth;
    if (const auto number = DrawingLayerOf(name)) {
        surroundings.drawingLayer = number;
    }
    if (type == "group") {
        return ReadLayers(layer, surroundings);
    }
    if (type == "objectgroup") {
        const Json* list = Member(layer, "objects");
        if (list == nullptr || !list->is_array()) {
            return Fail("layer \"" + name + "\" has no list of objects");
        }
        return std::all_of(list->begin(), list->end(),
                           [&](const Json& object) { return ReadObject(object, surroundings); });
    }
    if (type == "tilelayer" && HoldsTiles(layer)) {
        return Fail("layer \"" + name + "\" holds tiles; a level is made of objects only");
    }
    return true;
}

bool Reader::ReadObject(const Json& json, const Surroundings& surroundings) {
    if (Member(json, "text") != nullptr) {
        return true;
    }
    MapObject object;
    object.id = static_cast<std::int64_t>(Number(json, "id"));
    object.name = Text(json, "name");
    object.kind = Text(json, "type");
    if (object.kind.empty()) {
        object.kind = Text(json, "class");  // the name of this field in Tiled 1.9
    }
    object.drawingLayer = surroundings.drawingLayer;
    if (Member(json, "template") != nullptr) {
        return Fail(object.Label() + ": templates aren't supported; detach it from its template");
    }
    if (Member(json, "gid") != nullptr) {
        return Fail(object.Label() + ": is a tile; a level is made of shapes and points");
    }
    if (!ReadShape(json, object) || !ReadProperties(json, object)) {
        return false;
    }

    // Shapes stand turned clockwise round the object's position. Quarter turns are exact.
    const double degrees = Number(json, "rotation");
    const double quarters = degrees / 90.0;
    const bool isExact = quarters == std::floor(quarters);
    const double cosine =
        isExact ? std::round(std::cos(degrees * M_PI / 180.0)) : std::cos(degrees * M_PI / 180.0);
    const double sine =
        isExact ? std::round(std::sin(degrees * M_PI / 180.0)) : std::sin(degrees * M_PI / 180.0);
    const double originX = Number(json, "x") + surroundings.offsetX;
    const double originY = Number(json, "y") + surroundings.offsetY;
    for (MapPoint& point : object.points) {
        point = {originX + (point.x * cosine - point.y * sine),
                 originY + (point.x * sine + point.y * cosine)};
    }
    objects.push_back(std::move(object));
    return true;
}

bool Reader::ReadPoints(const Json& json, MapObject& object) {
    for (const Json& point : json) {
        const Json* x = Member(point, "x");
        const Json* y = Member(point, "y");
        if (x == nullptr || y == nullptr || !x->is_number() || !y->is_number()) {
            return Fail(object.Label() + ": has a point without x and y");
        }
        object.points.push_back({x->get<double>(), y->get<double>()});
    }
    return true;
}

bool Reader::ReadShape(const Json& json, MapObject& object) {
    const double width = Number(json, "width");
    const double height = Number(json, "height");
    if (const Json* polygon = Member(json, "polygon"); polygon != nullptr) {
        object.shape = MapObject::Shape::Polygon;
        return ReadPoints(*polygon, object);
    }
    if (const Json* polyline = Member(json, "polyline"); polyline != nullptr) {
        object.shape = MapObject::Shape::Polyline;
        return ReadPoints(*polyline, object);
    }
    if (IsSet(json, "point")) {
        object.points = {{0.0, 0.0}};
    } else if (IsSet(json, "ellipse")) {
        object.shape = MapObject::Shape::Ellipse;
        object.points = {{width / 2.0, height / 2.0}};
        object.width = width;
        object.height = height;
    } else if (IsSet(json, "capsule")) {
        return Fail(object.Label() + ": capsules aren't supported");
    } else {
        object.shape = MapObject::Shape::Rectangle;
        object.points = {{0.0, 0.0}, {width, 0.0}, {width, height}, {0.0, height}};
    }
    return true;
}

bool Reader::ReadProperties(const Json& json, MapObject& object) {
    const Json* list = Member(json, "properties");
    if (list == nullptr) {
        return true;
    }
    for (const Json& entry : *list) {
        const std::string name = Text(entry, "name");
        const Json* value = Member(entry, "value");
        MapProperty property;
        if (value != nullptr && value->is_boolean()) {
            property = value->get<bool>();
        } else if (value != nullptr && value->is_number_integer() &&
                   std::abs(value->get<double>()) < 9e15) {
            property = value->get<std::int64_t>();
        } else if (value != nullptr && value->is_number()) {
            property = value->get<double>();
        } else if (value != nullptr && value->is_string()) {
            property = value->get<std::string>();
        } else {
            return Fail(object.Label() + ": property \"" + name + "\" has no plain value");
        }
        object.properties[name] = std::move(property);
    }
    return true;
}

}  // namespace

std::string MapObject::Label() const {
    std::string label = "object " + std::to_string(id) + (name.empty() ? "" : " \"" + name + "\"");
    std::ranges::replace_if(
        label, [](char c) { return static_cast<unsigned char>(c) < 0x20; }, ' ');
    return label;
}

std::optional<std::vector<MapObject>> ReadMap(std::span<const std::byte> bytes,
                                              std::string& failure) {
    const auto* first = reinterpret_cast<const char*>(bytes.data());
    const Json map = Json::parse(first, first + bytes.size(), nullptr, false);
    if (map.is_discarded() || !map.is_object()) {
        failure = "not a map in JSON; save it from Tiled as .tmj";
        return std::nullopt;
    }
    const std::string orientation = Text(map, "orientation");
    if (!orientation.empty() && orientation != "orthogonal") {
        failure = "the map is " + orientation + "; it must be orthogonal";
        return std::nullopt;
    }
    Reader reader(failure);
    if (!reader.ReadLayers(map, {})) {
        return std::nullopt;
    }
    return std::move(reader.objects);
}
