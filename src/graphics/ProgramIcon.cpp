// Reads the one kind of icon file that we make: a single 32 by 32 picture of 24 bits with a
// mask, both from the bottom row up.

#include "graphics/ProgramIcon.h"

#include <array>

#include "engine/ByteReader.h"
#include "engine/EmbeddedResources.h"
#include "platform/Window.h"

namespace {

constexpr int size = 32;
constexpr std::size_t fileHeaderBytes = 22;  // directory and its one entry
constexpr std::size_t imageHeaderBytes = 40;
constexpr std::size_t maskRowBytes = size / 8;

using Pixels = std::array<unsigned char, size * size * 4>;  // RGBA, the top row first

unsigned char* Row(Pixels& pixels, int row) {
    return pixels.data() + (size - 1 - row) * size * 4;
}

void ReadColours(ByteReader& reader, Pixels& pixels) {
    for (int row = 0; row < size; ++row) {
        unsigned char* pixel = Row(pixels, row);
        for (int x = 0; x < size; ++x, pixel += 4) {
            pixel[2] = reader.U8();
            pixel[1] = reader.U8();
            pixel[0] = reader.U8();
        }
    }
}

void ReadMask(ByteReader& reader, Pixels& pixels) {
    for (int row = 0; row < size; ++row) {
        unsigned char* pixel = Row(pixels, row);
        for (std::size_t byte = 0; byte < maskRowBytes; ++byte) {
            const unsigned bits = reader.U8();
            for (unsigned bit = 0x80; bit != 0; bit >>= 1, pixel += 4) {
                pixel[3] = (bits & bit) != 0 ? 0 : 255;
            }
        }
    }
}

}  // namespace

void ShowProgramIcon() {
    ByteReader reader(EmbeddedResources::Find("PROGRAM_ICON"));
    reader.Skip(fileHeaderBytes + imageHeaderBytes);
    Pixels pixels;
    ReadColours(reader, pixels);
    ReadMask(reader, pixels);
    if (!reader.HasFailed()) {
        Platform::TheWindow().SetIcon(pixels.data(), size, size);
    }
}
