#pragma once
// The state of a world's machines, as far as a way on from some place can hang on it.

#include <cstdint>

#include "actors/ActorsState.h"
#include "engine/Vector2.h"

namespace Machines {

/// A hash of where the movers near a place stand that don't go to and fro, of what triggers have
/// taken out or put back, and of one-time triggers that have fired and whose effect is undone:
/// they can't help again.
std::uint64_t State(const ActorsState& actors, Vector2 place);

}  // namespace Machines
