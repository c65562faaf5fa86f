#pragma once
// A recorded run: all that a level's play depends on besides the level and the settings. The
// same run gives the same end to the last bit, whatever clock, keys and window are there.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "engine/Page.h"
#include "platform/Paths.h"

/// One module step of a level's life.
struct RunStep {
    /// What else went on; 0 in plain play.
    enum Flags : std::uint8_t { Menu = 1, Paused = 2, Unsteered = 4 };

    /// A stall that lasts longer counts as much, so that a run's time has a bound.
    static constexpr float longest = 1.0f;

    float dt = 0.0f;         ///< seconds, above 0; at most `longest` in a run
    float turn = 0.0f;       ///< degrees per second that the player asks for
    std::uint8_t flags = 0;  ///< a menu shows; paused; the input doesn't reach the camera

    bool operator==(const RunStep&) const = default;
};

struct Run {
    /// Steps between two hashes of the state: about five seconds.
    static constexpr std::size_t stepsPerHash = 300;

    /// As data names files, like "lev\\testLevel.swah": inside of the game's directories.
    std::string level;
    std::uint32_t checksum = 0;     ///< of the level's file
    std::uint32_t randomState = 0;  ///< as the level begins
    std::vector<RunStep> steps;     ///< from the level's beginning on
    float viewWidth = Page::width;  ///< logical view during the whole run, world units
    float viewHeight = Page::height;

    // What a replay is compared by. A run that was never played from end to end has none of it.

    std::uint32_t settings = 0;         ///< SettingsChecksum
    std::uint16_t hashKind = 0;         ///< stateHashKind
    std::vector<std::uint64_t> hashes;  ///< of the state after every so many steps, and at the end

    /// How many hashes go with the steps.
    std::size_t HashCount() const { return steps.size() / stepsPerHash + 1; }

    bool operator==(const Run&) const = default;
};

/// Through a temporary file that is moved into place; false and the old file if it fails, or
/// if `ReadRun` would refuse such a run.
bool WriteRun(const std::string& path, const Run& run);
/// The run, or none and why not, as the end of a sentence about the file.
std::optional<Run> ReadRun(const std::string& path, std::string& reason);
/// The same from a file's bytes.
std::optional<Run> ParseRun(std::span<const std::byte> bytes, std::string& reason);

/// CRC-32 of the level's file; none if there is no such file, or none that the source may name.
std::optional<std::uint32_t> LevelChecksum(const std::string& levelName,
                                           Platform::NameSource source);
/// Whether the run's level is there and is the one that the run was played on; else why not.
bool FitsLevel(const Run& run, std::string& reason);
