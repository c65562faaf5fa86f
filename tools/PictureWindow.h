#pragma once
// A window whose pictures go to standard output, for programs that make films and sheets.

#include <GL/gl.h>

#include <cstddef>
#include <cstdio>
#include <vector>

#include "platform/GlfwWindow.h"

/// While `recording`, takes each finished picture as raw RGB rows from the top on, instead of
/// showing it.
class PictureWindow : public Platform::GlfwWindow {
public:
    PictureWindow(int pictureWidth, int pictureHeight)
        : width(pictureWidth), height(pictureHeight) {}

    void SwapBuffers() override {
        if (!recording) {
            GlfwWindow::SwapBuffers();
            return;
        }
        const std::size_t rowLength = static_cast<std::size_t>(width) * 3;
        rows.resize(rowLength * static_cast<std::size_t>(height));
        glPixelStorei(GL_PACK_ALIGNMENT, 1);
        glReadPixels(0, 0, width, height, GL_RGB, GL_UNSIGNED_BYTE, rows.data());
        for (auto y = static_cast<std::size_t>(height); y-- > 0;) {
            std::fwrite(&rows[y * rowLength], 1, rowLength, stdout);
        }
    }

    bool recording = false;

private:
    int width;
    int height;
    std::vector<unsigned char> rows;
};
