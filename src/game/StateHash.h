#pragma once
// A hash of all that the next step depends on, to compare two runs by. Left out are files that
// don't change (textures, samples, settings that only files set), what follows from other
// state, and what is only shown or heard from outside of the steps.

#include <cstdint>

#include "game/World.h"

/// Goes up whenever the hash folds something else, or otherwise: recorded runs keep it, and are
/// compared with hashes of their own kind only.
inline constexpr std::uint16_t stateHashKind = 2;

/// Equal for states that are equal to the last bit.
std::uint64_t StateHash(const WorldParts& world);
/// Of the world in play.
std::uint64_t StateHash();
