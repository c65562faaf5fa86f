#include "actors/ForceManager.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "engine/Console.h"

namespace {

TEST(ForceManager, IsFilledFromTheConsole) {
    Console::Initialise();
    ForceManager::Initialise();
    Console::Execute("ForceCreate 7 10 -20.5 0 3 12");
    ASSERT_EQ(ForceManager::forces.size(), 1u);
    const Force& force = ForceManager::forces.front();
    EXPECT_EQ(force.id, 7u);
    EXPECT_EQ(force.position, (Vector2{10.0f, -20.5f}));
    EXPECT_EQ(force.direction, (Vector2{0.0f, 1.0f}));
    EXPECT_EQ(force.strength, 12.0f);
    EXPECT_EQ(force.enabled, 1);
    Console::Execute("ForceCreate 7 10 20 0 x 12");
    EXPECT_TRUE(
        Console::OutputText().ends_with("\nUSAGE: MoveForceCreate  < id : integer > < x : number > "
                                        "< y : number > < dir_x : number > < dir_y : number > "
                                        "< strenght : number >"));
    EXPECT_EQ(ForceManager::forces.size(), 1u);
    ForceManager::Shutdown();
    EXPECT_TRUE(ForceManager::forces.empty());
    Console::Shutdown();
}

TEST(ForceManager, HoldsOnlyFiniteValues) {
    ForceManager::Initialise();
    const float infinity = std::numeric_limits<float>::infinity();
    const float values[] = {std::nanf(""), infinity, -infinity, 3.0e38f, 0.0f};
    for (const float value : values) {
        ForceManager::Add(1, value, value, value, value, value);
    }
    for (const Force& force : ForceManager::forces) {
        for (const float value : {force.position.x, force.position.y, force.direction.x,
                                  force.direction.y, force.strength}) {
            EXPECT_TRUE(std::isfinite(value));
        }
    }
    EXPECT_EQ(ForceManager::forces.back().direction, (Vector2{1.0f, 0.0f}));
    ForceManager::Shutdown();
}

}  // namespace
