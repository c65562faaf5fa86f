#pragma once
// The particle manager's console commands.

namespace ParticleCommands {

void Add();
void Remove();

}  // namespace ParticleCommands
