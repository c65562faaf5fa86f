#include "actors/Trigger.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace {

Trigger Shape(Vector2 a, Vector2 b, Vector2 c, Vector2 d) {
    Trigger trigger;
    trigger.SetCorners(a, b, c, d);
    return trigger;
}

bool InBox(const Trigger& trigger, Vector2 p) {
    return p.x >= trigger.minX - trigger.boxReach && p.x <= trigger.maxX + trigger.boxReach &&
           p.y >= trigger.minY - trigger.boxReach && p.y <= trigger.maxY + trigger.boxReach;
}

TEST(Trigger, ContainsTheSamePointsForEitherTurningDirection) {
    const Vector2 a{0.0f, 0.0f};
    const Vector2 b{10.0f, 0.0f};
    const Vector2 c{10.0f, 10.0f};
    const Vector2 d{0.0f, 10.0f};
    for (const Trigger& trigger : {Shape(a, b, c, d), Shape(a, d, c, b), Shape(c, d, a, b)}) {
        for (const Vector2 inside : {Vector2{5.0f, 5.0f}, Vector2{2.0f, 8.0f}, Vector2{8.0f, 2.0f},
                                     a, b, c, d, Vector2{5.0f, 0.0f}, Vector2{10.0f, 5.0f}}) {
            EXPECT_TRUE(trigger.Contains(inside)) << inside.x << " " << inside.y;
        }
        for (const Vector2 outside : {Vector2{-0.01f, 5.0f}, Vector2{5.0f, 10.01f}}) {
            EXPECT_FALSE(trigger.Contains(outside)) << outside.x << " " << outside.y;
        }
        EXPECT_EQ(trigger.Centre(), (Vector2{5.0f, 5.0f}));
    }
}

TEST(Trigger, CoversBothTrianglesWhenItsCornersCross) {
    const Trigger bow = Shape({0.0f, 0.0f}, {10.0f, 0.0f}, {0.0f, 10.0f}, {10.0f, 10.0f});
    EXPECT_TRUE(bow.Contains({1.0f, 1.0f}));
    EXPECT_TRUE(bow.Contains({4.0f, 8.0f}));
    EXPECT_FALSE(bow.Contains({9.5f, 5.0f}));
}

TEST(Trigger, IsEnteredByNothingIfACornerIsNoNumber) {
    const Trigger trigger =
        Shape({std::nanf(""), 0.0f}, {10.0f, 0.0f}, {10.0f, 10.0f}, {0.0f, 10.0f});
    EXPECT_FALSE(InBox(trigger, {5.0f, 5.0f}));
}

// The box only saves work: no point outside of it may be contained. Needles and shapes without
// area are where rounding could carry the contained points out of the box.
TEST(Trigger, ContainsNothingOutsideOfItsWidenedBox) {
    std::mt19937 random(1);
    std::uniform_int_distribution<int> corner(-20, 20);
    std::uniform_real_distribution<float> place(-400.0f, 400.0f);
    int thin = 0;
    for (int round = 0; round < 3000; ++round) {
        const auto pick = [&] {
            return Vector2{static_cast<float>(corner(random) * 10),
                           static_cast<float>(corner(random) / 5)};
        };
        const Trigger trigger = Shape(pick(), pick(), pick(), pick());
        thin += std::isinf(trigger.boxReach) ? 1 : 0;
        for (int i = 0; i < 50; ++i) {
            // Places on whole numbers hit the lines of thin triangles.
            const Vector2 p =
                i % 2 == 0 ? Vector2{place(random), place(random) / 20.0f}
                           : Vector2{std::round(place(random)), std::round(place(random) / 100.0f)};
            if (trigger.Contains(p)) {
                EXPECT_TRUE(InBox(trigger, p)) << p.x << " " << p.y;
            }
        }
    }
    EXPECT_GT(thin, 100);
}

}  // namespace
