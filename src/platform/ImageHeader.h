#pragma once
// A look at an image file's header before a decoder sees it. Decoders take memory by the size
// that a file announces; a few bytes could so ask for gigabytes.

#include <cstddef>
#include <span>
#include <string_view>

namespace Platform {

/// Whether a file of that length could hold the picture that it announces, by the best ratio
/// that its kind of packing can reach. Kinds other than PNG, GIF, JPEG, BMP and TGA (which is
/// known by its extension alone) pass unseen.
bool CouldHoldItsPicture(std::span<const std::byte> file, std::string_view extension);

}  // namespace Platform
