#pragma once
// Start-up settings in three layers: built-in defaults, then the preference store, then the
// command line, which also writes back to the store.

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "graphics/TextureManager.h"
#include "platform/Window.h"

struct StartupSettings {
    std::int32_t detailLevel = 2;  ///< 0 to 5
    std::uint32_t resolutionX = Platform::defaultWidth;
    std::uint32_t resolutionY = Platform::defaultHeight;
    bool fullscreen = true;
    std::string mapName = "lev\\testLevel.swah";
    std::string recordFile;  ///< empty: none
    std::string replayFile;

    /// The size comes from the command line, and no window has had it yet.
    bool isResolutionNew = false;
    std::uint32_t formerResolutionX = Platform::defaultWidth;  ///< what holds if it can't be had
    std::uint32_t formerResolutionY = Platform::defaultHeight;
};

extern StartupSettings startupSettings;

/// Reads the store; what is missing or badly formed leaves its setting as it was.
void LoadPreferences();

/// Reads "-DETAIL", "-RESOLUTION", "-MAP", "-FULLSCREEN", "-SOUND", "-MUSIC", "-RECORD" and
/// "-REPLAY" in any case. The arguments' words count as one text, so that a switch and its value
/// may share an argument; but a level's or file's name that is an argument of its own may hold
/// blanks. Badly formed switches and unknown words are ignored: gives a line for each.
std::vector<std::string> ParseCommandLine(std::span<const std::string> arguments);
/// The same from one text, in which blanks part all words.
std::vector<std::string> ParseCommandLine(std::string_view text);

/// Stores the size that the command line asked for, if it did. Only once a window has had it: a
/// stored size that can't be opened would come back at every start.
void KeepResolution();
/// Back to the size before the command line, then to the default, when no window of the current
/// size can be opened; false if there is nothing left to go back to.
bool FallBackResolution();

/// What a detail level asks of the graphics.
struct DetailProfile {
    std::span<const unsigned> sampleCounts;  ///< to be tried in this order
    TextureQuality textureQuality = TextureQuality::Full;
    int anisotropy = 0;  ///< 0: not set
};
/// Of a level from 0 to 5.
DetailProfile ProfileOf(std::int32_t detailLevel);
