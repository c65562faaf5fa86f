// Debug view of the triggers.

#include <cstdio>

#include "actors/DebugLabels.h"
#include "actors/TriggerManager.h"
#include "graphics/GLWindowDraw.h"

namespace TriggerManager {

namespace {

DebugLabels labels;

void DrawTriangle(const TriggerTriangle& triangle, Colour colour) {
    for (std::size_t i = 0; i < 3; ++i) {
        const Vector2 from = triangle.corners[i];
        const Vector2 to = triangle.corners[(i + 1) % 3];
        const Vector2 middle = (from + to) * 0.5f;
        DebugDraw::Line(from, to, colour);
        DebugDraw::Line(middle, middle + triangle.normals[i], Colours::white);
    }
}

void DrawTrigger(const Trigger& trigger, const ViewSquare& square) {
    const bool active = square.Overlaps(trigger.minX, trigger.maxX, trigger.minY, trigger.maxY);
    const Colour colour = active ? Colours::white : Colours::red;
    DrawTriangle(trigger.triangleA, colour);
    DrawTriangle(trigger.triangleB, colour);
    char text[64];
    std::snprintf(text, sizeof text, "id: %1i name: %2s ", static_cast<int>(trigger.targetId),
                  trigger.typeInfo->name.data());
    labels.Add(trigger.Centre(), text);
}

}  // namespace

void Draw(const View& view) {
    if (!triggerDraw) {
        return;
    }
    const DebugDraw::State state;
    labels.Begin(view);
    const ViewSquare square = view.Triggering();
    for (const Trigger& trigger : triggers) {
        DrawTrigger(trigger, square);
    }
    labels.Draw();
}

}  // namespace TriggerManager
