#pragma once
// A straight path along which a mover slides whatever bears its id.

#include <cstdint>

#include "engine/Vector2.h"

struct Mover {
    enum State {
        Stopped = 0,
        GoingToEnd = 1,
        GoingToStart = 2,
        LoopingToStart = 3,
        LoopingToEnd = 4,
    };

    /// Sets the path and what follows from it. A path of no length, or of one beyond
    /// any level, gets length 0 and no direction.
    void SetPath(Vector2 from, Vector2 to);
    /// One step along the path, turning or stopping at its ends.
    void Advance(float dt);
    /// Where the carried things are, relative to the start.
    Vector2 Offset() const { return direction * distance; }

    std::uint32_t id = 0;  ///< carries all with this id; target of triggers; not unique
    Vector2 start;
    Vector2 end;
    Vector2 direction;      ///< unit, from `start` to `end`; (0, 0) if `length` is 0
    float length = 0.0f;    ///< distance from `start` to `end`
    float speed = 0.0f;     ///< units per second
    float distance = 0.0f;  ///< along the path: 0 at `start`, `length` at `end`
    int state = Stopped;
};
