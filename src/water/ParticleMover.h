#pragma once
// Turns velocities into positions and makes a cloud of points behave as water: movement in
// short hops with a collision query after each, neighbours that push apart and mix, and the
// pull of each body of water on its members.

#include "water/WaterStep.h"

namespace ParticleMover {

// Of any world.

/// The particle is one of the step's, and the grid holds them.
void MoveParticle(Particle& particle, const WaterStep& step);
/// Surface tension: pulls the members of each connected body of water to its centre.
void Cohere(const WaterParts& parts, float dt);

// The world in play.

void Initialise();
void Shutdown();
/// Empties all cells and unlinks every free particle.
void ClearGrid();
/// Of a free particle.
void GridInsert(Particle& particle);
void GridRemove(Particle& particle);
void MoveParticle(Particle& particle, const View& view, float dt);
void Cohere(float dt);

}  // namespace ParticleMover
