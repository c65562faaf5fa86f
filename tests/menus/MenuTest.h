#pragma once
// The world that screens and widgets are tested in: a clock that advances when told, a window
// without a display, pictures of known sizes in a directory of their own, and a painter that
// keeps what was painted.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "graphics/GLWindow.h"
#include "graphics/RecordingDevice.h"
#include "graphics/TextureManager.h"
#include "graphics/TgaBytes.h"
#include "menus/GuiPainter.h"
#include "menus/GuiScreen.h"
#include "platform/Clock.h"
#include "platform/HeadlessWindow.h"
#include "platform/Paths.h"
#include "support/TemporaryDirectory.h"

/// Keeps the texts that were painted, in order.
class RecordingPainter : public GuiPainter {
public:
    void DrawText(const Texture&, const char* text, float, float, float, const Colour&) override {
        texts.emplace_back(text);
    }
    void DrawTextCentred(const Texture&, const char* text, const GuiRect&, float,
                         const Colour&) override {
        texts.emplace_back(text);
    }

    void Forget() { texts.clear(); }

    std::vector<std::string> texts;
};

class MenuTest : public testing::Test {
protected:
    MenuTest() {
        Platform::UseClock(&clock);
        Platform::UseWindow(&window);
        GLWindow::Create("", 800, 600);
        Platform::ForgetListings();
        TextureManager::UseDevice(&device);
        TextureManager::Initialise();
        GuiPainter::Use(&painter);
    }
    ~MenuTest() override {
        GuiPainter::Use(nullptr);
        TextureManager::Shutdown();
        TextureManager::UseDevice(nullptr);
        GLWindow::Close();
        Platform::UseWindow(nullptr);
        Platform::UseClock(nullptr);
        Platform::ForgetListings();
    }

    /// Writes a picture of that size.
    void WritePicture(const std::string& name, int width, int height) {
        TgaBytes::Header header;
        header.width = width;
        header.height = height;
        const auto pixels = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
        directory.Write(name, TgaBytes::HeaderBytes(header) + std::string(pixels * 4, '\x7f'));
        Platform::ForgetListings();
    }
    /// Lets time go by and paints once, with nothing kept of what was painted before.
    template <class Painted>
    void PaintAfter(Painted& painted, std::uint32_t milliseconds) {
        clock.Advance(milliseconds);
        painter.Forget();
        painted.OnPaint();
    }

    TemporaryDirectory directory;
    WorkingDirectoryGuard here{directory.path};
    Platform::ScriptedClock clock;
    Platform::HeadlessWindow window;
    RecordingDevice device;
    RecordingPainter painter;
};
