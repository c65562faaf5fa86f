#pragma once
// How particles join and leave a lump of ice.

#include "water/Particle.h"

/// Draws the member's place in its group, once and for good.
void GivePlace(Particle& member);
/// Radius of a disc with the area of so many particles: the area of each is that of its own
/// disc, so 2 sqrt(n).
float TargetRadius(std::size_t memberCount);
/// All members become free particles again, at the front of `particles`.
void ReleaseMembers(ParticleGroup& group, ParticleList& particles);
