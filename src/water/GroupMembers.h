#pragma once
// How particles join and leave a lump of ice.

#include <cstdint>
#include <span>

#include "engine/Random.h"
#include "water/Particle.h"

/// Draws the member's place in its group, once and for good.
void GivePlace(Particle& member, RandomNumbers& random);
/// Radius of a disc with the area of so many particles: the area of each is that of its own
/// disc, so 2 sqrt(n).
float TargetRadius(std::size_t memberCount);
/// All members become free particles again, at the front of `particles`.
void ReleaseMembers(ParticleGroup& group, ParticleList& particles);
/// Erases the particles at these places, which ascend; the rest keeps its order.
void EraseAt(ParticleList& particles, std::span<const std::uint32_t> places);
