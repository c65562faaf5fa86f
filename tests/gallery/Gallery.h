#pragma once
// The game running the gallery level without a screen, for tests that pour water into one bay
// and look at what becomes of it. The level is loaded once for all tests of a program and
// restarted before each.

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "actors/LevelObjectsManager.h"
#include "actors/MoverManager.h"
#include "actors/TriggerManager.h"
#include "engine/Vector2.h"
#include "water/FxParticleManager.h"
#include "water/ParticleManager.h"

class Gallery : public testing::Test {
protected:
    static constexpr float inside = 260.0f;  ///< width and height of a bay
    static constexpr int frameMs = 16;

    static void SetUpTestSuite();
    static void TearDownTestSuite();
    void SetUp() override;

    /// Makes the bay with this name plate the one that the calls below speak of, and points the
    /// camera at it.
    void Enter(const std::string& title);
    /// Enters a bay and drops water below its plate.
    void Pour(const std::string& title, std::uint32_t amount = 40, float temperature = 20.0f);
    void Pour(std::uint32_t amount, float temperature = 20.0f);
    /// Runs frames, at about one step each.
    static void Run(float seconds);
    /// Runs frames until the condition holds; false if it doesn't within the time.
    static bool RunUntil(const std::function<bool()>& holds, float seconds);

    bool IsInBay(Vector2 point) const;
    /// From the bay's top left.
    Vector2 At(float x, float y) const { return origin + Vector2{x, y}; }
    Trigger& TriggerOf(TriggerKind kind) const;
    Mover& MoverOf() const;
    Emitter& EmitterOf() const;
    LevelPolygon& PolygonOf(std::uint32_t id) const;
    /// The object that isn't the plate.
    LevelObject& ObjectOf() const;
    /// The effect particles of the bay's emitter.
    std::vector<const FxParticle*> Effects() const;

    // The water, free and frozen, dying particles left out.
    static std::vector<Vector2> Water();
    static Vector2 MeanWater();
    /// Whether all water lies inside of the bay and is finite.
    bool HoldsAllWater() const;

    Vector2 origin;  ///< top left of the bay's inside
};
