// Preferences and command line; see Startup.h.

#include "game/Startup.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "engine/PreferenceStore.h"
#include "engine/Text.h"

StartupSettings startupSettings;

namespace {

std::int32_t ClampedDetail(std::int32_t level) {
    return std::clamp(level, 0, 5);
}

void WritePreference(std::string_view name, std::string_view text) {
    PreferenceStore::OpenOrCreateKey(preferencesPath).SetValue(name, text);
}

void WriteFlag(std::string_view name, bool value) {
    WritePreference(name, value ? "1" : "0");
}

/// The words of the command line; a switch looks at the ones after it without taking them.
class Words {
public:
    explicit Words(std::string_view text) : words(SplitWords(text)) {}

    std::size_t Count() const { return words.size(); }
    const std::string& operator[](std::size_t i) const { return words[i]; }

    /// The word as an integer, if it is there and has integer form.
    std::optional<std::int32_t> Integer(std::size_t i) const {
        if (i >= words.size() || !IsInteger(words[i])) {
            return std::nullopt;
        }
        return ToInteger(words[i]);
    }

private:
    std::vector<std::string> words;
};

void SetDetail(const Words& words, std::size_t i) {
    if (const auto level = words.Integer(i + 1)) {
        startupSettings.detailLevel = ClampedDetail(*level);
        WritePreference("DetailLevel", std::to_string(startupSettings.detailLevel));
    }
}

void SetResolution(const Words& words, std::size_t i) {
    const auto width = words.Integer(i + 1);
    const auto height = words.Integer(i + 2);
    if (!width || !height) {
        return;
    }
    startupSettings.resolutionX = std::max(static_cast<std::uint32_t>(*width), 1u);
    startupSettings.resolutionY = std::max(static_cast<std::uint32_t>(*height), 1u);
    WritePreference("ResolutionX", std::to_string(startupSettings.resolutionX));
    WritePreference("ResolutionY", std::to_string(startupSettings.resolutionY));
}

void SetMap(const Words& words, std::size_t i) {
    if (i + 1 < words.Count()) {
        startupSettings.mapName = words[i + 1];
    }
}

void SetRecord(const Words& words, std::size_t i) {
    if (i + 1 < words.Count()) {
        startupSettings.recordFile = words[i + 1];
    }
}

void SetReplay(const Words& words, std::size_t i) {
    if (i + 1 < words.Count()) {
        startupSettings.replayFile = words[i + 1];
    }
}

void SetFullscreen(const Words& words, std::size_t i) {
    if (const auto value = words.Integer(i + 1)) {
        startupSettings.fullscreen = *value != 0;
        WriteFlag("Fullscreen", startupSettings.fullscreen);
    }
}

void SetSound(const Words& words, std::size_t i) {
    if (const auto value = words.Integer(i + 1)) {
        WriteFlag("Sound", *value != 0);
    }
}

void SetMusic(const Words& words, std::size_t i) {
    if (const auto value = words.Integer(i + 1)) {
        WriteFlag("Music", *value != 0);
    }
}

constexpr struct {
    std::string_view name;
    void (*apply)(const Words& words, std::size_t i);
} switches[] = {
    {"-DETAIL", SetDetail},         {"-RESOLUTION", SetResolution}, {"-MAP", SetMap},
    {"-FULLSCREEN", SetFullscreen}, {"-SOUND", SetSound},           {"-MUSIC", SetMusic},
    {"-RECORD", SetRecord},         {"-REPLAY", SetReplay},
};

/// The value as an integer, if it is there and has integer form.
std::optional<std::int32_t> IntegerValue(const PreferenceKey& key, std::string_view name) {
    const std::string text = key.GetValue(name);
    return IsInteger(text) ? std::optional(ToInteger(text)) : std::nullopt;
}

}  // namespace

void LoadPreferences() {
    const PreferenceKey key = PreferenceStore::OpenOrCreateKey(preferencesPath);
    if (const auto level = IntegerValue(key, "DetailLevel")) {
        startupSettings.detailLevel = ClampedDetail(*level);
    }
    const auto width = IntegerValue(key, "ResolutionX");
    const auto height = IntegerValue(key, "ResolutionY");
    if (width && height && *width >= 2 && *height >= 2) {
        startupSettings.resolutionX = static_cast<std::uint32_t>(*width);
        startupSettings.resolutionY = static_cast<std::uint32_t>(*height);
    }
    if (const auto value = IntegerValue(key, "Fullscreen")) {
        startupSettings.fullscreen = *value != 0;
    }
}

void ParseCommandLine(std::string_view text) {
    const Words words(text);
    for (std::size_t i = 0; i < words.Count(); ++i) {
        const std::string word = UpperCased(words[i]);
        for (const auto& candidate : switches) {
            if (word == candidate.name) {
                candidate.apply(words, i);
            }
        }
    }
}

DetailProfile ProfileOf(std::int32_t detailLevel) {
    static constexpr unsigned counts[] = {8, 4, 2};
    const std::span<const unsigned> all(counts);
    switch (detailLevel) {
        case 0:
            return {{}, 2, 0};
        case 1:
            return {{}, 1, 0};
        case 3:
            return {all.last(1), 0, 8};
        case 4:
            return {all.last(2), 0, 4};
        case 5:
            return {all, 0, 2};
        default:
            return {};
    }
}
