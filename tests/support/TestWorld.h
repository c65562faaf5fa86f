#pragma once
// A small level made in code that runs as in the game: movers, water and triggers, with the
// camera at a place. Polygons, movers, forces and triggers first, then Start, then Steps.

#include <utility>

#include "actors/Camera.h"
#include "actors/ForceManager.h"
#include "actors/LevelObjectsManager.h"
#include "actors/MoverManager.h"
#include "actors/TriggerManager.h"
#include "engine/Random.h"
#include "level/BspTree.h"
#include "level/LevelData.h"
#include "platform/Paths.h"
#include "support/TemporaryDirectory.h"
#include "support/TestLevel.h"
#include "water/FxParticleManager.h"
#include "water/GroupedParticleMover.h"
#include "water/ParticleManager.h"

class TestWorld {
public:
    static constexpr float gravity = 500.0f;

    explicit TestWorld(Vector2 camera = {}) {
        directory.Write("cfg/water.cfg",
                        "gravity 500 roomTemperature 20 heatTransferRate 0.2\n"
                        "particleKillTime 1\n"
                        "triggerTemperatureChangeSpeed 80\n"
                        "triggerTemperatureChangeAmountIce 40\n"
                        "triggerTemperatureChangeAmountSteam 160\n"
                        "particleGroupInterpolation 0.02 groupExpandSpeed 0.05\n"
                        "iceGravityStrenght 0.8\n");
        Platform::ForgetListings();
        Random::state = 0;
        LevelData::Clear();
        ParticleManager::particles.reserve(4096);  // references hold while it is filled
        GroupedParticleMover::groups.reserve(64);
        LevelObjectsManager::Initialise();
        ForceManager::Initialise();
        MoverManager::Initialise();
        FxParticleManager::Initialise();
        TriggerManager::Initialise();
        ParticleManager::Initialise();
        TemperatureChangeReadConfig();
        Camera::position = camera;
        Camera::shakeOffset = {};
        Camera::angle = 0.0f;
        Camera::zoom = 1.0f;
    }
    ~TestWorld() {
        ParticleManager::Shutdown();
        BspTree::Destroy();
        LevelObjectsManager::Shutdown();
        ForceManager::Shutdown();
        TriggerManager::Shutdown();
        MoverManager::Shutdown();
        FxParticleManager::Shutdown();
        LevelData::Clear();
        Platform::ForgetListings();
    }
    TestWorld(const TestWorld&) = delete;
    TestWorld& operator=(const TestWorld&) = delete;

    static LevelPolygon& Add(LevelPolygon polygon, std::uint32_t id = 0) {
        polygon.id = id;
        return LevelData::Add(std::move(polygon));
    }
    static Mover& AddMover(std::uint32_t id, Vector2 start, Vector2 end, float speed,
                           int state = Mover::Stopped) {
        Mover mover;
        mover.id = id;
        mover.SetPath(start, end);
        mover.speed = speed;
        mover.state = state;
        MoverManager::Add(mover);
        return MoverManager::movers.back();
    }
    /// A rectangular trigger.
    static Trigger& AddTrigger(TriggerKind kind, Vector2 topLeft, Vector2 bottomRight,
                               std::uint32_t targetId = 0, float delay = 0.0f) {
        TriggerManager::Add(static_cast<int>(kind), targetId, delay, topLeft,
                            {bottomRight.x, topLeft.y}, bottomRight, {topLeft.x, bottomRight.y});
        return TriggerManager::triggers.back();
    }
    static Particle& AddParticle(Vector2 position, float temperature = 20.0f) {
        Particle& particle = ParticleManager::particles.emplace_back();
        particle.position = position;
        particle.temperature = temperature;
        return particle;
    }
    /// A block of resting water with its top left particle at `at`.
    static void AddWater(Vector2 at, int columns, int rows, float temperature = 20.0f) {
        constexpr float spacing = 4.0f;
        for (int i = 0; i < columns * rows; ++i) {
            AddParticle(at + Vector2{static_cast<float>(i % columns) * spacing,
                                     static_cast<float>(i / columns) * spacing},
                        temperature);
        }
    }
    /// The level as it is after loading: what movers carry stays out of the tree.
    static void Start() {
        for (LevelPolygon& polygon : LevelData::polygons) {
            for (const Mover& mover : MoverManager::movers) {
                if (mover.id == polygon.id) {
                    polygon.movedByMover = 1;
                }
            }
        }
        BspTree::Build(LevelData::polygons);
        LevelData::MapSegments();
    }
    static void Step(float dt = 1.0f / 60.0f) {
        MoverManager::CollectVisible(Camera::Look());
        MoverManager::Step(Camera::Look(), dt);
        ParticleManager::Step(Camera::Look(), dt);
        TriggerManager::Step(Camera::Look(), dt);
    }
    static void Steps(int count, float dt = 1.0f / 60.0f) {
        for (int i = 0; i < count; ++i) {
            Step(dt);
        }
    }

private:
    TemporaryDirectory directory;
    WorkingDirectoryGuard inDirectory{directory.path};
};
