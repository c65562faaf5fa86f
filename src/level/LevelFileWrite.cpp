// Writing of level files; how they are laid out is told in LevelFile.cpp.

#include "engine/ByteWriter.h"
#include "level/LevelFile.h"

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
