#pragma once
// The set-up of every search: the level, a first copy of the game, and only then the map of
// the ways to the finish, which the copies don't carry along. And the tilts that all try.

#include <array>
#include <cstdint>

#include "FlowMap.h"
#include "Playing.h"
#include "Search.h"
#include "game/HeadlessGame.h"

namespace SearchSetup {

/// Degrees. Beyond 60 the view stops: a key held down.
inline constexpr std::array<float, 12> angles{-66, -66, -45, -30, -16, -7, 0, 7, 16, 30, 45, 66};
/// Frames that a tilt is held.
inline constexpr std::array<std::uint32_t, 6> lengths{16, 30, 45, 45, 75, 125};

/// Makes a Worker from the settings, the game and the result, and runs it on the map; why it
/// couldn't, or nothing.
template <typename Worker, typename Result>
std::string RunOnLevel(const SearchSettings& settings, Result& result) {
    HeadlessGame game(settings.windowWidth, settings.windowHeight);
    std::string failure = Playing::Begin(game, settings.level);
    if (!failure.empty()) {
        return failure;
    }
    Worker worker(settings, game, result);
    if (!worker.IsReady()) {
        return "cannot start copies of the game";
    }
    const FlowMap map;
    if (!map.HasFinish()) {
        return "level '" + settings.level + "' has no finish that water can reach";
    }
    worker.Run(map);
    return {};
}

}  // namespace SearchSetup
