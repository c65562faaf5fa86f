#pragma once
// The free particles: it creates them, steps all water once per simulation step, decides by
// temperature what each is, and drops the ones that left the view or ran out of time.
// `Step` is the one entry point of the water; it runs the movers in a fixed order.

#include <cstdint>

#include "engine/Random.h"
#include "level/View.h"
#include "water/WaterHit.h"
#include "water/WaterState.h"
#include "water/WaterStep.h"

namespace ParticleManager {

// Of any world.

/// Adds `amount` particles at random places within `radius` of `centre`, at the list's front.
void CreateParticles(WaterState& water, RandomNumbers& random, Vector2 centre, float radius,
                     std::uint32_t amount);
/// One simulation step of all particles and groups; `dt` in seconds. What is far outside of the
/// view is gone.
void Step(const WaterParts& parts, const View& view, float dt);

// The world in play.

extern WaterState current;
// Parts of `current` by their own names.
inline ParticleList& particles = current.particles;
inline float& gravity = current.gravity;
inline float& roomTemperature = current.roomTemperature;
inline float& heatTransferRate = current.heatTransferRate;
inline float& steamRiseRate = current.steamRiseRate;
inline float& steamScatterRate = current.steamScatterRate;
inline float& particleKillTime = current.particleKillTime;
/// The water in play with what its steps need.
WaterParts Parts();

void Initialise();
void Shutdown();
void CreateParticles(float x, float y, float radius, std::uint32_t amount);
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
