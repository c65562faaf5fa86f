#include "Gallery.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include "actors/Camera.h"
#include "engine/Text.h"
#include "game/Game.h"
#include "game/HeadlessGame.h"
#include "game/Notice.h"
#include "level/LevelData.h"
#include "menus/MenuManager.h"
#include "platform/DataRoot.h"
#include "water/GroupedParticleMover.h"
#include "water/ParticleMover.h"

namespace {

std::unique_ptr<HeadlessGame> theGame;

constexpr float plateX = 130.0f;  // of a plate's centre, from the top left of its bay
constexpr float plateY = 16.0f;

void RunFrame(int ms) {
    theGame->Frame(static_cast<std::uint32_t>(ms));
}

std::string TextureOf(const std::string& title) {
    std::string name;
    for (const char c : UpperCased(title)) {
        const bool isPlain = (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
        name += isPlain ? c : '_';
    }
    return "IMG\\GALLERY\\" + name + ".PNG";
}

template <class List, class Wanted>
auto& TheOneOf(List& list, Wanted wanted) {
    const auto found = std::ranges::find_if(list, wanted);
    EXPECT_NE(found, list.end()) << "the bay has none";
    return found != list.end() ? *found : list.front();
}

}  // namespace

void Gallery::SetUpTestSuite() {
    Platform::UseDataRoot(VANTREL_SOURCE_DIR "/data");
    theGame = std::make_unique<HeadlessGame>(800, 600);
    ASSERT_TRUE(theGame->Start("gallery.swah")) << LastReason();
    for (int i = 0; i < 16; ++i) {  // until the mean of the frames' times is there
        RunFrame(frameMs);
    }
}

void Gallery::TearDownTestSuite() {
    theGame.reset();
}

void Gallery::SetUp() {
    Game::RequestRestart();
    RunFrame(frameMs);
    MenuManager::Show(MenuManager::None);  // that of a finished level stays open
    ParticleManager::ClearAll();
}

void Gallery::Enter(const std::string& title) {
    const std::string texture = TextureOf(title);
    const LevelObject& plate = TheOneOf(
        LevelObjectsManager::objects,
        [&](const LevelObject& object) { return UpperCased(object.frames[0].name) == texture; });
    ASSERT_EQ(UpperCased(plate.frames[0].name), texture);
    origin = plate.position - Vector2{plateX, plateY};
    Camera::SetState(Camera::Following);
    Camera::position = At(inside / 2.0f, inside / 2.0f);
}

void Gallery::Pour(const std::string& title, std::uint32_t amount, float temperature) {
    Enter(title);
    Pour(amount, temperature);
}

void Gallery::Pour(std::uint32_t amount, float temperature) {
    const Vector2 spout = At(plateX, 60.0f);
    ParticleManager::CreateParticles(spout.x, spout.y, 10.0f, amount);
    auto particle = ParticleManager::particles.begin();
    for (std::uint32_t i = 0; i < amount; ++i, ++particle) {
        particle->temperature = temperature;
    }
}

void Gallery::Run(float seconds) {
    RunUntil([] { return false; }, seconds);
}

bool Gallery::RunUntil(const std::function<bool()>& holds, float seconds) {
    const int frames = static_cast<int>(seconds * 1000.0f) / frameMs;
    for (int i = 0; i < frames; ++i) {
        RunFrame(frameMs);
        if (holds()) {
            return true;
        }
    }
    return false;
}

bool Gallery::IsInBay(Vector2 point) const {
    const Vector2 local = point - origin;
    return local.x >= 0.0f && local.x <= inside && local.y >= 0.0f && local.y <= inside;
}

Trigger& Gallery::TriggerOf(TriggerKind kind) const {
    return TheOneOf(TriggerManager::triggers, [&](const Trigger& trigger) {
        return trigger.Kind() == kind && IsInBay(trigger.Centre());
    });
}

Mover& Gallery::MoverOf() const {
    return TheOneOf(MoverManager::movers, [&](const Mover& mover) { return IsInBay(mover.start); });
}

Emitter& Gallery::EmitterOf() const {
    return TheOneOf(FxParticleManager::emitters,
                    [&](const Emitter& emitter) { return IsInBay(emitter.position); });
}

LevelPolygon& Gallery::PolygonOf(std::uint32_t id) const {
    return TheOneOf(LevelData::polygons,
                    [&](const LevelPolygon& polygon) { return polygon.id == id; });
}

LevelObject& Gallery::ObjectOf() const {
    return TheOneOf(LevelObjectsManager::animatedObjects,
                    [&](const LevelObject& object) { return IsInBay(object.position); });
}

std::vector<const FxParticle*> Gallery::Effects() const {
    const std::vector<Texture>& textures = EmitterOf().textures;
    std::vector<const FxParticle*> effects;
    for (const FxParticle& particle : FxParticleManager::particles) {
        if (particle.texture >= textures.data() &&
            particle.texture < textures.data() + textures.size()) {
            effects.push_back(&particle);
        }
    }
    return effects;
}

std::vector<Vector2> Gallery::Water() {
    std::vector<Vector2> places;
    const auto add = [&](const ParticleList& particles) {
        for (const Particle& particle : particles) {
            if (particle.dying == 0) {
                places.push_back(particle.position);
            }
        }
    };
    add(ParticleManager::particles);
    for (const ParticleGroup& group : GroupedParticleMover::groups) {
        add(group.particles);
    }
    return places;
}

Vector2 Gallery::MeanWater() {
    const std::vector<Vector2> places = Water();
    Vector2 sum;
    for (const Vector2 place : places) {
        sum += place;
    }
    return places.empty() ? sum : sum / static_cast<float>(places.size());
}

bool Gallery::HoldsAllWater() const {
    return std::ranges::all_of(Water(), [&](Vector2 place) { return IsInBay(place); });
}
