#include "ObjectReader.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

#include "level/TriggerTypes.h"

namespace {

/// Whole numbers also in float or text form: Tiled's own whole numbers end at 2147483647.
std::optional<std::int64_t> AsInteger(const MapProperty& property) {
    if (const auto* integer = std::get_if<std::int64_t>(&property)) {
        return *integer;
    }
    if (const auto* number = std::get_if<double>(&property)) {
        const bool isWhole = std::abs(*number) < 9e15 && *number == std::floor(*number);
        return isWhole ? std::optional(static_cast<std::int64_t>(*number)) : std::nullopt;
    }
    if (const auto* text = std::get_if<std::string>(&property)) {
        std::int64_t value = 0;
        const char* end = text->data() + text->size();
        const auto result = std::from_chars(text->data(), end, value);
        const bool isWhole = result.ec == std::errc() && result.ptr == end;
        return isWhole ? std::optional(value) : std::nullopt;
    }
    return std::nullopt;
}

std::string Quoted(const char* name) {
    return "property \"" + std::string(name) + "\" ";
}

std::string Range(std::int64_t low, std::int64_t high) {
    return std::to_string(low) + " to " + std::to_string(high);
}

}  // namespace

void ObjectReader::Fail(const std::string& text) {
    if (failure.empty()) {
        failure = object.Label() + ": " + text;
    }
}

const MapProperty* ObjectReader::Take(const char* name) {
    unread.erase(name);
    const auto found = object.properties.find(name);
    return found == object.properties.end() ? nullptr : &found->second;
}

bool ObjectReader::Finish() {
    if (!unread.empty()) {
        Fail("a " + object.kind + " has no property \"" + unread.begin()->first + "\"");
    }
    return failure.empty();
}

std::uint32_t ObjectReader::Id(const char* name) {
    return static_cast<std::uint32_t>(
        Integer(name, 0, std::numeric_limits<std::uint32_t>::max(), 0));
}

std::int64_t ObjectReader::Integer(const char* name, std::int64_t low, std::int64_t high,
                                   std::int64_t standard) {
    const MapProperty* property = Take(name);
    if (property == nullptr) {
        return standard;
    }
    const auto value = AsInteger(*property);
    if (!value || *value < low || *value > high) {
        Fail(Quoted(name) + "must be a whole number from " + Range(low, high));
        return standard;
    }
    return *value;
}

float ObjectReader::Float(const char* name, float standard) {
    const MapProperty* property = Take(name);
    if (property == nullptr) {
        return standard;
    }
    double value = 0.0;
    if (const auto* integer = std::get_if<std::int64_t>(property)) {
        value = static_cast<double>(*integer);
    } else if (const auto* number = std::get_if<double>(property)) {
        value = *number;
    } else {
        Fail(Quoted(name) + "must be a number");
        return standard;
    }
    if (!(std::abs(value) <= static_cast<double>(std::numeric_limits<float>::max()))) {
        Fail(Quoted(name) + "is too large");
        return standard;
    }
    return static_cast<float>(value);
}

std::uint8_t ObjectReader::Byte(const char* name) {
    const auto found = object.properties.find(name);
    if (found != object.properties.end() && std::holds_alternative<bool>(found->second)) {
        return Flag(name) ? 1 : 0;
    }
    return static_cast<std::uint8_t>(Integer(name, 0, 255, 0));
}

bool ObjectReader::Flag(const char* name) {
    const MapProperty* property = Take(name);
    if (property == nullptr) {
        return false;
    }
    const auto* flag = std::get_if<bool>(property);
    if (flag == nullptr) {
        Fail(Quoted(name) + "must be true or false");
    }
    return flag != nullptr && *flag;
}

std::string ObjectReader::FileName(const char* name, std::size_t limit) {
    const MapProperty* property = Take(name);
    if (property == nullptr) {
        return {};
    }
    const auto* text = std::get_if<std::string>(property);
    if (text == nullptr) {
        Fail(Quoted(name) + "must be a file name");
        return {};
    }
    const auto bytes = Names::ToBytes(*text);
    if (!bytes) {
        Fail(Quoted(name) +
             R"(has a "%" without two hexadecimal digits behind it; write "%25" for a "%")");
        return {};
    }
    if (bytes->size() > limit) {
        Fail(Quoted(name) + "is longer than " + std::to_string(limit) + " bytes");
        return {};
    }
    return *bytes;
}

std::int64_t ObjectReader::Word(const char* name, std::span<const Names::Word> words,
                                std::int64_t low, std::int64_t high, std::int64_t standard) {
    const auto found = object.properties.find(name);
    const auto* text =
        found == object.properties.end() ? nullptr : std::get_if<std::string>(&found->second);
    if (text == nullptr) {
        return Integer(name, low, high, standard);
    }
    if (const auto number = Names::NumberOf(words, *text)) {
        Take(name);
        return *number;
    }
    if (AsInteger(found->second)) {
        return Integer(name, low, high, standard);
    }
    Take(name);
    Fail(Quoted(name) + "is \"" + Names::ToText(*text) + "\", which is none of " +
         Names::List(words));
    return standard;
}

std::uint32_t ObjectReader::TriggerType() {
    const auto found = object.properties.find("type");
    const auto* text =
        found == object.properties.end() ? nullptr : std::get_if<std::string>(&found->second);
    if (text == nullptr) {
        // Types are signed, but any 32 bits may stand in a level file.
        return static_cast<std::uint32_t>(Integer("type", std::numeric_limits<std::int32_t>::min(),
                                                  std::numeric_limits<std::uint32_t>::max(), -1));
    }
    Take("type");
    const auto* const type = TriggerTypes::Find(*text);
    if (type == nullptr) {
        Fail("there is no trigger type \"" + Names::ToText(*text) + "\"");
        return 0;
    }
    return static_cast<std::uint32_t>(type->Number());
}

std::int32_t ObjectReader::Layer() {
    const auto found = object.properties.find("layer");
    const bool isNamed =
        found != object.properties.end() && found->second != MapProperty(std::string("by group"));
    if (isNamed) {
        return static_cast<std::int32_t>(Word("layer", Names::layers, 0, 4, 0));
    }
    Take("layer");
    const std::int64_t layer = object.drawingLayer.value_or(1);
    if (layer < 0 || layer > 4) {
        Fail("drawing layer " + std::to_string(layer) + " is outside 0 to 4");
    }
    return static_cast<std::int32_t>(layer);
}

LevelFile::Point ObjectReader::Rounded(MapPoint point) {
    const double x = std::round(point.x);
    const double y = std::round(point.y);
    constexpr double low = std::numeric_limits<std::int32_t>::min();
    constexpr double high = std::numeric_limits<std::int32_t>::max();
    if (!(x >= low && x <= high && y >= low && y <= high)) {
        Fail("a coordinate is too large");
        return {};
    }
    return {static_cast<std::int32_t>(x), static_cast<std::int32_t>(y)};
}

std::vector<LevelFile::Point> ObjectReader::Points() {
    std::vector<LevelFile::Point> points;
    points.reserve(object.points.size());
    for (const MapPoint point : object.points) {
        points.push_back(Rounded(point));
    }
    return points;
}

LevelFile::Point ObjectReader::Position() {
    if (object.shape != MapObject::Shape::Point) {
        Fail("a " + object.kind + " must be a point");
        return {};
    }
    return Rounded(object.points.front());
}

void ObjectReader::Arrow(LevelFile::Point& position, Vector2& direction) {
    if (object.shape == MapObject::Shape::Polyline) {
        if (object.points.size() != 2) {
            Fail("a " + object.kind + " that is drawn as a line must have two points");
            return;
        }
        const auto points = Points();
        position = points[0];
        direction = {static_cast<float>(std::int64_t{points[1].x} - points[0].x),
                     static_cast<float>(std::int64_t{points[1].y} - points[0].y)};
        return;
    }
    position = Position();
    direction = {Float("directionX", 0.0f), Float("directionY", 0.0f)};
}
