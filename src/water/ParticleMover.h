#pragma once
// Turns velocities into positions and makes a cloud of points behave as water: movement in
// short hops with a collision query after each, neighbours that push apart and mix, and the
// pull of each body of water on its members.

#include "water/WaterStep.h"

namespace ParticleMover {

// Of any world.

/// Moves what was taken out of the grid for this particle. The grid holds all others of the step.
void Move(Motion& motion, const Particle& particle, const WaterStep& step);
/// Surface tension: pulls the members of each connected body of water to its centre.
void Cohere(const WaterParts& parts, float dt, RandomAhead& random);
/// How many numbers a particle takes there, at most.
constexpr std::size_t cohesionDraws = 3;

// The world in play.

void Initialise();
void Shutdown();
/// Empties all cells.
void ClearGrid();
/// Lays the grid round all free particles and moves this one of them.
void MoveParticle(Particle& particle, const View& view, float dt);
void Cohere(float dt);

}  // namespace ParticleMover
