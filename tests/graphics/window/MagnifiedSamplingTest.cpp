// Cheaper reading of textures mustn't show.

#include "graphics/MagnifiedSamplingDraw.h"

#include <utility>

#include "WindowFixture.h"

namespace {

class MagnifiedSamplingTest : public WindowFixture {
protected:
    /// The green channel of a turned square full of the texture's repeats.
    static std::vector<std::uint8_t> Picture(const Texture& texture, float scale, bool wanted) {
        glClear(GL_COLOR_BUFFER_BIT);
        glLoadIdentity();
        glScalef(scale, scale, 0.0f);
        glRotatef(11.0f, 0.0f, 0.0f, 1.0f);
        glEnable(GL_TEXTURE_2D);
        glBindTexture(GL_TEXTURE_2D, texture.glName);
        {
            MagnifiedSampling sampling;
            sampling.Use(wanted);
            glBegin(GL_QUADS);
            for (const auto& [u, v] : {std::pair{0, 0}, {1, 0}, {1, 1}, {0, 1}}) {
                glTexCoord2f(static_cast<float>(u * 320) / static_cast<float>(texture.width),
                             static_cast<float>(v * 320) / static_cast<float>(texture.height));
                glVertex2i(u * 320, v * 320);
            }
            glEnd();
        }
        return ReadChannel(GL_GREEN, 0, 0, 320, 240);
    }
};

TEST_F(MagnifiedSamplingTest, DoesNotShowAtAnyScale) {
    const Texture texture("samples\\rgb.png", nullptr);
    for (const float scale : {0.3f, 0.4f, 0.9f, 1.0f, 1.2f, 3.7f}) {
        EXPECT_TRUE(Picture(texture, scale, false) == Picture(texture, scale, true)) << scale;
    }
}

}  // namespace
