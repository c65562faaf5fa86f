// Cheaper programs mustn't show.

#include "graphics/TexturingDraw.h"

#include <utility>

#include "WindowFixture.h"

namespace {

class TexturingTest : public WindowFixture {
protected:
    void TearDown() override {
        Texturing::Shutdown();
        WindowFixture::TearDown();
    }
    /// All channels of a turned, tinted square over a grey ground.
    static std::vector<std::uint8_t> Picture(const Texture& texture, Texturing::Source source) {
        glClearColor(0.3f, 0.3f, 0.3f, 1.0f);
        glClear(GL_COLOR_BUFFER_BIT);
        glLoadIdentity();
        glRotatef(11.0f, 0.0f, 0.0f, 1.0f);
        glEnable(GL_TEXTURE_2D);
        glEnable(GL_BLEND);
        glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
        glBindTexture(GL_TEXTURE_2D, texture.glName);
        if (source == Texturing::Source::Tinted) {
            glColor4f(0.9f, 0.5f, 0.7f, 0.6f);
        } else {
            glColor4f(1.0f, 1.0f, 1.0f, 1.0f);
        }
        Texturing::Begin(source);
        glBegin(GL_QUADS);
        for (const auto& [u, v] : {std::pair{0, 0}, {1, 0}, {1, 1}, {0, 1}}) {
            glTexCoord2f(static_cast<float>(u) * 7.3f, static_cast<float>(v) * 7.3f);
            glVertex2i(u * 320, v * 320);
        }
        glEnd();
        Texturing::End();
        std::vector<std::uint8_t> picture;
        for (const GLenum channel : {GLenum{GL_RED}, GLenum{GL_GREEN}, GLenum{GL_BLUE}}) {
            const auto pixels = ReadChannel(channel, 0, 0, 320, 240);
            picture.insert(picture.end(), pixels.begin(), pixels.end());
        }
        return picture;
    }
    static void ExpectSamePicture(const char* image, Texturing::Source source) {
        const Texture texture(image, nullptr);
        Texturing::Shutdown();
        const auto plain = Picture(texture, source);
        Texturing::Initialise();
        EXPECT_TRUE(Picture(texture, source) == plain) << image;
        EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
    }
};

TEST_F(TexturingTest, LooksLikeTheFixedPipeline) {
    ExpectSamePicture("samples\\rgb.png", Texturing::Source::OpaqueTexture);
    for (const char* image : {"samples\\rgb.png", "samples\\rgba.png"}) {
        ExpectSamePicture(image, Texturing::Source::Texture);
        ExpectSamePicture(image, Texturing::Source::Tinted);
    }
}

TEST_F(TexturingTest, LeavesTheColourToWhatIsDrawnNext) {
    const Texture texture("samples\\rgb.png", nullptr);
    Texturing::Initialise();
    Picture(texture, Texturing::Source::Texture);
    glDisable(GL_TEXTURE_2D);
    glDisable(GL_BLEND);
    glLoadIdentity();
    glColor4f(1.0f, 0.0f, 0.0f, 1.0f);
    glRecti(0, 0, 320, 240);
    EXPECT_EQ(ReadChannel(GL_RED, 5, 5, 1, 1).front(), 255);
    EXPECT_EQ(ReadChannel(GL_GREEN, 5, 5, 1, 1).front(), 0);
}

}  // namespace
