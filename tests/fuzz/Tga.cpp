// Any bytes as a TGA image: refused, or as many pixels as the header says.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "graphics/TgaReader.h"

namespace {

class Block : public BufferedFile {
public:
    Block(const std::uint8_t* first, std::size_t size) {
        const auto* bytes = reinterpret_cast<const std::byte*>(first);
        Adopt(std::vector<std::byte>(bytes, bytes + size));
    }
    void Open(const std::string& /*name*/) override {}
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Block block(data, size);
    TgaImage image;
    if (ReadTga(block, image) && image.pixels.size() != std::size_t{image.width} * image.height) {
        std::abort();
    }
    return 0;
}
