// Reading of image files through SDL_image. The library is used for decoding alone: SDL itself
// is never initialised, so it owns no window, no signal handler and no thread.

#include "platform/ImageFile.h"

#include <SDL.h>
#include <SDL_image.h>

#include <algorithm>
#include <memory>
#include <new>
#include <string>
#include <utility>

#include "platform/ImageHeader.h"
#include "platform/WholeFile.h"

namespace Platform {

namespace {

struct SurfaceDeleter {
    void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
};
using Surface = std::unique_ptr<SDL_Surface, SurfaceDeleter>;

/// Depths other than whole bytes (and 15 bits, which SDL calls 16 only at times) are turned
/// into 32 bits by SDL.
Surface WithKnownDepth(Surface surface) {
    const SDL_PixelFormat& format = *surface->format;
    const int bits = format.BitsPerPixel;
    if (bits == 8 || bits == 16 || bits == 24 || bits == 32) {
        return surface;
    }
    SDL_PixelFormat wanted{};
    wanted.BitsPerPixel = 32;
    wanted.BytesPerPixel = 4;
    wanted.Rmask = 0x00FF0000;
    wanted.Gmask = 0x0000FF00;
    wanted.Bmask = 0x000000FF;
    wanted.Amask = 0xFF000000;
    wanted.Rshift = 16;
    wanted.Gshift = 8;
    wanted.Ashift = 24;
    return Surface(SDL_ConvertSurface(surface.get(), &wanted, SDL_SWSURFACE));
}

/// By the decoder of that kind alone: the library would else try all that it knows.
Surface Decode(std::span<const std::byte> file, ImageKind kind) {
    constexpr std::size_t longest = 1u << 30;  // the library counts in int
    struct SourceCloser {
        void operator()(SDL_RWops* source) const { SDL_RWclose(source); }
    };
    const std::unique_ptr<SDL_RWops, SourceCloser> source(
        file.size() > longest ? nullptr
                              : SDL_RWFromConstMem(file.data(), static_cast<int>(file.size())));
    if (!source) {
        return nullptr;
    }
    switch (kind) {
        case ImageKind::Png:
            return Surface(IMG_LoadPNG_RW(source.get()));
        case ImageKind::Gif:
            return Surface(IMG_LoadGIF_RW(source.get()));
        case ImageKind::Jpeg:
            return Surface(IMG_LoadJPG_RW(source.get()));
        case ImageKind::Bmp:
            return Surface(IMG_LoadBMP_RW(source.get()));
        case ImageKind::Tga:
            return Surface(IMG_LoadTGA_RW(source.get()));
    }
    return nullptr;
}

void CopyPalette(const SDL_PixelFormat& format, ImageFile& image) {
    image.palette.fill(0xFF000000);
    if (!format.palette) {
        return;
    }
    const int count = std::clamp(format.palette->ncolors, 0, 256);
    for (int i = 0; i < count; ++i) {
        const SDL_Color& colour = format.palette->colors[i];
        image.palette[static_cast<std::size_t>(i)] =
            0xFF000000u | static_cast<std::uint32_t>(colour.r) << 16 |
            static_cast<std::uint32_t>(colour.g) << 8 | colour.b;
    }
}

}  // namespace

std::optional<ImageFile> ReadImageFile(const std::filesystem::path& path) {
    const auto bytes = ReadWholeFile(path);
    std::string extension = path.extension().string();
    extension.erase(0, 1);
    return bytes ? DecodeImage(*bytes, extension) : std::nullopt;
}

std::optional<ImageFile> DecodeImage(std::span<const std::byte> file, std::string_view extension) {
    const auto kind = CheckedImageKind(file, extension);
    Surface surface = kind ? Decode(file, *kind) : nullptr;
    if (!surface || surface->w < 1 || surface->h < 1) {
        return std::nullopt;
    }
    surface = WithKnownDepth(std::move(surface));
    if (!surface || !surface->pixels) {
        return std::nullopt;
    }
    const SDL_PixelFormat& format = *surface->format;
    ImageFile image;
    image.width = static_cast<std::uint32_t>(surface->w);
    image.height = static_cast<std::uint32_t>(surface->h);
    image.bitsPerPixel = format.BitsPerPixel;
    image.pitch = surface->pitch;
    image.red = {format.Rmask, format.Rshift, format.Rloss};
    image.green = {format.Gmask, format.Gshift, format.Gloss};
    image.blue = {format.Bmask, format.Bshift, format.Bloss};
    image.alpha = {format.Amask, format.Ashift, format.Aloss};
    image.hasColourKey = (surface->flags & SDL_SRCCOLORKEY) != 0;
    image.colourKey = format.colorkey;
    if (format.BitsPerPixel == 8) {
        CopyPalette(format, image);
    }
    if (SDL_MUSTLOCK(surface.get()) && SDL_LockSurface(surface.get()) != 0) {
        return std::nullopt;
    }
    const auto* first = static_cast<const std::byte*>(surface->pixels);
    bool copied = true;
    try {
        image.pixels.assign(first, first + std::size_t{image.pitch} * image.height);
    } catch (const std::bad_alloc&) {
        copied = false;
    }
    if (SDL_MUSTLOCK(surface.get())) {
        SDL_UnlockSurface(surface.get());
    }
    return copied ? std::optional(std::move(image)) : std::nullopt;
}

}  // namespace Platform
