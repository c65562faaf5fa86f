#pragma once
// A small level with water in it, for tests.

#include <deque>
#include <utility>

#include "engine/Random.h"
#include "level/BspTree.h"
#include "level/Collision.h"
#include "platform/Paths.h"
#include "support/TemporaryDirectory.h"
#include "support/TestLevel.h"
#include "water/GroupedParticleMover.h"
#include "water/ParticleManager.h"
#include "water/ParticleMover.h"

/// Settings of its own, so that tuning the game changes no test; the level, if any, in the
/// tree; the view still, wide and upright round the given place; the random source at its start.
class WaterWorld {
public:
    explicit WaterWorld(std::deque<LevelPolygon> level = {}, Vector2 centre = {}, float zoom = 1.0f)
        : polygons(std::move(level)) {
        directory.Write("cfg/water.cfg",
                        "gravity 500 roomTemperature 20 heatTransferRate 0.2\n"
                        "steamRiseRate 0.4 steamScatterRate 0.6 particleKillTime 1\n"
                        "triggerTemperatureChangeSpeed 80\n"
                        "triggerTemperatureChangeAmountIce 40\n"
                        "triggerTemperatureChangeAmountSteam 160\n"
                        "particleGroupInterpolation 0.02 groupExpandSpeed 0.05\n"
                        "iceGravityStrenght 0.8\n");
        Platform::ForgetListings();
        Random::state = 0;
        ParticleManager::Initialise();
        ParticleManager::particles.reserve(32768);
        GroupedParticleMover::groups.reserve(64);
        TemperatureChangeReadConfig();
        view = {.centre = centre, .zoom = zoom};
        BspTree::Build(polygons);
    }
    ~WaterWorld() {
        ParticleManager::Shutdown();
        BspTree::Destroy();
        Platform::ForgetListings();
    }
    WaterWorld(const WaterWorld&) = delete;
    WaterWorld& operator=(const WaterWorld&) = delete;

    /// Behind all others. References hold while the world is filled.
    static Particle& Add(Vector2 position, Vector2 velocity = {}, float temperature = 20.0f) {
        Particle& particle = ParticleManager::particles.emplace_back();
        particle.position = position;
        for (Vector2& past : particle.positionHistory) {
            past = position;
        }
        particle.velocity = velocity;
        particle.temperature = temperature;
        return particle;
    }
    static void Steps(int count, float dt = 1.0f / 60.0f) {
        for (int i = 0; i < count; ++i) {
            ParticleManager::Step(view, dt);
        }
    }

    inline static View view;

private:
    TemporaryDirectory directory;
    WorkingDirectoryGuard here{directory.path};
    std::deque<LevelPolygon> polygons;
};

namespace WaterLevels {

/// A bowl of the given inner size with its top left at (0, 0), and boxes all round it: about
/// 100 edges in all, as many as a screen of a level holds.
inline std::deque<LevelPolygon> CrowdedBowl(float width, float height, float friction = 0.6f) {
    std::deque<LevelPolygon> level = TestLevel::Bowl(width, height);
    for (int i = 0; i < 11; ++i) {
        const float x = width * static_cast<float>(i) / 11.0f;
        level.push_back(TestLevel::Box(x, height + 60.0f, x + 20.0f, height + 80.0f));
        level.push_back(TestLevel::Box(x, -90.0f, x + 20.0f, -70.0f));
    }
    for (LevelPolygon& polygon : level) {
        polygon.SetFriction(friction);
    }
    return level;
}

}  // namespace WaterLevels
