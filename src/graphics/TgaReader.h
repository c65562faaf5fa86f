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

/// False if the header asks for more than this reader does, or if the block is too short for
/// the picture that the header announces. Never takes more memory than the block could fill.
bool ReadTga(BufferedFile& file, TgaImage& image);
