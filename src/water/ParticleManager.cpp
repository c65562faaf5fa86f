// Life and step of the free particles; see ParticleManager.h.

#include "water/ParticleManager.h"

#include <cmath>

#include "engine/ConfigFile.h"
#include "engine/Console.h"
#include "engine/ConsoleCommands.h"
#include "level/LevelData.h"
#include "platform/Assert.h"
#include "water/GroupMembers.h"
#include "water/GroupedParticleMover.h"
#include "water/ParticleMover.h"
#include "water/WaterCheck.h"

namespace ParticleManager {

WaterState current;

namespace {

constexpr float shortestKillTime = 0.0001f;

WaterWorkspace workspace;

bool HoldsUnreasonable(const Particle& particle) {
    return IsBeyondReason(particle.position, particle.velocity, particle.pushVelocity,
                          particle.temperature);
}

/// Gravity pulls water down; steam rises instead, and is pushed in a random direction.
void Accelerate(Motion& motion, const WaterStep& step, RandomAhead& random) {
    if (motion.temperature < boilingPoint) {
        motion.velocity += step.gravity;
        return;
    }
    motion.velocity -= step.gravity * step.water.steamRiseRate;
    Vector2 scatter = step.gravity * step.water.steamScatterRate;
    Rotate(scatter, random.Unit() * fullTurn);
    motion.velocity += scatter;
}

/// False if the particle is to go.
bool StepParticle(Particle& particle, Motion& motion, const WaterStep& step, RandomAhead& random) {
    if (step.rectangle.IsOutside(motion.position, Particle::radius + viewMargin)) {
        return false;
    }
    if (particle.dying != 0) {
        particle.killTimer -= step.dt;
        if (particle.killTimer <= 0.0f) {
            return false;
        }
    }
    Accelerate(motion, step, random);
    motion.temperature = step.Warmed(motion.temperature);
    particle.positionHistory[2] = particle.positionHistory[1];
    particle.positionHistory[1] = particle.positionHistory[0];
    particle.positionHistory[0] = motion.position;
    ParticleMover::Move(motion, particle, step);
    particle.speed = Length(motion.pushVelocity + motion.velocity);
    motion.pushVelocity = {};
    return true;
}

void StepParticles(const WaterStep& step, Vector2 gridCentre, RandomAhead& random) {
    ParticleList& list = step.water.particles;
    ParticleGrid& grid = step.work.grid;
    std::vector<std::uint32_t>& gone = step.work.gone;
    gone.clear();
    grid.FillFrom(list, gridCentre);
    for (std::uint32_t i = 0; i < list.size(); ++i) {
        random.Prepare(ParticleMover::cohesionDraws);
        const std::uint32_t slot = grid.SlotOf(i);
        Motion motion = grid.TakeOut(slot);
        if (StepParticle(list[i], motion, step, random)) {
            grid.PutBack(slot, motion);
        } else {
            gone.push_back(i);
        }
    }
    WaterCheck::AfterMoves(grid, list);
    grid.StoreTo(list);
    EraseAt(list, gone);
}

float HeatTransferRate(float value, bool isSet) {
    if (isSet) {
        heatTransferRate = value;
        Clamp(heatTransferRate, 0.0f, 1.0f);
    }
    return heatTransferRate;
}

const Console::CommandTable commands{
    {"Gravity", Console::Variable<current, &WaterState::gravity>,
     "How fast water falls, units per second squared."},
    {"RoomTemperature", Console::Variable<current, &WaterState::roomTemperature>,
     "What all water drifts to, degrees."},
    {"HeatTransferRate", HeatTransferRate,
     "Share of the gap to the room's temperature that closes in a second, 0 to 1."},
    {"SteamRiseRate", Console::Variable<current, &WaterState::steamRiseRate>,
     "How fast steam rises, as a factor on gravity."},
    {"SteamScatterRate", Console::Variable<current, &WaterState::steamScatterRate>,
     "How fast steam scatters, as a factor on gravity."},
    {"ParticleCount", [] { return static_cast<int>(Count()); },
     "How much water there is, without the ice."},
};

}  // namespace

void Initialise() {
    Shutdown();
    Console::Print("\nInitialising particle manager..");
    ParticleMover::Initialise();
    GroupedParticleMover::Initialise();
    commands.Add();

    const ConfigFile config("cfg\\water.cfg");
    gravity = std::fabs(config.GetFloat("gravity"));
    roomTemperature = config.GetFloat("roomTemperature");
    heatTransferRate = config.GetFloat("heatTransferRate");
    steamRiseRate = config.GetFloat("steamRiseRate");
    steamScatterRate = config.GetFloat("steamScatterRate");
    particleKillTime = config.GetFloat("particleKillTime");
    Clamp(heatTransferRate, 0.0f, 1.0f);
    if (particleKillTime < shortestKillTime) {
        particleKillTime = shortestKillTime;
    }
}

void Shutdown() {
    Console::Print("\nShutting down particle manager..");
    particles.clear();
    ParticleMover::Shutdown();
    GroupedParticleMover::Shutdown();
    commands.Remove();
}

void CreateParticles(WaterState& water, RandomNumbers& random, Vector2 centre, float radius,
                     std::uint32_t amount) {
    // Each stands before those created earlier.
    water.particles.insert(water.particles.begin(), amount, Particle{});
    for (std::uint32_t i = amount; i-- > 0;) {
        const float distance = random.Unit() * radius;
        const float dx = random.Unit() - 0.5f;
        const float dy = random.Unit() - 0.5f;
        Vector2 direction{dx, dy};
        Normalise(direction);
        Particle& particle = water.particles[i];
        particle.position = centre + direction * distance;
        for (Vector2& past : particle.positionHistory) {
            past = particle.position;
        }
        particle.temperature = water.roomTemperature;
    }
}

void CreateParticles(float x, float y, float radius, std::uint32_t amount) {
    CreateParticles(current, Random::current, {x, y}, radius, amount);
}

void Step(const WaterParts& parts, const View& view, float dt) {
    VANTREL_ASSERT(dt >= 0.0f);
    const WaterStep step(parts, view, dt);
    std::erase_if(step.water.particles, HoldsUnreasonable);
    RandomAhead random(parts.random, parts.work.chance);
    StepParticles(step, view.centre, random);
    ParticleMover::Cohere(parts, dt, random);
    GroupedParticleMover::Freeze(parts);
    GroupedParticleMover::Step(step);
}

void Step(const View& view, float dt) {
    Step(Parts(), view, dt);
}

WaterParts Parts() {
    return {current, LevelData::current, Collision::current, Random::current, workspace};
}

void KillParticle(Particle& particle) {
    current.Kill(particle);
}

std::uint32_t Count() {
    return static_cast<std::uint32_t>(particles.size());
}

std::size_t AllWater() {
    return current.AllWater();
}

void ClearAll() {
    particles.clear();
    current.groups.clear();
    ParticleMover::ClearGrid();
}

}  // namespace ParticleManager
