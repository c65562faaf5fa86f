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

/// Reads the table from cfg\surfaces.cfg; once, before the first level.
void ReadSurfaces();
/// 1 metal, 2 wood, 3 stone, 4 cloth, 5 sand.
bool IsValidSurface(int surface);
/// Share of speed that survives one second of contact; 1 for an unknown surface.
float SurfaceFriction(int surface);
