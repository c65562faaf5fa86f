// The emitters of the level and the flight of the particles they throw.

#include "water/FxParticleManager.h"

#include <algorithm>
#include <iterator>

#include "actors/Camera.h"
#include "actors/ViewSquare.h"
#include "engine/Console.h"
#include "engine/Text.h"
#include "game/Game.h"
#include "water/ParticleManager.h"

namespace FxParticleManager {

std::list<Emitter> emitters;
std::list<FxParticle> particles;
bool drawEmitters = false;

namespace {

/// Nodes of particles that are gone, for those to come: steps allocate only while the number
/// of particles grows beyond what there ever was.
std::list<FxParticle> spare;

void PrintUsage() {
    Console::Print(
        "\nUSAGE: Emitter create < x : number > < y : number > < dir_x : number > "
        "< dir_y : number > < id : integer > < emitter settings : fileName > ");
}

void CreateFromText(std::string text) {
    const std::vector<std::string> words = SplitWords(text);
    if (words.size() != 6 || !IsNumber(words[0]) || !IsNumber(words[1]) || !IsNumber(words[2]) ||
        !IsNumber(words[3]) || !IsInteger(words[4])) {
        PrintUsage();
        return;
    }
    Emitter emitter;
    emitter.position = {ToNumber(words[0]), ToNumber(words[1])};
    emitter.SetDirection(ToNumber(words[2]), ToNumber(words[3]));
    emitter.id = static_cast<std::uint32_t>(ToInteger(words[4]));
    emitter.LoadSettings(words[5]);
    Add(emitter);
}

void StepEmitters(float dt) {
    const ViewSquare view =
        ViewSquare::Around(std::max(Game::ViewWidth(), Game::ViewHeight()) * 0.5f * Camera::zoom);
    for (Emitter& emitter : emitters) {
        const Vector2 at = emitter.position;
        if (!emitter.running || !view.Overlaps(at.x, at.x, at.y, at.y)) {
            continue;
        }
        emitter.timeSinceEmit += dt;
        while (emitter.timeSinceEmit >= emitter.frequency) {
            emitter.timeSinceEmit -= emitter.frequency;
            emitter.EmitOne();
        }
    }
}

void StepParticles(float dt) {
    // What gravity adds in this step, before the step's length comes in a second time below.
    const Vector2 pull = Camera::GravityDirection() * ParticleManager::gravity * dt;
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
    Console::AddCommand("FxEmitterCreate", CreateFromText);
    Console::AddCommand("FxEmitterDraw", [](bool value, bool isSet) {
        if (isSet) {
            drawEmitters = value;
        }
        return drawEmitters;
    });
    Console::AddCommand("FxEmitterCount", [] { return static_cast<int>(emitters.size()); });
    Console::AddCommand("FxParticleCount", [] { return static_cast<int>(particles.size()); });
}

void Shutdown() {
    Console::Print("\nShutting down FX particle manager..");
    particles.clear();
    spare.clear();
    emitters.clear();
    for (const char* const command :
         {"FxEmitterCreate", "FxEmitterDraw", "FxEmitterCount", "FxParticleCount"}) {
        Console::RemoveCommand(command);
    }
}

void Add(const Emitter& emitter) {
    emitters.push_back(emitter);
}

void AddParticle(const FxParticle& particle) {
    if (spare.empty()) {
        particles.push_back(particle);
        return;
    }
    spare.front() = particle;
    particles.splice(particles.end(), spare, spare.begin());
}

void ClearParticles() {
    spare.splice(spare.end(), particles);
}

void Step(float dt) {
    StepEmitters(dt);
    StepParticles(dt);
}

}  // namespace FxParticleManager
