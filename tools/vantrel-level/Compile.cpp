#include "Compile.h"

#include <limits>

#include "Names.h"
#include "ObjectReader.h"
#include "Outline.h"

namespace {

using Shape = MapObject::Shape;

/// Collects the records of one map.
class Compiler {
public:
    explicit Compiler(std::string& failureText) : failure(failureText) {}

    bool Add(const MapObject& object);
    bool Finish();

    LevelFile level;

private:
    void AddPolygon(const MapObject& object, ObjectReader& reader);
    void AddSprite(ObjectReader& reader);
    void AddForce(ObjectReader& reader);
    void AddMover(const MapObject& object, ObjectReader& reader);
    void AddTrigger(const MapObject& object, ObjectReader& reader);
    void AddSound(const MapObject& object, ObjectReader& reader);
    void AddEmitter(ObjectReader& reader);
    void SetStart(const MapObject& object, ObjectReader& reader);
    /// Appends, unless the level file can't count that many.
    template <typename Record>
    void Append(std::vector<Record>& records, Record record, ObjectReader& reader) {
        if (records.size() >= LevelFile::countLimit) {
            reader.Fail("too many objects of this class; a level holds 65535");
            return;
        }
        records.push_back(std::move(record));
    }

    std::string& failure;
    bool hasWaterStart = false;
    bool hasCameraStart = false;
};

bool Compiler::Add(const MapObject& object) {
    ObjectReader reader(object, failure);
    const std::string& kind = object.kind;
    const bool isPlainShape =
        kind.empty() && (object.shape == Shape::Polygon || object.shape == Shape::Rectangle);
    if (kind == "Polygon" || isPlainShape) {
        AddPolygon(object, reader);
    } else if (kind == "Object") {
        AddSprite(reader);
    } else if (kind == "Force") {
        AddForce(reader);
    } else if (kind == "Mover") {
        AddMover(object, reader);
    } else if (kind == "Trigger") {
        AddTrigger(object, reader);
    } else if (kind == "Sound") {
        AddSound(object, reader);
    } else if (kind == "Emitter") {
        AddEmitter(reader);
    } else if (kind == "WaterStart" || kind == "CameraStart") {
        SetStart(object, reader);
    } else if (kind.empty()) {
        reader.Fail("has no class");
    } else {
        reader.Fail("there is no class \"" + Names::ToText(kind) + "\"");
    }
    return reader.Finish();
}

void Compiler::AddPolygon(const MapObject& object, ObjectReader& reader) {
    if (object.shape != Shape::Polygon && object.shape != Shape::Rectangle) {
        reader.Fail("a Polygon must be a polygon or a rectangle");
        return;
    }
    LevelFile::Polygon polygon;
    polygon.id = reader.Id("id");
    polygon.texture = reader.FileName("texture", LevelFile::countLimit);
    polygon.surface = static_cast<std::uint32_t>(reader.Word("surface", Names::surfaces, 1, 5, 3));
    polygon.flags = static_cast<std::uint32_t>(
        reader.Word("flags", Names::flags, 0, std::numeric_limits<std::uint32_t>::max(), 0));
    polygon.layer = reader.Layer();
    polygon.points = reader.Points();
    if (!reader.Flag("exact")) {
        polygon.points = Outline::Tidy(polygon.points);
    }
    if (polygon.points.size() > LevelFile::countLimit) {
        reader.Fail("has more than 65535 points");
    }
    Append(level.polygons, std::move(polygon), reader);
}

void Compiler::AddSprite(ObjectReader& reader) {
    LevelFile::Object sprite;
    sprite.id = reader.Id("id");
    sprite.texture = reader.FileName("texture", LevelFile::countLimit - 1);
    sprite.layer = reader.Layer();
    sprite.position = reader.Position();
    sprite.mirrored = reader.Byte("mirrored");
    Append(level.objects, std::move(sprite), reader);
}

void Compiler::AddForce(ObjectReader& reader) {
    LevelFile::Force force;
    force.id = reader.Id("id");
    reader.Arrow(force.position, force.direction);
    force.strength = reader.Float("strength", 10.0f);
    Append(level.forces, force, reader);
}

void Compiler::AddMover(const MapObject& object, ObjectReader& reader) {
    if (object.shape != Shape::Polyline || object.points.size() != 2) {
        reader.Fail("a Mover must be a line of two points");
        return;
    }
    const auto points = reader.Points();
    LevelFile::Mover mover;
    mover.id = reader.Id("id");
    mover.speed = reader.Float("speed", 50.0f);
    mover.start = points[0];
    mover.end = points[1];
    Append(level.movers, mover, reader);
}

void Compiler::AddTrigger(const MapObject& object, ObjectReader& reader) {
    const bool isArea = object.shape == Shape::Polygon || object.shape == Shape::Rectangle;
    if (!isArea || object.points.size() != 4) {
        reader.Fail("a Trigger must be a rectangle or a polygon of four points");
        return;
    }
    const auto points = reader.Points();
    LevelFile::Trigger trigger;
    trigger.targetId = reader.Id("target");
    trigger.type = reader.TriggerType();
    trigger.delay = reader.Float("delay", 0.0f);
    std::copy(points.begin(), points.end(), trigger.corners);
    Append(level.triggers, trigger, reader);
}

void Compiler::AddSound(const MapObject& object, ObjectReader& reader) {
    LevelFile::Sound sound;
    sound.id = reader.Id("id");
    std::int64_t circleRadius = 0;
    if (object.shape == Shape::Ellipse) {
        if (object.width != object.height) {
            reader.Fail("a Sound must be a circle; width and height differ");
            return;
        }
        sound.position = reader.Points().front();
        // Beyond the limit of the property, which refuses it below.
        circleRadius = static_cast<std::int64_t>(std::min(object.width / 2.0 + 0.5, 9e15));
    } else {
        sound.position = reader.Position();
    }
    constexpr std::int64_t largest = std::numeric_limits<std::int32_t>::max();
    if (circleRadius < 0 || circleRadius > largest) {
        reader.Fail("the circle is too large");
        return;
    }
    sound.strength = static_cast<std::int32_t>(reader.Integer("radius", 0, largest, circleRadius));
    if (circleRadius > 0 && sound.strength != circleRadius) {
        if (sound.strength != 0) {
            reader.Fail("the circle and the property \"radius\" differ; remove the property");
        }
        sound.strength = static_cast<std::int32_t>(circleRadius);
    }
    sound.looping = reader.Byte("looping");
    sound.sound = reader.FileName("sound", LevelFile::countLimit);
    Append(level.sounds, std::move(sound), reader);
}

void Compiler::AddEmitter(ObjectReader& reader) {
    LevelFile::Emitter emitter;
    emitter.id = reader.Id("id");
    reader.Arrow(emitter.position, emitter.direction);
    emitter.settings = reader.FileName("settings", LevelFile::countLimit);
    Append(level.emitters, std::move(emitter), reader);
}

void Compiler::SetStart(const MapObject& object, ObjectReader& reader) {
    const bool isWater = object.kind == "WaterStart";
    bool& isThere = isWater ? hasWaterStart : hasCameraStart;
    if (isThere) {
        reader.Fail("is a second " + object.kind);
    }
    isThere = true;
    (isWater ? level.waterStart : level.cameraStart) = reader.Position();
}

bool Compiler::Finish() {
    if (!hasWaterStart || !hasCameraStart) {
        failure = std::string("the map has no ") + (hasWaterStart ? "CameraStart" : "WaterStart") +
                  " point";
    }
    return failure.empty();
}

}  // namespace

std::optional<LevelFile> Compile(std::span<const MapObject> objects, std::string& failure) {
    Compiler compiler(failure);
    for (const MapObject& object : objects) {
        if (!compiler.Add(object)) {
            return std::nullopt;
        }
    }
    if (!compiler.Finish()) {
        return std::nullopt;
    }
    return std::move(compiler.level);
}
