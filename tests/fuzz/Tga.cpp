// Any bytes as a TGA image: refused, or as many pixels as the header says.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "graphics/TgaBytes.h"
#include "graphics/TgaReader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    TgaBytes::MemoryFile file(std::string(reinterpret_cast<const char*>(data), size));
    TgaImage image;
    if (ReadTga(file, image) && image.pixels.size() != std::size_t{image.width} * image.height) {
        std::abort();
    }
    return 0;
}
