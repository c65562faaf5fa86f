#pragma once
// How moving polygons push the water: a polygon advances in parts shorter than a particle, so
// that it can't jump over one, and takes along what its edges catch, with the water that
// touches what it caught. Carried water that ends up inside the polygon is killed.

#include "actors/ActorsStep.h"

namespace MoverPush {

/// Longest part of a move, world units: 0.85 of a particle's radius.
constexpr float longestPart = 1.7f;
/// A move of more parts than this in one step, 1.7 million units, is a jump: it pushes nothing.
constexpr int mostParts = 1 << 20;

/// Pushes the water with every solid collider in the square that moved since the last call,
/// then notes where all colliders are. `dt` in seconds.
void PushWater(const ActorsParts& parts, const ViewSquare& square, float dt);

}  // namespace MoverPush
