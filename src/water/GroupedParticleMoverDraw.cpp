// The debug view of the groups.

#include "graphics/GLWindowDraw.h"
#include "water/GroupedParticleMover.h"

void GroupedParticleMover::Draw() {
    if (!groupDraw) {
        return;
    }
    const DebugDraw::State state;
    for (const ParticleGroup& group : groups) {
        DebugDraw::Circle(group.position, group.radius, {1.0f, 0.0f, 0.0f});
    }
}
