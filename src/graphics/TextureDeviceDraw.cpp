// Uploads of images with their mipmaps. GLU stretches odd sizes and shrinks what is too large.

#include "graphics/TextureDeviceDraw.h"

#include <GL/gl.h>
#include <GL/glext.h>
#include <GL/glu.h>

#include <algorithm>
#include <bit>
#include <cstddef>
#include <vector>

#include "graphics/GLWindowDisplay.h"
#include "graphics/Mipmaps.h"

// Pixels are words with blue in the low byte; GL is told BGRA bytes.
static_assert(std::endian::native == std::endian::little);

namespace {

/// Whether the driver takes an image of that size as it is.
bool IsHeld(std::uint32_t width, std::uint32_t height) {
    GLint side = 0;
    glGetIntegerv(GL_MAX_TEXTURE_SIZE, &side);
    return std::max(width, height) <= static_cast<std::uint32_t>(std::max(side, 0));
}

/// All levels of the bound texture.
void UploadLevels(GLint internalFormat, const std::uint32_t* pixels, std::uint32_t width,
                  std::uint32_t height) {
    std::vector<std::uint32_t> level;
    for (GLint number = 0;; ++number) {
        glTexImage2D(GL_TEXTURE_2D, number, internalFormat, static_cast<GLsizei>(width),
                     static_cast<GLsizei>(height), 0, GL_BGRA_EXT, GL_UNSIGNED_BYTE, pixels);
        if (width == 1 && height == 1) {
            return;
        }
        level = Mipmaps::Halved({pixels, std::size_t{width} * height}, width, height);
        pixels = level.data();
        width = std::max(width / 2, 1u);
        height = std::max(height / 2, 1u);
    }
}

}  // namespace

std::uint32_t GLTextureDevice::Generate() {
    GLuint glName = 0;
    glGenTextures(1, &glName);
    return glName;
}

void GLTextureDevice::Delete(std::uint32_t glName) {
    glDeleteTextures(1, &glName);
}

void GLTextureDevice::Upload(std::uint32_t glName, const std::uint32_t* pixels, std::uint32_t width,
                             std::uint32_t height, const Options& options) {
    if (width == 0 || height == 0) {
        return;
    }
    glBindTexture(GL_TEXTURE_2D, glName);
    if (options.anisotropy > 0) {
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAX_ANISOTROPY_EXT, options.anisotropy);
    }
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR_MIPMAP_LINEAR);

    std::vector<std::uint32_t> half;
    if (options.quality == TextureQuality::Halved) {
        const std::uint32_t halfWidth = std::max(width / 2, 1u);
        const std::uint32_t halfHeight = std::max(height / 2, 1u);
        half.resize(std::size_t{halfWidth} * halfHeight);
        gluScaleImage(GL_BGRA_EXT, static_cast<GLsizei>(width), static_cast<GLsizei>(height),
                      GL_UNSIGNED_BYTE, pixels, static_cast<GLsizei>(halfWidth),
                      static_cast<GLsizei>(halfHeight), GL_UNSIGNED_BYTE, half.data());
        pixels = half.data();
        width = halfWidth;
        height = halfHeight;
    }
    GLint internalFormat = GL_RGBA;
    if (options.quality != TextureQuality::Full) {
        internalFormat = options.compression ? GL_COMPRESSED_RGBA_ARB : GL_RGBA4;
    }
    if (Mipmaps::CanHalve(width, height) && IsHeld(width, height)) {
        UploadLevels(internalFormat, pixels, width, height);
    } else {
        gluBuild2DMipmaps(GL_TEXTURE_2D, internalFormat, static_cast<GLsizei>(width),
                          static_cast<GLsizei>(height), GL_BGRA_EXT, GL_UNSIGNED_BYTE, pixels);
    }
}

void GLTextureDevice::SetAnisotropy(std::uint32_t glName, int anisotropy) {
    glBindTexture(GL_TEXTURE_2D, glName);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAX_ANISOTROPY_EXT, anisotropy);
}

void GLTextureDevice::SetCompressionHint(bool nicest) {
    glHint(GL_TEXTURE_COMPRESSION_HINT_ARB, static_cast<GLenum>(nicest ? GL_NICEST : GL_FASTEST));
}

int GLTextureDevice::MaxAnisotropy() {
    GLint value = 0;
    if (GLWindow::HasExtension("GL_EXT_texture_filter_anisotropic")) {
        glGetIntegerv(GL_MAX_TEXTURE_MAX_ANISOTROPY_EXT, &value);
    }
    return value;
}

bool GLTextureDevice::HasCompression() {
    return GLWindow::HasExtension("GL_ARB_texture_compression");
}

std::optional<Platform::ImageFile> GLTextureDevice::LoadImage(const std::filesystem::path& path) {
    return Platform::ReadImageFile(path);
}
