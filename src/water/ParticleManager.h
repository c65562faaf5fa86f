#pragma once
// The free particles: it creates them, steps all water once per simulation step, decides by
// temperature what each is, and drops the ones that left the view or ran out of time.
// `Step` is the one entry point of the water; it runs the movers in a fixed order.

#include <cstdint>

#include "level/View.h"
#include "water/WaterHit.h"

namespace ParticleManager {

/// All free particles; a particle is in this list or in exactly one group.
extern ParticleList particles;

// Tuning values, from cfg\water.cfg.
extern float gravity;           ///< units per second squared
extern float roomTemperature;   ///< degrees that all matter drifts to
extern float heatTransferRate;  ///< 0..1, share of the gap to it closed per second
extern float steamRiseRate;     ///< factor on gravity, upwards
extern float steamScatterRate;  ///< factor on gravity, in random directions
extern float particleKillTime;  ///< seconds that a killed particle lives on, at least 0.0001

void Initialise();
void Shutdown();
/// Adds `amount` particles at random places within `radius` of (x, y), at the list's front.
void CreateParticles(float x, float y, float radius, std::uint32_t amount);
/// One simulation step of all particles and groups; `dt` in seconds. What is far outside of the
/// view is gone.
void Step(const View& view, float dt);
/// Starts the particle's last seconds; a second call changes nothing.
void KillParticle(Particle& particle);
/// Free particles; members of groups aren't counted.
std::uint32_t Count();
/// All water, of any state.
std::size_t AllWater();
/// Lets all water go: particles, groups and grid. For restarts.
void ClearAll();

}  // namespace ParticleManager

/// Reads the temperature triggers' speed and limits from cfg\water.cfg.
void TemperatureChangeReadConfig();

// What temperature triggers do to a particle or a lump in `dt` seconds; nothing to neither.
void TemperatureTriggerToWater(WaterHit hit, float dt);
void TemperatureTriggerToIce(WaterHit hit, float dt);
void TemperatureTriggerToSteam(WaterHit hit, float dt);
