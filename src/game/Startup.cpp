// Preferences and command line; see Startup.h.

#include "game/Startup.h"

#include <algorithm>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "engine/PreferenceStore.h"
#include "engine/Text.h"
#include "game/Notice.h"
#include "platform/Assert.h"

StartupSettings startupSettings;

namespace {

std::int32_t ClampedDetail(std::int32_t level) {
    return std::clamp(level, 0, 5);
}

void WritePreference(std::string_view name, std::string_view text) {
    if (!PreferenceStore::OpenOrCreateKey(preferencesPath).SetValue(name, text)) {
        Notice("Unable to store the preference " + std::string(name));
    }
}

void WriteFlag(std::string_view name, bool value) {
    WritePreference(name, value ? "1" : "0");
}

/// The words of all arguments; a switch looks at the ones after it without taking them.
class Words {
public:
    explicit Words(std::span<const std::string> arguments) {
        for (const std::string& argument : arguments) {
            bool isFirst = true;
            for (std::string& text : SplitWords(argument)) {
                words.push_back({std::move(text), isFirst ? &argument : nullptr});
                isFirst = false;
            }
        }
    }

    std::size_t Count() const { return words.size(); }
    const std::string& operator[](std::size_t i) const { return words[i].text; }

    /// The word as an integer, if it is there and has integer form.
    std::optional<std::int32_t> Integer(std::size_t i) const {
        if (i >= words.size() || !IsInteger(words[i].text)) {
            return std::nullopt;
        }
        return ToInteger(words[i].text);
    }

    /// The argument that begins at that word, with its blanks, or else the word; none if there is
    /// no such word.
    std::optional<std::string> Name(std::size_t i) {
        if (i >= words.size()) {
            return std::nullopt;
        }
        if (words[i].argument == nullptr) {
            return words[i].text;
        }
        // What stands within a name is no switch.
        for (std::size_t k = i + 1; k < words.size() && words[k].argument == nullptr; ++k) {
            words[k].isWithinName = true;
        }
        return *words[i].argument;
    }
    bool IsWithinName(std::size_t i) const { return words[i].isWithinName; }

private:
    struct Word {
        std::string text;
        const std::string* argument;  // that begins with the word; null within one
        bool isWithinName = false;
    };
    std::vector<Word> words;
};

// Each sets what its values, the words from `i` on, ask for; false if they are badly formed.

bool SetDetail(Words& words, std::size_t i) {
    const auto level = words.Integer(i);
    if (level) {
        startupSettings.detailLevel = ClampedDetail(*level);
        WritePreference("DetailLevel", std::to_string(startupSettings.detailLevel));
    }
    return level.has_value();
}

bool SetResolution(Words& words, std::size_t i) {
    const auto width = words.Integer(i);
    const auto height = words.Integer(i + 1);
    if (!width || !height || *width < 0 || *height < 0) {
        return false;
    }
    startupSettings.resolutionX = static_cast<std::uint32_t>(std::max(*width, 1));
    startupSettings.resolutionY = static_cast<std::uint32_t>(std::max(*height, 1));
    startupSettings.isResolutionNew = true;
    return true;
}

template <std::string StartupSettings::*field>
bool SetName(Words& words, std::size_t i) {
    auto name = words.Name(i);
    if (name) {
        startupSettings.*field = std::move(*name);
    }
    return name.has_value();
}

bool SetFullscreen(Words& words, std::size_t i) {
    const auto value = words.Integer(i);
    if (value) {
        startupSettings.fullscreen = *value != 0;
        WriteFlag("Fullscreen", startupSettings.fullscreen);
    }
    return value.has_value();
}

bool SetSound(Words& words, std::size_t i) {
    const auto value = words.Integer(i);
    if (value) {
        WriteFlag("Sound", *value != 0);
    }
    return value.has_value();
}

bool SetMusic(Words& words, std::size_t i) {
    const auto value = words.Integer(i);
    if (value) {
        WriteFlag("Music", *value != 0);
    }
    return value.has_value();
}

struct Switch {
    std::string_view name;
    bool (*apply)(Words& words, std::size_t i);
    std::size_t values;  ///< words that it looks at
    std::string_view takes;
};
constexpr Switch switches[] = {
    {"-DETAIL", SetDetail, 1, "a number from 0 to 5"},
    {"-RESOLUTION", SetResolution, 2, "width and height in pixels"},
    {"-MAP", SetName<&StartupSettings::mapName>, 1, "the name of a level"},
    {"-FULLSCREEN", SetFullscreen, 1, "0 or 1"},
    {"-SOUND", SetSound, 1, "0 or 1"},
    {"-MUSIC", SetMusic, 1, "0 or 1"},
    {"-RECORD", SetName<&StartupSettings::recordFile>, 1, "the name of a file"},
    {"-REPLAY", SetName<&StartupSettings::replayFile>, 1, "the name of a file"},
};

/// The switch with its values, as far as they are there, as a complaint.
std::string Complaint(const Switch& badlyFormed, const Words& words, std::size_t i) {
    std::string text = words[i];
    for (std::size_t k = i + 1; k <= i + badlyFormed.values && k < words.Count(); ++k) {
        text += ' ' + words[k];
    }
    return "Ignored '" + text + "': " + std::string(badlyFormed.name) + " takes " +
           std::string(badlyFormed.takes);
}

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
        startupSettings.formerResolutionX = startupSettings.resolutionX;
        startupSettings.formerResolutionY = startupSettings.resolutionY;
    }
    if (const auto value = IntegerValue(key, "Fullscreen")) {
        startupSettings.fullscreen = *value != 0;
    }
}

std::vector<std::string> ParseCommandLine(std::span<const std::string> arguments) {
    std::vector<std::string> complaints;
    Words words(arguments);
    std::size_t firstUnread = 0;  // words before it are values of a switch
    for (std::size_t i = 0; i < words.Count(); ++i) {
        if (words.IsWithinName(i)) {
            continue;
        }
        const auto* known = std::ranges::find(switches, UpperCased(words[i]), &Switch::name);
        if (known == std::end(switches)) {
            if (i >= firstUnread) {
                complaints.push_back("Ignored '" + words[i] + "': no such switch; see --help");
            }
            continue;
        }
        if (!known->apply(words, i + 1)) {
            complaints.push_back(Complaint(*known, words, i));
        }
        firstUnread = std::max(firstUnread, i + 1 + known->values);
    }
    return complaints;
}

std::vector<std::string> ParseCommandLine(std::string_view text) {
    const std::string arguments[] = {std::string(text)};
    return ParseCommandLine(arguments);
}

void KeepResolution() {
    if (startupSettings.isResolutionNew) {
        WritePreference("ResolutionX", std::to_string(startupSettings.resolutionX));
        WritePreference("ResolutionY", std::to_string(startupSettings.resolutionY));
        startupSettings.isResolutionNew = false;
    }
}

bool FallBackResolution() {
    const StartupSettings defaults;
    StartupSettings& settings = startupSettings;
    if (settings.isResolutionNew) {
        settings.isResolutionNew = false;
        settings.resolutionX = settings.formerResolutionX;
        settings.resolutionY = settings.formerResolutionY;
        return true;
    }
    const bool isLast = settings.resolutionX == defaults.resolutionX &&
                        settings.resolutionY == defaults.resolutionY;
    settings.resolutionX = defaults.resolutionX;
    settings.resolutionY = defaults.resolutionY;
    return !isLast;
}

DetailProfile ProfileOf(std::int32_t detailLevel) {
    VANTREL_ASSERT(detailLevel >= 0 && detailLevel <= 5);
    static constexpr unsigned counts[] = {8, 4, 2};
    const std::span<const unsigned> all(counts);
    switch (detailLevel) {
        case 0:
            return {{}, TextureQuality::Halved, 0};
        case 1:
            return {{}, TextureQuality::Compressed, 0};
        case 3:
            return {all.last(1), TextureQuality::Full, 8};
        case 4:
            return {all.last(2), TextureQuality::Full, 4};
        case 5:
            return {all, TextureQuality::Full, 2};
        default:
            return {};
    }
}
