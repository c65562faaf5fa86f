#pragma once
// The program's own reader of 32-bit TGA images, uncompressed or run-length coded. It takes
// any open block, so that textures on disk and textures built into the program read alike.
// Images that it refuses (24 bits, palettes) are left to the general image reader.

#include <cstdint>
#include <vector>

#include "engine/BufferedFile.h"

struct TgaImage {
    std::uint32_t width = 0;  ///< as the header says, also after a refusal
    std::uint32_t height = 0;
    std::vector<std::uint32_t> pixels;  ///< BGRA in memory, the top row first
};

/// False if the header asks for more than this reader does, or for a picture beyond the bounds
/// of platform/ImageBounds.h, or if the block doesn't hold all of it; no memory is taken then.
bool ReadTga(BufferedFile& file, TgaImage& image);
