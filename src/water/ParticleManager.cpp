// Life and step of the free particles; see ParticleManager.h.

#include "water/ParticleManager.h"

#include <cmath>

#include "engine/ConfigFile.h"
#include "engine/Console.h"
#include "engine/ConsoleCommands.h"
#include "engine/Random.h"
#include "platform/Assert.h"
#include "water/GroupedParticleMover.h"
#include "water/ParticleGrid.h"
#include "water/ParticleMover.h"
#include "water/WaterCheck.h"
#include "water/WaterStep.h"

namespace ParticleManager {

ParticleList particles;
float gravity = 0.0f;
float roomTemperature = 0.0f;
float heatTransferRate = 0.0f;
float steamRiseRate = 0.0f;
float steamScatterRate = 0.0f;
float particleKillTime = 0.0f;

namespace {

constexpr float shortestKillTime = 0.0001f;

using Iterator = ParticleList::iterator;

Iterator Erase(Iterator particle) {
    ParticleMover::GridRemove(*particle);
    return particles.erase(particle);
}

void DropUnreasonable() {
    for (auto it = particles.begin(); it != particles.end();) {
        const bool drop =
            IsBeyondReason(it->position, it->velocity, it->pushVelocity, it->temperature);
        it = drop ? Erase(it) : std::next(it);
    }
}

/// Gravity pulls water down; steam rises instead, and is pushed in a random direction.
void Accelerate(Particle& particle, Vector2 gravityStep) {
    if (particle.temperature < boilingPoint) {
        particle.velocity += gravityStep;
        return;
    }
    particle.velocity -= gravityStep * steamRiseRate;
    Vector2 scatter = gravityStep * steamScatterRate;
    Rotate(scatter, Random::Unit() * fullTurn);
    particle.velocity += scatter;
}

/// False if the particle is to go.
bool StepParticle(Particle& particle, const WaterStep& step, float dt) {
    if (step.rectangle.IsOutside(particle.position, Particle::radius + viewMargin)) {
        return false;
    }
    if (particle.dying != 0) {
        particle.killTimer -= dt;
        if (particle.killTimer <= 0.0f) {
            return false;
        }
    }
    Accelerate(particle, step.gravity);
    particle.temperature = step.Warmed(particle.temperature);
    particle.positionHistory[2] = particle.positionHistory[1];
    particle.positionHistory[1] = particle.positionHistory[0];
    particle.positionHistory[0] = particle.position;
    ParticleMover::MoveParticle(particle, dt);
    particle.speed = Length(particle.pushVelocity + particle.velocity);
    particle.pushVelocity = {};
    return true;
}

float HeatTransferRate(float value, bool isSet) {
    if (isSet) {
        heatTransferRate = value;
        Clamp(heatTransferRate, 0.0f, 1.0f);
    }
    return heatTransferRate;
}

const Console::CommandTable commands{
    {"Gravity", Console::Variable<gravity>, "How fast water falls, units per second squared."},
    {"RoomTemperature", Console::Variable<roomTemperature>, "What all water drifts to, degrees."},
    {"HeatTransferRate", HeatTransferRate,
     "Share of the gap to the room's temperature that closes in a second, 0 to 1."},
    {"SteamRiseRate", Console::Variable<steamRiseRate>,
     "How fast steam rises, as a factor on gravity."},
    {"SteamScatterRate", Console::Variable<steamScatterRate>,
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

void CreateParticles(float x, float y, float radius, std::uint32_t amount) {
    for (std::uint32_t i = 0; i < amount; ++i) {
        const float distance = Random::Unit() * radius;
        const float dx = Random::Unit() - 0.5f;
        const float dy = Random::Unit() - 0.5f;
        Vector2 direction{dx, dy};
        Normalise(direction);
        Particle& particle = particles.emplace_front();
        particle.position = Vector2{x, y} + direction * distance;
        for (Vector2& past : particle.positionHistory) {
            past = particle.position;
        }
        particle.temperature = roomTemperature;
    }
}

void Step(const View& view, float dt) {
    VANTREL_ASSERT(dt >= 0.0f);
    const WaterStep step(view, dt);
    DropUnreasonable();
    ParticleGrid::FillFrom(particles, view.centre);
    for (auto it = particles.begin(); it != particles.end();) {
        it = StepParticle(*it, step, dt) ? std::next(it) : Erase(it);
    }
    ParticleMover::Cohere(dt);
    GroupedParticleMover::Freeze(particles);
    GroupedParticleMover::Step(view, dt, particles);
    WaterCheck::AfterStep();
}

void KillParticle(Particle& particle) {
    if (particle.dying == 0) {
        particle.dying = 1;
        particle.killTimer = particleKillTime;
    }
}

std::uint32_t Count() {
    return static_cast<std::uint32_t>(particles.size());
}

std::size_t AllWater() {
    std::size_t count = particles.size();
    for (const ParticleGroup& group : GroupedParticleMover::groups) {
        count += group.particles.size();
    }
    return count;
}

void ClearAll() {
    particles.clear();
    GroupedParticleMover::groups.clear();
    ParticleMover::ClearGrid();
}

}  // namespace ParticleManager
