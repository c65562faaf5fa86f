#pragma once
// A hash of all water, for tests and for comparing runs, and checks of the water.

#include <cstdint>
#include <span>

#include "water/ParticleGrid.h"

namespace WaterCheck {

/// Of what WaterFold::AddWater hands over of the world in play.
std::uint64_t Hash();

/// What is wrong with the values of the water in play, or null: no numbers, or beyond reason. The
/// next step drops their owners.
const char* ValueFault();

/// While a step's particles move, in builds with VANTREL_VALIDATE: ends the program with a message
/// if the grid's cells don't fit the list.
void AfterMoves(const ParticleGrid& grid, std::span<const Particle> particles);

}  // namespace WaterCheck
