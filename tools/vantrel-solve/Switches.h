#pragma once
// The switches of the loaded level: ids whose polygons a trigger can move away or take out.
// A switch is on once its mover has left its start or its polygons are gone. The list is made
// once and is the same for all worlds of the level.

#include <cstdint>
#include <vector>

#include "actors/Mover.h"
#include "actors/Trigger.h"
#include "game/World.h"
#include "level/LevelPolygon.h"

struct Switch {
    std::uint32_t id = 0;
    std::vector<std::uint32_t> movers;  ///< places of them; empty: its polygons are taken out
    std::vector<const LevelPolygon*> polygons;  ///< solid ones that bear the id
    std::vector<const Trigger*> openers;        ///< any of these turns it on
};

namespace Switches {

/// No more than this many are told apart; a state is one 64-bit word.
constexpr std::size_t most = 64;

/// In ascending order of ids.
extern std::vector<Switch> all;

/// Reads the loaded level.
void Collect();
bool IsOn(const Switch& which, const World& world);
/// Bit i: whether switch i is on.
std::uint64_t State(const World& world);

}  // namespace Switches
