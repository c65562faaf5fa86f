#pragma once
// The most of everything that a level, its settings or a line of the console can ask for, so that
// nothing from outside costs memory or time without end. Each is over a hundred times what any
// level of the game comes to. docs/formats.md and docs/console.md tell them to authors.

#include <cstddef>
#include <cstdint>

namespace Limits {

/// Records of a kind in a level file, points of a polygon and bytes of a name. An object's name
/// must stay below it.
constexpr std::uint32_t records = 65535;
/// Things that the triggers of a level act on, each counted for each trigger.
constexpr std::uint32_t triggerTargets = 100000;
/// Effects of triggers that wait for their delay; two at most for a trigger and a step.
constexpr std::size_t waitingEffects = std::size_t{1} << 20;
/// Particles in one burst of an emitter.
constexpr std::uint32_t burst = 4096;
/// Effect particles in flight.
constexpr std::size_t effectParticles = 200000;
/// Drops of water, of any state, that the console fills a level up to.
constexpr std::uint32_t water = 20000;

}  // namespace Limits
