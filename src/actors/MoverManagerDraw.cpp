// Debug views of the movers' paths and of the edges they carry.

#include <cstdio>

#include "actors/DebugLabels.h"
#include "actors/MoverManager.h"
#include "graphics/GLWindowDraw.h"
#include "level/LevelData.h"

namespace MoverManager {

namespace {

DebugLabels labels;

void DrawMovers(const View& view) {
    labels.Begin(view);
    for (const Mover& mover : movers) {
        DebugDraw::Line(mover.start, mover.end, Colours::white);
        DebugDraw::Point(mover.start, Colours::green, 3.0f);
        DebugDraw::Point(mover.end, Colours::green, 3.0f);
        char text[64];
        std::snprintf(text, sizeof text, "Id: %1i Speed: %2f ", static_cast<int>(mover.id),
                      static_cast<double>(mover.speed));
        labels.Add(mover.start + Vector2{4.0f, 4.0f}, text);
    }
    labels.Draw();
}

void DrawCollider(const MoverCollider& collider) {
    const PolygonState& polygon = LevelData::StateOf(*collider.polygon);
    const Colour colour = polygon.solid ? Colours::green : Colours::red;
    const Vector2 offset = polygon.offset;
    for (const BspSegment& edge : collider.edges) {
        const Vector2 start = edge.start + offset;
        const Vector2 end = edge.end + offset;
        const Vector2 middle = (start + end) * 0.5f;
        DebugDraw::Line(start, end, colour);
        DebugDraw::Line(middle, middle + edge.normal * 8.0f, colour);
        DebugDraw::Point(start, colour, 2.0f);
        DebugDraw::Point(end, colour, 2.0f);
    }
}

}  // namespace

void Draw(const View& view) {
    if (!moverDraw && !dynamicNodeDraw) {
        return;
    }
    const DebugDraw::State state;
    if (dynamicNodeDraw) {
        for (const MoverCollider& collider : colliders) {
            DrawCollider(collider);
        }
    }
    if (moverDraw) {
        DrawMovers(view);
    }
}

}  // namespace MoverManager
