#pragma once
// A real window with a GL context and the GL texture device, for tests that read pixels back.

#include <GL/gl.h>
#include <GL/glext.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "graphics/GLWindowDraw.h"
#include "graphics/Texture.h"
#include "graphics/TextureDeviceDraw.h"
#include "graphics/TextureManager.h"
#include "platform/DataRoot.h"
#include "platform/GlfwWindow.h"
#include "support/Places.h"

class WindowFixture : public testing::Test {
protected:
    using Pixels = std::vector<std::uint32_t>;  // alpha, red, green, blue from the high byte on

    void SetUp() override {
        Platform::UseWindow(&window);
        ASSERT_EQ(window.Create({.title = "Textures", .width = 320, .height = 240}),
                  Platform::WindowError::None);
        Platform::UseDataRoot(SourceDirectory() / "tests/graphics/window", true);
        TextureManager::UseDevice(&device);
        TextureManager::Initialise();
        GLWindow::SetPixelProjection();
        glClearColor(0.0f, 0.0f, 0.0f, 1.0f);
        glClear(GL_COLOR_BUFFER_BIT);
    }
    void TearDown() override {
        EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
        TextureManager::Shutdown();
        TextureManager::UseDevice(nullptr);
        window.Destroy();
        Platform::UseWindow(nullptr);
    }

    static GLint LevelZero(const Texture& texture, GLenum what) {
        GLint value = 0;
        glBindTexture(GL_TEXTURE_2D, texture.glName);
        glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, what, &value);
        return value;
    }
    static Pixels ReadTexture(const Texture& texture) {
        const auto count = static_cast<std::size_t>(LevelZero(texture, GL_TEXTURE_WIDTH) *
                                                    LevelZero(texture, GL_TEXTURE_HEIGHT));
        Pixels pixels(count);
        glGetTexImage(GL_TEXTURE_2D, 0, GL_BGRA, GL_UNSIGNED_BYTE, pixels.data());
        return pixels;
    }
    /// One channel of the window's picture, rows from the top.
    static std::vector<std::uint8_t> ReadChannel(GLenum channel, int x, int y, int w, int h) {
        std::vector<std::uint8_t> rows(static_cast<std::size_t>(w * h));
        glPixelStorei(GL_PACK_ALIGNMENT, 1);
        for (int row = 0; row < h; ++row) {
            glReadPixels(x, 240 - 1 - y - row, w, 1, channel, GL_UNSIGNED_BYTE,
                         &rows[static_cast<std::size_t>(row * w)]);
        }
        return rows;
    }

    Platform::GlfwWindow window;
    GLTextureDevice device;
};
