#pragma once
// Draws the water: outlines of all particles first, then fills and trails, so that a body of
// water reads as one shape.

namespace ParticleRenderer {

void Initialise();
void Shutdown();
void Draw();

}  // namespace ParticleRenderer
