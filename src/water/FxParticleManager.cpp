// The emitters of the level and the flight of the particles they throw.

#include "water/FxParticleManager.h"

#include <algorithm>
#include <iterator>

#include "engine/Console.h"
#include "engine/ConsoleCommands.h"
#include "level/Limits.h"
#include "platform/Assert.h"
#include "water/ParticleManager.h"

namespace FxParticleManager {

std::list<Emitter> emitters;
std::list<FxParticle> particles;
bool drawEmitters = false;

namespace {

/// Nodes of particles that are gone, for those to come: steps allocate only while the number
/// of particles grows beyond what there ever was.
std::list<FxParticle> spare;
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
    {"FxEmitterCount", Console::Count<emitters>, "How many emitters there are."},
    {"FxParticleCount", Console::Count<particles>, "How many effect particles are in flight."},
};

void StepEmitters(const ViewSquare& square, float dt) {
    for (Emitter& emitter : emitters) {
        const Vector2 at = emitter.position;
        if (!emitter.running || !square.Overlaps(at.x, at.x, at.y, at.y)) {
            continue;
        }
        VANTREL_ASSERT(emitter.frequency >= 0.001f);
        emitter.timeSinceEmit += dt;
        while (emitter.timeSinceEmit >= emitter.frequency) {
            emitter.timeSinceEmit -= emitter.frequency;
            emitter.EmitOne();
        }
    }
}

void StepParticles(Vector2 down, float dt) {
    // What gravity adds in this step, before the step's length comes in a second time below.
    const Vector2 pull = down * ParticleManager::gravity * dt;
    for (auto particle = particles.begin(); particle != particles.end();) {
        const auto here = particle++;
        here->timeLeft -= dt;
        if (!(here->timeLeft > 0.0f)) {
            spare.splice(spare.begin(), particles, here);
            continue;
        }
        here->position += here->velocity * dt;
        here->velocity += pull * here->gravity * dt;
    }
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
    particles.clear();
    spare.clear();
    emitters.clear();
    hasComplained = false;
    commands.Remove();
}

void Add(const Emitter& emitter) {
    emitters.push_back(emitter);
}

void AddParticle(const FxParticle& particle) {
    VANTREL_ASSERT(particle.texture != nullptr);
    if (spare.empty()) {
        particles.push_back(particle);
        return;
    }
    spare.front() = particle;
    particles.splice(particles.end(), spare, spare.begin());
}

bool HasRoom() {
    if (particles.size() < Limits::effectParticles) {
        return true;
    }
    if (!hasComplained) {
        Console::Print("\nToo many effect particles fly, emitters wait. The most is ");
        Console::PrintUnsigned(static_cast<std::uint32_t>(Limits::effectParticles));
        Console::Print(".");
    }
    hasComplained = true;
    return false;
}

void ClearParticles() {
    spare.splice(spare.end(), particles);
}

void Step(const View& view, float dt) {
    VANTREL_ASSERT(dt >= 0.0f);
    StepEmitters(view.Emitting(), dt);
    StepParticles(view.Down(), dt);
}

}  // namespace FxParticleManager
