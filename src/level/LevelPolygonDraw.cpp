// A polygon's debug view.

#include "graphics/GLWindowDraw.h"
#include "level/LevelPolygon.h"

void LevelPolygon::DrawWireframe() const {
    constexpr DebugDraw::Colour red{1.0f, 0.0f, 0.0f};
    const DebugDraw::State state;
    const auto corner = [this](std::size_t i) {
        return Vector2{triangleX[i], triangleY[i]} + offset;
    };
    for (std::size_t t = 0; t < triangleCount; ++t) {
        for (std::size_t c = 0; c < 3; ++c) {
            DebugDraw::Line(corner(3 * t + c), corner(3 * t + (c + 1) % 3), red);
        }
    }
}
