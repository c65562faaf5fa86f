// Renders the pictures of the opening film with the game's own water and drawing: 600 of them,
// 30 to a second, 800 by 600, as raw RGB rows from the top on standard output. What happens
// goes with the sound track: water falls (to second 5), freezes (to 9.5), thaws and boils away
// (to 15). It needs a display and the level that art/intro/level.py draws.
//   intro-film LEVEL

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>

#include "PictureWindow.h"
#include "actors/Camera.h"
#include "actors/LevelObjectsManager.h"
#include "engine/Presentation.h"
#include "engine/Random.h"
#include "game/Game.h"
#include "game/GameScreen.h"
#include "game/Services.h"
#include "menus/MenuManager.h"
#include "platform/DataRoot.h"
#include "water/FxParticleManager.h"
#include "water/GroupedParticleMover.h"
#include "water/ParticleManager.h"

namespace {

constexpr int width = 800;
constexpr int height = 600;
constexpr int pictures = 600;
constexpr int stepsPerPicture = 2;
constexpr float stepSeconds = 1.0f / 60.0f;

// The level's places, world units.
constexpr Vector2 spout{400.0f, 176.0f};
constexpr float ground = 430.0f;

/// Where `time` stands between two moments, 0 to 1.
float Share(float time, float from, float to) {
    return std::clamp((time - from) / (to - from), 0.0f, 1.0f);
}

/// First drops, then a thread, then a stream.
void Pour(float time, int step) {
    if (time < 0.4f || time > 4.7f) {
        return;
    }
    const int pause = time < 1.5f ? 20 : time < 2.3f ? 6 : 1;
    if (step % pause == 0) {
        ParticleManager::CreateParticles(spout.x, spout.y, 6.0f, time < 1.5f ? 4 : 8);
    }
}

void Approach(float& value, float target, float rate) {
    value += std::clamp(target - value, -rate * stepSeconds, rate * stepSeconds);
}

/// What the air does to matter at a place: cold creeps in from the sides and from above.
/// Then all of it is brought to just below the boil, and what boils stays hot.
void ChangeTemperature(float& temperature, Vector2 place, float time) {
    if (time < 4.8f) {
        Approach(temperature, 20.0f, 200.0f);
    } else if (time < 9.5f) {
        const float aside = std::abs(place.x - spout.x) / 60.0f;
        const float above = (ground - place.y) / 50.0f;
        const float first = std::clamp(aside * 0.5f + above * 0.5f, 0.0f, 1.0f);
        const bool cold = time > 5.0f + 2.4f * (1.0f - first);
        Approach(temperature, cold ? -40.0f : 12.0f, 60.0f);
    } else if (time < 11.8f) {
        Approach(temperature, 60.0f, 70.0f);
    } else {
        Approach(temperature, temperature > boilingPoint ? 400.0f : 60.0f, 200.0f);
    }
}

void ChangeTemperatures(float time) {
    for (Particle& particle : ParticleManager::particles) {
        ChangeTemperature(particle.temperature, particle.position, time);
    }
    for (ParticleGroup& group : GroupedParticleMover::groups) {
        ChangeTemperature(group.temperature, group.position, time);
    }
}

/// In each step some water goes, from all over, and as much steam rises off its top. (Steam
/// within water only warms it.)
void Boil(float time) {
    constexpr unsigned perStep = 8;
    if (time < 12.2f || time > 15.0f) {
        return;
    }
    auto& particles = ParticleManager::particles;
    const std::size_t stride = particles.size() / perStep + 1;
    std::size_t next = Random::Next() % stride;
    unsigned gone = 0;
    for (Particle& particle : particles) {
        if (next == 0 && particle.temperature < boilingPoint) {
            ParticleManager::KillParticle(particle);
            ++gone;
        }
        next = next == 0 ? stride - 1 : next - 1;
    }
    ParticleManager::CreateParticles(spout.x, ground - 44.0f, 18.0f, gone);
    for (Particle& particle : particles) {
        if (gone-- == 0) {
            break;
        }
        particle.temperature = 400.0f;
        particle.velocity = {200.0f * (Random::Unit() - 0.5f), -60.0f - 120.0f * Random::Unit()};
    }
}

void Step(float time, int step) {
    Pour(time, step);
    ChangeTemperatures(time);
    Boil(time);
    const bool boiling = time > 12.3f && time < 15.2f;
    for (Emitter& emitter : FxParticleManager::emitters) {
        emitter.running = boiling ? 1 : 0;
    }
    FxParticleManager::Step(Camera::Look(), stepSeconds);
    ParticleManager::Step(Camera::Look(), stepSeconds);
    LevelObjectsManager::Step(stepSeconds);
}

float Ease(float share) {
    return share * share * (3.0f - 2.0f * share);
}

/// Up to the ice when it has all fallen, and back with the steam.
void MoveCamera(float time) {
    const float near = Ease(Share(time, 4.4f, 7.4f)) - Ease(Share(time, 11.8f, 15.6f));
    const float drift = Share(time, 0.0f, 20.0f);
    Camera::zoom = 0.74f - 0.06f * drift - 0.26f * near;
    Camera::position = {400.0f, 288.0f + 78.0f * near - 20.0f * drift};
    Camera::angle = 0.0f;
}

void Film() {
    int step = 0;
    for (int picture = 0; picture < pictures; ++picture) {
        for (int i = 0; i < stepsPerPicture; ++i, ++step) {
            const float time = static_cast<float>(step) * stepSeconds;
            MoveCamera(time);
            Step(time, step);
        }
        Presentation::Current().DrawFrame();
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("Usage: intro-film LEVEL > PICTURES\n", stderr);
        return 2;
    }
    Platform::FindDataRoot(argv[0]);
    PictureWindow window(width, height);
    GameScreen screen;
    const Services services({.window = &window,
                             .screen = screen.Parts(),
                             .title = "Film",
                             .width = width,
                             .height = height});
    Game::Initialise(argv[1]);
    const bool loaded = !Game::MapName().empty();
    if (loaded) {
        MenuManager::Show(MenuManager::None);
        ParticleManager::ClearAll();
        window.recording = true;
        Film();
        window.recording = false;
    } else {
        std::fprintf(stderr, "intro-film: %s can't be loaded\n", argv[1]);
    }
    return loaded ? 0 : 1;
}
