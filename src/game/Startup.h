#pragma once
// Start-up settings in three layers: built-in defaults, then the preference store, then the
// command line, which also writes back to the store.

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

struct StartupSettings {
    std::int32_t detailLevel = 2;  ///< 0 to 5
    std::uint32_t resolutionX = 800;
    std::uint32_t resolutionY = 600;
    bool fullscreen = true;
    std::string mapName = "lev\\testLevel.swah";
    std::string recordFile;  ///< empty: none
    std::string replayFile;
};

extern StartupSettings startupSettings;

/// Reads the store; what is missing or badly formed leaves its setting as it was.
void LoadPreferences();
/// Reads "-DETAIL", "-RESOLUTION", "-MAP", "-FULLSCREEN", "-SOUND", "-MUSIC", "-RECORD" and
/// "-REPLAY" in any case;
/// badly formed switches and unknown words are ignored.
void ParseCommandLine(std::string_view text);

/// What a detail level asks of the graphics.
struct DetailProfile {
    std::span<const unsigned> sampleCounts;  ///< to be tried in this order
    int textureQuality = 0;
    int anisotropy = 0;  ///< 0: not set
};
DetailProfile ProfileOf(std::int32_t detailLevel);
