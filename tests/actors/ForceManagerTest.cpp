#include "actors/ForceManager.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

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
