#pragma once
// Ice: frozen particles move as rigid circles that fall, slide, merge and thaw.

#include "level/View.h"
#include "water/Particle.h"

namespace GroupedParticleMover {

extern GroupList groups;
extern bool groupDraw;  ///< debug view; the console can only turn it on

void Initialise();
void Shutdown();
/// Particles at or below 0 degrees start groups and take their neighbours with them.
void Freeze(ParticleList& particles);
/// Moves, thaws and merges the groups; thawed members go to the front of `particles`.
void Step(const View& view, float dt, ParticleList& particles);
void KillGroup(ParticleGroup& group);
/// Debug view (GroupedParticleMoverDraw.cpp).
void Draw();

}  // namespace GroupedParticleMover
