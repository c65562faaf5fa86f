#pragma once
// Reference-counted cache of textures by upper-cased file name. All other code holds `Texture`
// handles. Images come from the own TGA reader (32 bits), from SDL_image, from the program's
// embedded images, or, last, from a generated checkerboard; no failure reaches the caller. Without
// a device (a program without a screen) images aren't read at all, and names are only counted.

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "platform/ImageFile.h"

/// What a texture keeps of its image: all of it, less of its colours, or half its size as well.
enum class TextureQuality { Full, Compressed, Halved };

/// Where pixels go, and the reader of image files that only programs with a screen link; the
/// GL implementation is in graphics/TextureDeviceDraw.h.
class TextureDevice {
public:
    virtual ~TextureDevice() = default;
    struct Options {
        TextureQuality quality = TextureQuality::Full;
        bool compression = false;
        int anisotropy = 0;  ///< 0: there is no such filter
    };
    virtual std::uint32_t Generate() = 0;
    virtual void Delete(std::uint32_t glName) = 0;
    /// Pixels are 32-bit BGRA, the top row first, without padding.
    virtual void Upload(std::uint32_t glName, const std::uint32_t* pixels, std::uint32_t width,
                        std::uint32_t height, const Options& options) = 0;
    virtual void SetAnisotropy(std::uint32_t glName, int anisotropy) = 0;
    virtual void SetCompressionHint(bool nicest) = 0;
    virtual int MaxAnisotropy() = 0;  ///< 0: there is no such filter
    virtual bool HasCompression() = 0;
    /// Any image file but 32-bit TGA.
    virtual std::optional<Platform::ImageFile> LoadImage(const std::filesystem::path& path) = 0;
};

/// One cached texture, owned by the cache.
struct TextureRecord {
    std::uint32_t width = 0;  ///< of the source image
    std::uint32_t height = 0;
    std::uint32_t bytesPerPixel = 0;
    std::uint32_t glName = 0;  ///< kept over reloads
    bool hasAlpha = false;
    bool loadedFromFile = false;
    std::uint32_t refCount = 0;
    std::string name;          ///< the cache key
    std::string resourceName;  ///< embedded fallback; empty for none
    std::thread::id ownerThread;
};

namespace TextureManager {

/// Sets where pixels go, not owned; null for none. Before Initialise.
void UseDevice(TextureDevice* device);
void Initialise();
void Shutdown();

const TextureRecord& Acquire(const std::string& name, const char* resourceName);
void Release(const std::string& name);
/// Changes whenever all records are deleted at once, so that handles made before know that
/// they hold nothing any more.
std::uint32_t Generation();
/// Appends one line per record, in key order.
void List(std::vector<std::string>& lines);
std::uint32_t MemoryBytes();
void ReloadAll();
/// How often all images were loaded anew: what was worked out from them may have changed.
std::uint32_t ReloadCount();
/// Whether the image that the name shows now has an alpha channel or a colour key, unlike the
/// copy in a handle. True for a name that isn't cached.
bool HasAlpha(const std::string& name);
void SetQuality(TextureQuality value);
TextureQuality Quality();
void SetAnisotropy(int value);
int Anisotropy();

/// The files of an animated set ("..._FRAME..."), ascending; the upper-cased name alone if it
/// names no set; nothing if no file matches.
void ExpandFrameNames(std::string_view name, std::vector<std::string>& names);

}  // namespace TextureManager
