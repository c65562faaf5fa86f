#pragma once
// A texture device without GL, for tests that look at what would have gone there.

#include <map>
#include <string>
#include <vector>

#include "graphics/TextureManager.h"

/// Keeps what would have gone to GL. Image files read as 2 by 2 red pixels of 24 bits.
class RecordingDevice : public TextureDevice {
public:
    struct Shown {
        std::uint32_t width, height;
        std::uint32_t firstPixel;
    };

    std::uint32_t Generate() override { return ++last; }
    void Delete(std::uint32_t glName) override { shown.erase(glName); }
    void Upload(std::uint32_t glName, const std::uint32_t* pixels, std::uint32_t width,
                std::uint32_t height, const Options& /*options*/) override {
        shown[glName] = {width, height, pixels[0]};
        ++uploads;
    }
    void SetAnisotropy(std::uint32_t /*glName*/, int /*value*/) override {}
    void SetCompressionHint(bool /*value*/) override {}
    int MaxAnisotropy() override { return 0; }
    bool HasCompression() override { return false; }
    std::optional<Platform::ImageFile> LoadImage(const std::filesystem::path& path) override {
        loaded.push_back(path.filename());
        if (path.filename() == "broken.png") {
            return std::nullopt;
        }
        Platform::ImageFile image;
        image.width = image.height = 2;
        image.bitsPerPixel = 24;
        image.pitch = 8;
        image.blue = {0x0000FF, 0, 0};
        image.green = {0x00FF00, 8, 0};
        image.red = {0xFF0000, 16, 0};
        image.pixels.assign(16, std::byte{0});
        image.pixels[2] = std::byte{255};
        return image;
    }

    std::map<std::uint32_t, Shown> shown;
    std::vector<std::string> loaded;
    std::uint32_t last = 0;
    int uploads = 0;
};
