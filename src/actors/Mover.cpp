// A mover's way along its path.

#include "actors/Mover.h"

#include <algorithm>
#include <cmath>

#include "platform/Assert.h"

namespace {

/// Far beyond any level, world units; keeps offsets and their sums finite.
constexpr float furthest = 1.0e12f;

}  // namespace

void Mover::SetPath(Vector2 from, Vector2 to) {
    start = from;
    end = to;
    direction = end - start;
    length = Length(direction);
    if (length > 0.0f && length <= furthest) {
        Normalise(direction);
    } else {
        length = 0.0f;
        direction = {};
    }
}

void Mover::Advance(float dt) {
    VANTREL_ASSERT(state >= Stopped && state <= LoopingToEnd);
    constexpr float shortestStep = 0.0000001f;
    const float d = speed * std::max(dt, shortestStep);
    switch (state) {
        case GoingToEnd:
        case LoopingToEnd:
            distance += d;
            if (distance > length) {
                distance = length;
                state = state == LoopingToEnd ? LoopingToStart : Stopped;
            }
            break;
        case GoingToStart:
        case LoopingToStart:
            distance -= d;
            if (distance < 0.0f) {
                distance = 0.0f;
                state = state == LoopingToStart ? LoopingToEnd : Stopped;
            }
            break;
        default:
            break;
    }
    // A negative speed leaves the path at the wrong end and never comes to a limit there.
    if (!(std::fabs(distance) <= furthest)) {
        distance = 0.0f;
        state = Stopped;
    }
}
