#pragma once
// Takes the properties and points of one map object, with their ranges checked. The first
// thing that is wrong becomes the failure text; what is read after that doesn't matter.

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "MapReader.h"
#include "Names.h"
#include "engine/Vector2.h"
#include "level/LevelFile.h"

class ObjectReader {
public:
    ObjectReader(const MapObject& mapObject, std::string& failureText)
        : object(mapObject), unread(mapObject.properties), failure(failureText) {}

    /// An id: 0 to 4294967295.
    std::uint32_t Id(const char* name);
    std::int64_t Integer(const char* name, std::int64_t low, std::int64_t high,
                         std::int64_t standard);
    float Float(const char* name, float standard);
    /// False and true, or a number up to 255.
    std::uint8_t Byte(const char* name);
    bool Flag(const char* name);
    /// A file name in bytes, of at most `limit` of them.
    std::string FileName(const char* name, std::size_t limit);
    /// One of the words, or a number from low to high in place of it.
    std::int64_t Word(const char* name, std::span<const Names::Word> words, std::int64_t low,
                      std::int64_t high, std::int64_t standard);
    std::uint32_t TriggerType();
    /// The property "layer", or else the number of the map layer round it.
    std::int32_t Layer();

    /// All points, rounded to whole units.
    std::vector<LevelFile::Point> Points();
    /// The single point of a point object.
    LevelFile::Point Position();
    /// Position and direction: two points of a line, or a point and two properties.
    void Arrow(LevelFile::Point& position, Vector2& direction);

    void Fail(const std::string& text);
    /// Complains about properties that nothing read; true if all went well.
    bool Finish();

private:
    /// The property, struck off the list of unread ones, or null.
    const MapProperty* Take(const char* name);
    LevelFile::Point Rounded(MapPoint point);

    const MapObject& object;
    std::map<std::string, MapProperty> unread;
    std::string& failure;
};
