#pragma once
// A real window and working directory for what the game shows outside of its frames. Each swap
// of buffers is looked at.

#include <GL/gl.h>
#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <functional>
#include <optional>
#include <string>

#include "engine/Console.h"
#include "game/Services.h"
#include "graphics/GLWindow.h"
#include "graphics/TextureDeviceDraw.h"
#include "graphics/TextureManager.h"
#include "platform/GlfwWindow.h"
#include "platform/Paths.h"
#include "support/TemporaryDirectory.h"

/// Calls `onSwap` with the finished picture, in the thread that swaps.
class WatchedWindow : public Platform::GlfwWindow {
public:
    void SwapBuffers() override {
        if (onSwap) {
            onSwap();
        }
        ++swaps;
        GlfwWindow::SwapBuffers();
    }
    std::function<void()> onSwap;
    std::atomic<int> swaps = 0;
};

class GameWindow : public testing::Test {
protected:
    void SetUp() override {
        Platform::ForgetListings();
        StartServices(window);
    }
    void TearDown() override {
        if (GLWindow::IsOpen()) {
            EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
        }
        GLWindow::SetListener(nullptr);
        services.reset();
    }
    /// In place of those that are up.
    void StartServices(Platform::Window& onWindow) {
        services.reset();
        services.emplace(ServiceOptions{.window = &onWindow,
                                        .screen = {&device},
                                        .audio = sound,
                                        .title = "Vantrel test",
                                        .width = 400,
                                        .height = 300});
    }

    /// One pixel of the finished picture, counted from the top left corner, as 0xRRGGBB.
    static unsigned Pixel(int x, int y) {
        unsigned char rgb[4] = {};
        glReadPixels(x, GLWindow::ClientHeight() - 1 - y, 1, 1, GL_RGB, GL_UNSIGNED_BYTE, rgb);
        return static_cast<unsigned>(rgb[0] << 16 | rgb[1] << 8 | rgb[2]);
    }
    /// Runs ffmpeg in the working directory.
    static void Ffmpeg(const std::string& arguments) {
        const std::string command =
            "mkdir -p vid && ffmpeg -nostdin -loglevel error -y " + arguments;
        ASSERT_EQ(std::system(command.c_str()), 0) << command;
    }

    TemporaryDirectory directory;
    WorkingDirectoryGuard guard{directory.path};
    WatchedWindow window;
    GLTextureDevice device;
    Platform::Audio* sound = nullptr;  ///< to be set before SetUp
    std::optional<Services> services;
};
