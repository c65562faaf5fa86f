#pragma once
// One particle of water, ice or steam. There is no state field: ice is a member of a group;
// free water lies between `freezingPoint` and `boilingPoint`, free steam from there on.

#include <cstdint>
#include <vector>

#include "engine/Vector2.h"

/// Degrees: ice up to the first, steam from the second on.
constexpr float freezingPoint = 0.0f;
constexpr float boilingPoint = 100.0f;

struct Particle {
    /// Collision radius of every particle, world units.
    static constexpr float radius = 2.0f;

    // What motion and neighbours read stands first and together.

    Vector2 position;          ///< world units
    Vector2 velocity;          ///< units per second
    Vector2 pushVelocity;      ///< added to `velocity` for one move, then cleared
    float temperature = 0.0f;  ///< degrees
    // The grid's cell; of a step's start, or of an earlier one's if `inGrid` isn't set.
    std::uint32_t gridX = 0;
    std::uint32_t gridY = 0;
    std::uint8_t inGrid = 0;
    std::uint8_t dying = 0;
    float killTimer = 0.0f;      ///< seconds left once `dying` is set
    Vector2 groupDirection;      ///< unit; the place in a group
    float groupScale = 0.0f;     ///< 0..1; the place in a group
    float speed = 0.0f;          ///< length of the whole velocity after this step's move
    Vector2 positionHistory[3];  ///< after the last three steps, the newest first
};

/// In the order in which the rules walk them: a list's front is the array's.
using ParticleList = std::vector<Particle>;

/// One rigid lump of ice.
struct ParticleGroup {
    ParticleList particles;
    float radius = 0.0f;        ///< of the circle that collides
    float targetRadius = 0.0f;  ///< what `radius` grows towards
    Vector2 position;
    Vector2 velocity;
    Vector2 pushVelocity;
    std::uint8_t hitThisStep = 0;  ///< made a contact in this step's move
    float temperature = 0.0f;      ///< degrees, for the whole lump
    std::uint8_t dying = 0;
    float killTimer = 0.0f;
};
using GroupList = std::vector<ParticleGroup>;
