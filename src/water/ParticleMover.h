#pragma once
// Turns velocities into positions and makes a cloud of points behave as water: movement in
// short hops with a collision query after each, neighbours that push apart and mix, and the
// pull of each body of water on its members. Also the table of surface frictions.

#include "water/Particle.h"

namespace ParticleMover {

void Initialise();
void Shutdown();
/// Empties all cells and unlinks every free particle.
void ClearGrid();
void GridInsert(Particle& particle);
void GridRemove(Particle& particle);
void MoveParticle(Particle& particle, float dt);
/// Surface tension: pulls the members of each connected body of water to its centre.
void Cohere(float dt);

}  // namespace ParticleMover
