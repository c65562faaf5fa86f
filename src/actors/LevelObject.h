#pragma once
// A textured sprite of the level, still or animated, that movers carry and triggers switch. It
// doesn't collide.

#include <cstdint>
#include <string>

#include "engine/Vector2.h"
#include "graphics/TextureSet.h"

struct LevelObject {
    static constexpr std::uint32_t layerCount = 5;

    /// Loads `frames` from a texture name; one with "_FRAME" names an animation.
    void SetTexture(const std::string& name);
    /// Back to the first frame, with no plays done.
    void Rewind();
    /// The centre of what is drawn.
    Vector2 Centre() const { return position + offset; }
    /// Of the current frame, world units; nothing without frames.
    Vector2 HalfSize() const;

    std::uint8_t enabled = 1;  ///< drawn; triggers switch it
    std::uint32_t id = 0;      ///< what movers and triggers address; not unique
    std::uint32_t layer = 0;   ///< 0 to 4
    TextureSet frames;
    std::uint32_t frameCount = 1;
    std::uint32_t frame = 0;      ///< the current one
    float frameTimer = 0.0f;      ///< seconds since the last change of frame
    Vector2 position;             ///< centre of the sprite
    Vector2 offset;               ///< displacement by movers
    std::uint8_t mirrored = 0;    ///< drawn flipped left to right
    std::uint8_t stopped = 1;     ///< the animation stands; objects wait for a trigger
    std::uint32_t playLimit = 0;  ///< plays to do; 0: loop for ever
    std::uint32_t plays = 0;      ///< plays done
};
