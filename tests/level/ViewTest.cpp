#include "level/View.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

/// Turned by the angle whose cosine and sine these are, each product rounded by itself.
Vector2 Turned(Vector2 v, float c, float s) {
    const volatile float xc = v.x * c;
    const volatile float ys = v.y * s;
    const volatile float xs = v.x * s;
    const volatile float yc = v.y * c;
    return {xc - ys, xs + yc};
}

/// Compilers are tempted where the processor can round a product and a sum in one.
TEST(View, RoundsEachProductInEveryBuild) {
    View view{.centre = {123.456f, -78.9f}};
    int different = 0;
    for (int i = 0; i < 1000; ++i) {
        view.angle = static_cast<float>(i) * 0.12f - 60.0f;
        view.zoom = 1.0f + static_cast<float>(i) * 0.001f;
        const float c = std::cos(view.angle * degreesToRadians);
        const float s = std::sin(view.angle * degreesToRadians);
        const Vector2 half{view.zoom * 400.0f, view.zoom * 300.0f};
        const Vector2 corner = Turned(half, c, s) + view.centre;
        const Vector2 found = view.Rectangle().corner[2];
        different += found.x != corner.x || found.y != corner.y ? 1 : 0;
    }
    EXPECT_EQ(different, 0);
}

}  // namespace
