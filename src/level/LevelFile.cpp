// Reading and writing of level files. All numbers are little-endian; names are counted, and
// the sections follow each other without marks or padding.

#include "level/LevelFile.h"

#include <algorithm>
#include <cmath>

#include "engine/ByteReader.h"
#include "engine/ByteWriter.h"

namespace {

constexpr const char* shortRead = "Unable to read file";
constexpr std::size_t moverSize = 24;
constexpr std::size_t triggerSize = 44;
/// The fewest bytes that a record of variable length can have: its name empty, no points.
constexpr std::size_t smallestPolygon = 24;
constexpr std::size_t smallestObject = 21;
constexpr std::size_t smallestForce = 24;
constexpr std::size_t smallestSound = 21;
constexpr std::size_t smallestEmitter = 24;

/// Reads one file from front to back. Every operation is false from the first failure on,
/// and `reason` holds that failure's text.
class Parser {
public:
    Parser(std::span<const std::byte> bytes, LevelFile& file, LevelFile::Progress onProgress)
        : reader(bytes), level(file), progress(onProgress) {}

    bool Header(std::uint32_t& foundVersion) {
        const std::uint32_t magic = reader.U32();
        const std::uint32_t version = reader.U32();
        if (!Require(magic == LevelFile::magic, "Not a Vantrel level file.")) {
            return false;
        }
        foundVersion = version;
        return Require(version == LevelFile::version, LevelFile::wrongVersionReason);
    }

    bool Sections() {
        // A negative polygon count is above the limit when read without a sign.
        return Records(level.polygons, smallestPolygon, "Too many polygons in level.",
                       &Parser::Polygon) &&
               Records(level.objects, smallestObject, "Too many objects in level",
                       &Parser::Object) &&
               Records(level.forces, smallestForce, "Too many forces in level.", &Parser::Force) &&
               Block(level.movers, moverSize, "Too many movers in level.", &Parser::Mover) &&
               Block(level.triggers, triggerSize, "Too many triggers in level.",
                     &Parser::Trigger) &&
               Records(level.sounds, smallestSound, "Too many sounds in level.", &Parser::Sound) &&
               Records(level.emitters, smallestEmitter, "Too many emitters in level.",
                       &Parser::Emitter) &&
               StartData();
    }

    const char* reason = "";

private:
    /// Fails unless everything so far was read and `condition` holds.
    bool Require(bool condition, const char* text = shortRead) {
        if (reader.HasFailed()) {
            reason = shortRead;
            return false;
        }
        if (!condition) {
            reason = text;
        }
        return condition;
    }

    /// A section of records that are checked one after the other. No more room is taken than
    /// the rest of the file could fill, whatever the count claims.
    template <typename Record>
    bool Records(std::vector<Record>& records, std::size_t smallest, const char* tooMany,
                 bool (Parser::*read)(Record&)) {
        const std::uint32_t count = reader.U32();
        if (!Require(count <= LevelFile::countLimit, tooMany)) {
            return false;
        }
        records.reserve(std::min<std::size_t>(count, reader.Remaining() / smallest));
        for (std::uint32_t i = 0; i < count; ++i) {
            Record record;
            if (!(this->*read)(record)) {
                return false;
            }
            records.push_back(std::move(record));
        }
        return true;
    }

    /// A section of records of one size, which must be there as a whole.
    template <typename Record>
    bool Block(std::vector<Record>& records, std::size_t size, const char* tooMany,
               bool (Parser::*read)(Record&)) {
        const std::uint32_t count = reader.U32();
        if (!Require(count <= LevelFile::countLimit, tooMany) ||
            !Require(reader.Remaining() / size >= count)) {
            return false;
        }
        records.resize(count);
        return std::all_of(records.begin(), records.end(),
                           [&](Record& record) { return (this->*read)(record); });
    }

    bool Polygon(LevelFile::Polygon& polygon) {
        polygon.id = reader.U32();
        if (!Name(polygon.texture, LevelFile::countLimit, "\nPolygon texture name too long.")) {
            return false;
        }
        polygon.surface = reader.U32();
        if (!Require(polygon.surface >= 1 && polygon.surface <= LevelFile::surfaceCount,
                     "Invalid surface type encountered.")) {
            return false;
        }
        polygon.flags = reader.U32();
        if (!Layer(polygon.layer) || !Outline(polygon.points)) {
            return false;
        }
        ReportProgress();
        return true;
    }

    bool Outline(std::vector<LevelFile::Point>& points) {
        const std::uint32_t count = reader.U32();
        if (!Require(count <= LevelFile::countLimit, "Too many polygon points.") ||
            !Require(reader.Remaining() / 8 >= count)) {
            return false;
        }
        points.resize(count);
        for (LevelFile::Point& point : points) {
            point = Point();
        }
        return true;
    }

    bool Object(LevelFile::Object& object) {
        object.id = reader.U32();
        if (!Name(object.texture, LevelFile::countLimit - 1, "Object texture name too long.") ||
            !Layer(object.layer)) {
            return false;
        }
        object.position = Point();
        object.mirrored = reader.U8();
        if (!Require(true)) {
            return false;
        }
        ReportProgress();
        return true;
    }

    bool Force(LevelFile::Force& force) {
        force.id = reader.U32();
        force.position = Point();
        return Direction(force.direction) && Float(force.strength);
    }

    bool Mover(LevelFile::Mover& mover) {
        mover.id = reader.U32();
        if (!Float(mover.speed)) {
            return false;
        }
        mover.start = Point();
        mover.end = Point();
        return Require(true);
    }

    bool Trigger(LevelFile::Trigger& trigger) {
        trigger.targetId = reader.U32();
        trigger.type = reader.U32();
        if (!Float(trigger.delay)) {
            return false;
        }
        for (LevelFile::Point& corner : trigger.corners) {
            corner = Point();
        }
        return Require(true);
    }

    bool Sound(LevelFile::Sound& sound) {
        sound.id = reader.U32();
        sound.position = Point();
        sound.strength = reader.I32();
        if (!Require(sound.strength >= 0, "Invalid sound source strenght.")) {
            return false;
        }
        sound.looping = reader.U8();
        if (!Name(sound.sound, LevelFile::countLimit, "Sound source sound name too long.")) {
            return false;
        }
        ReportProgress();
        return true;
    }

    bool Emitter(LevelFile::Emitter& emitter) {
        emitter.id = reader.U32();
        emitter.position = Point();
        return Direction(emitter.direction) && Name(emitter.settings, LevelFile::countLimit,
                                                    "Emitter settings file name too long.");
    }

    bool StartData() {
        level.waterStart = Point();
        level.cameraStart = Point();
        return Require(true);
    }

    bool Name(std::string& name, std::uint32_t longest, const char* tooLong) {
        const std::uint32_t length = reader.U32();
        if (!Require(length <= longest, tooLong)) {
            return false;
        }
        const auto bytes = reader.Bytes(length);
        name.resize(bytes.size());
        std::transform(bytes.begin(), bytes.end(), name.begin(),
                       [](std::byte b) { return static_cast<char>(b); });
        return Require(true);
    }

    bool Layer(std::int32_t& layer) {
        layer = reader.I32();
        return Require(layer >= 0 && layer < LevelFile::layerCount, "Invalid polygon layer.");
    }

    /// A float that isn't a number or isn't finite can't have been written by any author.
    bool Float(float& value) {
        value = reader.F32();
        return Require(std::isfinite(value));
    }

    bool Direction(Vector2& direction) { return Float(direction.x) && Float(direction.y); }

    LevelFile::Point Point() {
        const std::int32_t x = reader.I32();
        const std::int32_t y = reader.I32();
        return {x, y};
    }

    void ReportProgress() {
        if (progress != nullptr) {
            progress();
        }
    }

    ByteReader reader;
    LevelFile& level;
    LevelFile::Progress progress;
};

}  // namespace

std::optional<LevelFile> LevelFile::Parse(std::span<const std::byte> bytes, std::string& reason,
                                          std::uint32_t& foundVersion, Progress progress) {
    std::optional<LevelFile> level{std::in_place};
    Parser parser(bytes, *level, progress);
    if (!parser.Header(foundVersion) || !parser.Sections()) {
        reason = parser.reason;
        level.reset();
    }
    return level;
}

namespace {

void Write(ByteWriter& writer, LevelFile::Point point) {
    writer.I32(point.x);
    writer.I32(point.y);
}

void Write(ByteWriter& writer, Vector2 direction) {
    writer.F32(direction.x);
    writer.F32(direction.y);
}

void Write(ByteWriter& writer, const std::string& name) {
    writer.U32(static_cast<std::uint32_t>(name.size()));
    writer.Bytes(std::as_bytes(std::span(name)));
}

void Write(ByteWriter& writer, const LevelFile::Polygon& polygon) {
    writer.U32(polygon.id);
    Write(writer, polygon.texture);
    writer.U32(polygon.surface);
    writer.U32(polygon.flags);
    writer.I32(polygon.layer);
    writer.U32(static_cast<std::uint32_t>(polygon.points.size()));
    for (const LevelFile::Point point : polygon.points) {
        Write(writer, point);
    }
}

void Write(ByteWriter& writer, const LevelFile::Object& object) {
    writer.U32(object.id);
    Write(writer, object.texture);
    writer.I32(object.layer);
    Write(writer, object.position);
    writer.U8(object.mirrored);
}

void Write(ByteWriter& writer, const LevelFile::Force& force) {
    writer.U32(force.id);
    Write(writer, force.position);
    Write(writer, force.direction);
    writer.F32(force.strength);
}

void Write(ByteWriter& writer, const LevelFile::Mover& mover) {
    writer.U32(mover.id);
    writer.F32(mover.speed);
    Write(writer, mover.start);
    Write(writer, mover.end);
}

void Write(ByteWriter& writer, const LevelFile::Trigger& trigger) {
    writer.U32(trigger.targetId);
    writer.U32(trigger.type);
    writer.F32(trigger.delay);
    for (const LevelFile::Point corner : trigger.corners) {
        Write(writer, corner);
    }
}

void Write(ByteWriter& writer, const LevelFile::Sound& sound) {
    writer.U32(sound.id);
    Write(writer, sound.position);
    writer.I32(sound.strength);
    writer.U8(sound.looping);
    Write(writer, sound.sound);
}

void Write(ByteWriter& writer, const LevelFile::Emitter& emitter) {
    writer.U32(emitter.id);
    Write(writer, emitter.position);
    Write(writer, emitter.direction);
    Write(writer, emitter.settings);
}

template <typename Record>
void WriteSection(ByteWriter& writer, const std::vector<Record>& records) {
    writer.U32(static_cast<std::uint32_t>(records.size()));
    for (const Record& record : records) {
        Write(writer, record);
    }
}

}  // namespace

std::vector<std::byte> LevelFile::Serialise() const {
    ByteWriter writer;
    writer.U32(magic);
    writer.U32(version);
    WriteSection(writer, polygons);
    WriteSection(writer, objects);
    WriteSection(writer, forces);
    WriteSection(writer, movers);
    WriteSection(writer, triggers);
    WriteSection(writer, sounds);
    WriteSection(writer, emitters);
    Write(writer, waterStart);
    Write(writer, cameraStart);
    return writer.Block();
}
