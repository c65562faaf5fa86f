#pragma once
// The set-up of a search for some end: the level, its first world, and the map of the ways to the
// finish. And what such searches try.

#include <array>
#include <cstdint>
#include <string>
#include <utility>

#include "FlowMap.h"
#include "Playing.h"
#include "Search.h"
#include "game/HeadlessGame.h"

namespace SearchSetup {

/// Degrees. Beyond 60 the view stops: a key held down.
inline constexpr std::array<float, 12> angles{-66, -66, -45, -30, -16, -7, 0, 7, 16, 30, 45, 66};
/// Frames that a tilt is held.
inline constexpr std::array<std::uint32_t, 6> lengths{16, 30, 45, 45, 75, 125};
inline std::string NoFlight(const std::string& level) {
    return "the flight to the water of '" + level + "' doesn't end";
}

/// Makes a Worker from the settings, the rules with their start, and the result, and runs it on
/// the map; why it couldn't, or nothing.
template <typename Worker, typename Result>
std::string RunOnLevel(const SearchSettings& settings, PlayRules rules, Result& result) {
    HeadlessGame game(settings.windowWidth, settings.windowHeight);
    std::string failure = Playing::Begin(game, settings.level, rules.start);
    if (!failure.empty()) {
        return failure;
    }
    Worker worker(settings, std::move(rules), result);
    if (!worker.IsReady()) {
        return NoFlight(settings.level);
    }
    const FlowMap map(settings.jobs);
    if (!map.HasFinish()) {
        return "level '" + settings.level + "' has no finish that water can reach";
    }
    worker.Run(map);
    return {};
}

}  // namespace SearchSetup
