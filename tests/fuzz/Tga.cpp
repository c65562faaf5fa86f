// Any bytes as a TGA image: refused, or as many pixels as the header says.

#include "fuzz/Harness.h"
#include "graphics/TgaBytes.h"
#include "graphics/TgaReader.h"

void Try(std::string_view input) {
    TgaBytes::MemoryFile file{std::string(input)};
    TgaImage image;
    Expect(!ReadTga(file, image) || image.pixels.size() == std::size_t{image.width} * image.height);
}
