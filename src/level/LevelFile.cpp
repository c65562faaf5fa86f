// Reading of level files. All numbers are little-endian; names are counted, and
// the sections follow each other without marks or padding.

#include "level/LevelFile.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <unordered_map>

#include "engine/ByteReader.h"
#include "level/TriggerTypes.h"

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
        return Records() && Require(TriggerTargets() <= Limits::triggerTargets,
                                    "Too many targets of triggers in level.");
    }

    std::string reason;

private:
    bool Records() {
        // A negative polygon count is above the limit when read without a sign.
        return Section(level.polygons, smallestPolygon, "Too many polygons in level.",
                       &Parser::Polygon) &&
               Section(level.objects, smallestObject, "Too many objects in level",
                       &Parser::Object) &&
               Section(level.forces, smallestForce, "Too many forces in level.", &Parser::Force) &&
               Block(level.movers, moverSize, "Too many movers in level.", &Parser::Mover) &&
               Block(level.triggers, triggerSize, "Too many triggers in level.",
                     &Parser::Trigger) &&
               Section(level.sounds, smallestSound, "Too many sounds in level.", &Parser::Sound) &&
               Section(level.emitters, smallestEmitter, "Too many emitters in level.",
                       &Parser::Emitter) &&
               StartData();
    }

    /// How many things the triggers act on: whatever bears a trigger's id and is of a kind that
    /// its type acts on, counted once for each trigger.
    std::uint64_t TriggerTargets() const {
        std::unordered_map<std::uint32_t, std::array<std::uint32_t, 6>> bearers;
        const auto count = [&bearers](const auto& records, unsigned kind) {
            for (const auto& record : records) {
                ++bearers[record.id][static_cast<std::size_t>(std::countr_zero(kind))];
            }
        };
        count(level.polygons, TargetPolygon);
        count(level.objects, TargetObject);
        count(level.forces, TargetForce);
        count(level.movers, TargetMover);
        count(level.sounds, TargetSound);
        count(level.emitters, TargetEmitter);
        std::uint64_t sum = 0;
        for (const LevelFile::Trigger& trigger : level.triggers) {
            const TriggerType* type = TriggerTypes::Find(static_cast<std::int32_t>(trigger.type));
            const auto found = bearers.find(trigger.targetId);
            for (unsigned bit = 0; type && found != bearers.end() && bit < 6; ++bit) {
                sum += (type->targets & 1u << bit) != 0 ? found->second[bit] : 0;
            }
        }
        return sum;
    }

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
    bool Section(std::vector<Record>& records, std::size_t smallest, const char* tooMany,
                 bool (Parser::*read)(Record&)) {
        const std::uint32_t count = reader.U32();
        if (!Require(count <= LevelFile::countLimit, tooMany)) {
            return false;
        }
        records.reserve(std::min<std::size_t>(count, reader.Remaining() / smallest));
        for (std::uint32_t i = 0; i < count; ++i) {
            Record record;
            number = i;
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
        number = 0;
        return std::all_of(records.begin(), records.end(), [&](Record& record) {
            const bool isRead = (this->*read)(record);
            ++number;
            return isRead;
        });
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
        return Direction("Force", force.direction) && Float("Force", force.strength);
    }

    bool Mover(LevelFile::Mover& mover) {
        mover.id = reader.U32();
        if (!Float("Mover", mover.speed)) {
            return false;
        }
        mover.start = Point();
        mover.end = Point();
        return Require(true);
    }

    bool Trigger(LevelFile::Trigger& trigger) {
        trigger.targetId = reader.U32();
        trigger.type = reader.U32();
        if (!Float("Trigger", trigger.delay)) {
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
        return Direction("Emitter", emitter.direction) &&
               Name(emitter.settings, LevelFile::countLimit,
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

    /// What isn't a number or isn't finite can't have been written by any author. However large
    /// a finite number is, what works with it keeps it in bounds.
    bool Float(const char* kind, float& value) {
        value = reader.F32();
        if (!reader.HasFailed() && !std::isfinite(value)) {
            reason = std::string(kind) + ' ' + std::to_string(number) +
                     " holds a number that is not finite.";
            return false;
        }
        return Require(true);
    }

    bool Direction(const char* kind, Vector2& direction) {
        return Float(kind, direction.x) && Float(kind, direction.y);
    }

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
    std::uint32_t number = 0;  // of the record at work, in its section
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
