#pragma once
// The device that puts textures into the current GL context.

#include "graphics/TextureManager.h"

class GLTextureDevice : public TextureDevice {
public:
    std::uint32_t Generate() override;
    void Delete(std::uint32_t glName) override;
    /// With trilinear filtering; sizes that aren't powers of two are stretched to the nearest.
    void Upload(std::uint32_t glName, const std::uint32_t* pixels, std::uint32_t width,
                std::uint32_t height, const Options& options) override;
    void SetAnisotropy(std::uint32_t glName, int anisotropy) override;
    void SetCompressionHint(bool nicest) override;
    int MaxAnisotropy() override;
    bool HasCompression() override;
    std::optional<Platform::ImageFile> LoadImage(const std::filesystem::path& path) override;
};
