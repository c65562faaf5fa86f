#pragma once
// Checks of an image file before a decoder sees it. Decoders allocate by the size that a file
// announces, and trust much of the rest; so only kinds that are checked here reach one.

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

namespace Platform {

enum class ImageKind { Png, Gif, Jpeg, Bmp, Tga };

/// The kind of the file (of TGA, which has no mark, the extension alone tells, and then always),
/// if the picture that it announces is within the bounds (platform/ImageBounds.h), is of a form
/// that the decoders are right about, and could be held by a file of that length, by the best
/// ratio that its kind of packing can reach. A TGA file must hold all of its pixels. None for
/// everything else, like pictures in printing colours.
std::optional<ImageKind> CheckedImageKind(std::span<const std::byte> file,
                                          std::string_view extension);

}  // namespace Platform
