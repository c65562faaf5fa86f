#pragma once
// Turns an image file's own pixel form into the one form that textures are made of.

#include <cstdint>
#include <vector>

#include "platform/ImageFile.h"

struct ConvertedImage {
    std::uint32_t bytesPerPixel = 0;  ///< of the file: 1 to 4
    bool hasAlpha = false;            ///< an alpha channel or a colour key
    /// Words of blue in bits 0-7, green, red, alpha in bits 24-31; the top row first, without
    /// padding.
    std::vector<std::uint32_t> pixels;
};

/// Empty pixels if the image's rows don't fill its buffer, its depth isn't 8, 16, 24 or 32, or
/// memory runs out.
ConvertedImage ConvertImage(const Platform::ImageFile& image);
