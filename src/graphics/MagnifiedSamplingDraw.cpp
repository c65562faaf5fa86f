// A sampler object takes the place of the textures' own filters, which stay as they are.

#define GL_GLEXT_PROTOTYPES
#include "graphics/MagnifiedSamplingDraw.h"

#include <GL/gl.h>
#include <GL/glext.h>

#include <algorithm>
#include <bit>
#include <cmath>

#include "graphics/GLWindowDisplay.h"

namespace {

/// The least pixels that a unit of length becomes, in whatever direction it lies: the smaller
/// singular value of the view's matrix.
float SmallestScale() {
    GLfloat m[16];
    glGetFloatv(GL_MODELVIEW_MATRIX, m);
    const float squares = m[0] * m[0] + m[1] * m[1] + m[4] * m[4] + m[5] * m[5];
    const float area = m[0] * m[5] - m[4] * m[1];
    const float spread = std::sqrt(std::max(0.0f, squares * squares - 4.0f * area * area));
    return std::sqrt(std::max(0.0f, (squares - spread) * 0.5f));
}

/// The driver stays the same for as long as the program runs.
bool HasSamplers() {
    static const bool has = GLWindow::HasExtension("GL_ARB_sampler_objects");
    return has;
}

/// One texel is one unit. Rounding in the matrix mustn't make a view of one to one seem less.
bool IsMagnified() {
    constexpr float rounding = 0.0001f;
    return SmallestScale() >= 1.0f - rounding;
}

}  // namespace

MagnifiedSampling::MagnifiedSampling() {
    // Halved textures are magnified all the more; slanted ones don't occur, so that a higher
    // anisotropy has no say here.
    if (!HasSamplers() || !IsMagnified()) {
        return;
    }
    glGenSamplers(1, &sampler);
    glSamplerParameteri(sampler, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glSamplerParameteri(sampler, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    glSamplerParameteri(sampler, GL_TEXTURE_WRAP_S, GL_REPEAT);
    glSamplerParameteri(sampler, GL_TEXTURE_WRAP_T, GL_REPEAT);
}

MagnifiedSampling::~MagnifiedSampling() {
    if (sampler != 0) {
        glBindSampler(0, 0);
        glDeleteSamplers(1, &sampler);
    }
}

bool MagnifiedSampling::Suits(std::uint32_t width, std::uint32_t height) {
    // GLU takes the nearest power of two.
    const auto keepsOrShrinks = [](std::uint32_t size) {
        return size < std::bit_floor(size) * 1.5;
    };
    return keepsOrShrinks(width) && keepsOrShrinks(height);
}

void MagnifiedSampling::Use(bool wanted) {
    if (sampler != 0) {
        glBindSampler(0, wanted ? sampler : 0);
    }
}
