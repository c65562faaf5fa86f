#pragma once
// How textures lie on polygons: tiled over the level from the world's origin, one world unit
// a pixel, so that neighbours join without a seam.

#include <cstdint>

/// World units after which a texture repeats. An image without pixels counts as one of one
/// pixel.
inline float TextureRepeat(std::uint32_t pixels) {
    return pixels == 0 ? 1.0f : static_cast<float>(pixels);
}
