// The emitters of the level and the flight of the particles they throw.

#include "water/FxParticleManager.h"

#include <vector>

#include "engine/Console.h"
#include "engine/ConsoleCommands.h"
#include "level/Limits.h"
#include "platform/Assert.h"
#include "water/ParticleManager.h"

bool EffectsState::HasRoom() {
    const bool hasRoom = particles.size() < Limits::effectParticles;
    isCrowded = isCrowded || !hasRoom;
    return hasRoom;
}

namespace FxParticleManager {

EffectsState current;
bool drawEmitters = false;

namespace {

bool hasComplained = false;  // of too many particles

void Create(float x, float y, float directionX, float directionY, std::uint32_t id,
            const std::string& settings) {
    Emitter emitter;
    emitter.position = {x, y};
    emitter.SetDirection(directionX, directionY);
    emitter.id = id;
    emitter.LoadSettings(settings);
    Add(emitter);
}

const Console::CommandTable commands{
    {"FxEmitterCreate", Console::Words<Create>, "Adds an emitter of effect particles.",
     "\nUSAGE: Emitter create < x : number > < y : number > < dir_x : number > "
     "< dir_y : number > < id : integer > < emitter settings : fileName > "},
    {"FxEmitterDraw", Console::Variable<drawEmitters>, "Shows the emitters."},
    {"FxEmitterCount", Console::Count<current, &EffectsState::emitters>,
     "How many emitters there are."},
    {"FxParticleCount", Console::Count<current, &EffectsState::particles>,
     "How many effect particles are in flight."},
};

void StepEmitters(EffectsState& effects, RandomNumbers& random, const ViewSquare& square,
                  float dt) {
    for (Emitter& emitter : effects.emitters) {
        const Vector2 at = emitter.position;
        if (!emitter.running || !square.Overlaps(at.x, at.x, at.y, at.y)) {
            continue;
        }
        VANTREL_ASSERT(emitter.frequency >= 0.001f);
        emitter.timeSinceEmit += dt;
        while (emitter.timeSinceEmit >= emitter.frequency) {
            emitter.timeSinceEmit -= emitter.frequency;
            emitter.EmitOne(effects, random);
        }
    }
}

/// False if its time is over.
bool StepParticle(FxParticle& particle, Vector2 pull, float dt) {
    particle.timeLeft -= dt;
    if (!(particle.timeLeft > 0.0f)) {
        return false;
    }
    particle.position += particle.velocity * dt;
    particle.velocity += pull * particle.gravity * dt;
    return true;
}

void StepParticles(std::vector<FxParticle>& list, Vector2 pull, float dt) {
    // Those that stay move up.
    std::size_t kept = 0;
    for (FxParticle& particle : list) {
        if (StepParticle(particle, pull, dt)) {
            list[kept++] = particle;
        }
    }
    list.resize(kept);
}

}  // namespace

void Initialise() {
    Shutdown();
    drawEmitters = false;
    Console::Print("\nInitialising FX particle manager..");
    commands.Add();
}

void Shutdown() {
    Console::Print("\nShutting down FX particle manager..");
    current = {};
    hasComplained = false;
    commands.Remove();
}

void Add(const Emitter& emitter) {
    emitters.push_back(emitter);
}

void AddParticle(const FxParticle& particle) {
    VANTREL_ASSERT(particle.texture != nullptr);
    particles.push_back(particle);
}

void TellOfCrowd() {
    if (current.isCrowded && !hasComplained) {
        Console::Print("\nToo many effect particles fly, emitters wait. The most is ");
        Console::PrintUnsigned(static_cast<std::uint32_t>(Limits::effectParticles));
        Console::Print(".");
        hasComplained = true;
    }
}

void ClearParticles() {
    particles.clear();
}

void Step(EffectsState& effects, RandomNumbers& random, float gravity, const View& view, float dt) {
    VANTREL_ASSERT(dt >= 0.0f);
    StepEmitters(effects, random, view.Emitting(), dt);
    // What gravity adds in this step, before the step's length comes in a second time.
    const Vector2 pull = view.Down() * gravity * dt;
    StepParticles(effects.particles, pull, dt);
}

void Step(const View& view, float dt) {
    Step(current, Random::current, ParticleManager::gravity, view, dt);
    TellOfCrowd();
}

}  // namespace FxParticleManager
