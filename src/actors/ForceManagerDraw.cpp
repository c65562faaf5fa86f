// Debug view of the forces.

#include <cstdio>

#include "actors/DebugLabels.h"
#include "actors/ForceManager.h"
#include "graphics/GLWindowDraw.h"

namespace ForceManager {

namespace {

DebugLabels labels;

void DrawForce(const Force& force) {
    const Colour colour = force.enabled ? Colours::green : Colours::red;
    const Vector2 tip = force.position + force.direction * 32.0f;
    const Vector2 back = tip - force.direction * 8.0f;
    const Vector2 side = Vector2{-force.direction.y, force.direction.x} * 8.0f;
    DebugDraw::Point(force.position, colour, 3.0f);
    DebugDraw::Line(force.position, tip, colour);
    DebugDraw::Line(tip, back + side, colour);
    DebugDraw::Line(tip, back - side, colour);

    char text[64];
    std::snprintf(text, sizeof text, "Id: %1i , Strenght: %1f ", static_cast<int>(force.id),
                  static_cast<double>(force.strength));
    labels.Add(force.position + Vector2{0.0f, 40.0f}, text);
}

}  // namespace

void Draw(const View& view) {
    if (!forceDraw) {
        return;
    }
    const DebugDraw::State state;
    labels.Begin(view);
    for (const Force& force : forces) {
        DrawForce(force);
    }
    labels.Draw();
}

}  // namespace ForceManager
