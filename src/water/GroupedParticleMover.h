#pragma once
// Ice: frozen particles move as rigid circles that fall, slide, merge and thaw.

#include "level/View.h"
#include "water/ParticleManager.h"

namespace GroupedParticleMover {

// Of any world.

/// Free particles at or below 0 degrees start groups and take their neighbours with them.
void Freeze(const WaterParts& parts);
/// Moves, thaws and merges the groups; thawed members go to the front of the free particles.
void Step(const WaterStep& step);

// The world in play.

inline GroupList& groups = ParticleManager::current.groups;
extern bool groupDraw;  ///< debug view; the console can only turn it on

void Initialise();
void Shutdown();
void Freeze();
void Step(const View& view, float dt);
void KillGroup(ParticleGroup& group);
/// Debug view (GroupedParticleMoverDraw.cpp).
void Draw();

}  // namespace GroupedParticleMover
