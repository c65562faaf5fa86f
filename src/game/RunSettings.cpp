// The one list of the settings that count for a run; see RunSettings.h.

#include "game/RunSettings.h"

#include <initializer_list>
#include <optional>
#include <set>
#include <span>

#include "engine/ByteWriter.h"
#include "engine/ConfigFile.h"
#include "engine/Crc32.h"
#include "engine/Text.h"
#include "level/LevelFile.h"
#include "platform/WholeFile.h"

namespace {

void AddText(ByteWriter& writer, const std::string& text) {
    writer.Bytes(std::as_bytes(std::span(text)));
    writer.U8(0);
}

void AddNumbers(ByteWriter& writer, const char* fileName, std::initializer_list<const char*> keys) {
    const ConfigFile file(fileName);
    for (const char* const key : keys) {
        writer.F32(file.GetFloat(key));
    }
}

/// Here a missing key says something else than 0.
void AddWhole(ByteWriter& writer, const std::string& fileName) {
    const ConfigFile file(fileName);
    for (const auto& [key, value] : file.All()) {
        AddText(writer, key);
        if (IsNumber(value)) {
            writer.F32(ToNumber(value));
        } else {
            AddText(writer, UpperCased(value));
        }
    }
}

/// The settings files of the level's emitters; none if there is no such level.
std::set<std::string> EmitterFiles(const std::string& levelName, Platform::NameSource source) {
    const auto path = Platform::FindFile(levelName, source);
    const auto bytes = path ? Platform::ReadWholeFile(*path) : std::nullopt;
    std::string reason;
    std::uint32_t version = 0;
    const auto level = bytes ? LevelFile::Parse(*bytes, reason, version) : std::nullopt;
    std::set<std::string> names;
    if (level) {
        for (const LevelFile::Emitter& emitter : level->emitters) {
            names.insert(emitter.settings);
        }
    }
    return names;
}

}  // namespace

std::uint32_t SettingsChecksum(const std::string& levelName, Platform::NameSource source) {
    ByteWriter writer;
    AddNumbers(writer, "cfg\\water.cfg",
               {"gravity", "roomTemperature", "heatTransferRate", "steamRiseRate",
                "steamScatterRate", "particleKillTime", "triggerTemperatureChangeSpeed",
                "triggerTemperatureChangeAmountIce", "triggerTemperatureChangeAmountSteam",
                "particleGroupInterpolation", "groupExpandSpeed", "iceGravityStrenght"});
    AddNumbers(writer, "cfg\\surfaces.cfg",
               {"surfaceFriction_metal", "surfaceFriction_wood", "surfaceFriction_stone",
                "surfaceFriction_cloth", "surfaceFriction_sand"});
    AddNumbers(writer, "cfg\\camera.cfg",
               {"rotationSmooth", "movementInterpolateSpeed", "maxAngle", "zoomSpeed", "zoomWait",
                "waypointInterpolateSpeed", "waypointInterpolateDistance", "shakeTime",
                "shakeStrenght", "shakeSpeed"});
    AddNumbers(writer, "cfg\\animation.cfg", {"animationSpeeds"});
    AddNumbers(writer, "cfg\\game.cfg", {"finishWaterVolume", "finishAnimationTime"});
    for (const std::string& name : EmitterFiles(levelName, source)) {
        AddText(writer, name);
        AddWhole(writer, name);
    }
    return Crc32(writer.Block());
}
