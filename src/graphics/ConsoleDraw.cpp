// Draws the console over the frame: the output's area, the input field below it, and the
// text of both, each as one batch of textured quads.

#include "graphics/ConsoleDraw.h"

#include <GL/gl.h>

#include <algorithm>
#include <optional>
#include <string_view>
#include <vector>

#include "engine/Console.h"
#include "graphics/GLWindow.h"
#include "graphics/GLWindowDraw.h"
#include "platform/VirtualKeys.h"

namespace Console {

namespace {

constexpr int minRows = 16;
constexpr int minColumns = 80;
constexpr int inputRows = 4;    // cells below the output's area
constexpr int borderWidth = 2;  // pixels

struct FontSheet {
    std::string name;  // what the settings called it when it was made
    Texture texture;
};
std::optional<FontSheet> font;

// As glInterleavedArrays takes them.
struct Vertex {
    float u, v;
    float x, y, z;
};
// Kept from frame to frame, so that drawing doesn't allocate.
std::vector<Vertex> vertices;

// Sizes of this frame, in cells, and the top of the input field, in pixels.
struct Area {
    int cell;
    int rows;
    int columns;
    float width;
    float height;
    float inputTop;
};

Area CurrentArea() {
    const int cell = settings.fontSize;
    const int width = GLWindow::ClientWidth();
    const int height = GLWindow::ClientHeight();
    const int rows = std::max(height / cell - inputRows, minRows);
    const int columns = std::max(width / cell, minColumns);
    return {cell,
            rows,
            columns,
            static_cast<float>(width),
            static_cast<float>(height),
            static_cast<float>(rows) * static_cast<float>(cell)};
}

void DrawBox(float left, float top, float right, float bottom, const Colour& colour) {
    const float corners[] = {left, top, right, top, right, bottom, left, bottom};
    glColor4fv(&colour.r);
    glInterleavedArrays(GL_V2F, 0, corners);
    glDrawArrays(GL_QUADS, 0, 4);
}

// Adds the quad of one character, with its top left at (x, y).
void AddCharacter(char character, float x, float y, float size) {
    constexpr float step = 1.0f / 16.0f;
    const auto code = static_cast<unsigned char>(character);
    const int sheetColumn = code % 16;
    const int sheetRow = code / 16;
    const float u = static_cast<float>(sheetColumn) * step;
    const float v = static_cast<float>(sheetRow) * step;
    vertices.push_back({u, v, x, y, 0.0f});
    vertices.push_back({u + step, v, x + size, y, 0.0f});
    vertices.push_back({u + step, v + step, x + size, y + size, 0.0f});
    vertices.push_back({u, v + step, x, y + size, 0.0f});
}

// Draws and empties the batch.
void DrawCharacters(const Colour& colour) {
    if (!vertices.empty()) {
        glColor4f(colour.r, colour.g, colour.b, 1.0f);
        glInterleavedArrays(GL_T2F_V3F, 0, vertices.data());
        glDrawArrays(GL_QUADS, 0, static_cast<GLsizei>(vertices.size()));
    }
    vertices.clear();
}

void DrawOutputText(const Area& area) {
    const auto size = static_cast<float>(area.cell);
    const VisibleText text = FindVisibleText(area.rows, area.columns);
    TextCursor cursor;
    for (std::uint32_t i = 0; i < text.count && cursor.row < area.rows; ++i) {
        const char c = outputBuffer[(text.first + i) % outputSize];
        if (c != '\t' && c != '\r' && c != '\n') {
            AddCharacter(c, static_cast<float>(cursor.column) * size,
                         static_cast<float>(cursor.row) * size, size);
        }
        cursor.Advance(c, area.columns);
    }
    DrawCharacters(settings.outputText);
}

void DrawInputText(const Area& area) {
    std::string_view line = inputLine.data();
    const auto columns = static_cast<std::size_t>(area.columns);
    if (line.size() > columns - 1 && inputCursor + 1 > columns) {
        line.remove_prefix(inputCursor + 1 - columns);
    }
    line = line.substr(0, columns);
    const auto size = static_cast<float>(area.cell);
    const int gap = area.cell + area.cell / 2;  // whole pixels
    const float top = area.inputTop + static_cast<float>(gap);
    for (std::size_t i = 0; i < line.size(); ++i) {
        AddCharacter(line[i], static_cast<float>(i) * size, top, size);
    }
    DrawCharacters(settings.inputText);
}

void DrawBackground(const Area& area) {
    const float top = area.inputTop;
    const float bottom = top + static_cast<float>(inputRows * area.cell);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    DrawBox(0.0f, 0.0f, area.width, top, settings.outputBackground);
    glDisable(GL_BLEND);
    DrawBox(0.0f, top, area.width, top + borderWidth, settings.inputBorder);
    DrawBox(0.0f, top + borderWidth, area.width, bottom - borderWidth, settings.inputBackground);
    DrawBox(0.0f, bottom - borderWidth, area.width, area.height, settings.inputBorder);
}

// A thin bar where characters are inserted, a block where they overwrite.
void DrawCursor(const Area& area) {
    const int column = std::min(static_cast<int>(inputCursor), area.columns - 1);
    const auto left = static_cast<float>(column * area.cell);
    const float line = area.inputTop + static_cast<float>(3 * area.cell);
    const float bottom = GLWindow::IsKeyToggled(VirtualKey::insert) ? line : line + 4.0f;
    DrawBox(left, line - 1.0f, left + static_cast<float>(area.cell), bottom, Colours::white);
}

const Texture& FontTexture() {
    if (!font || font->name != settings.fontTextureName) {
        font.emplace(
            FontSheet{settings.fontTextureName, Texture(settings.fontTextureName, "DEFAULT_FONT")});
    }
    return font->texture;
}

}  // namespace

void Draw() {
    const Area area = CurrentArea();
    const Texture& sheet = FontTexture();
    PushAllState();
    GLWindow::SetPixelProjection();
    constexpr GLenum unwanted[] = {GL_TEXTURE_2D, GL_LIGHTING,     GL_FOG,
                                   GL_CULL_FACE,  GL_STENCIL_TEST, GL_DEPTH_TEST};
    for (const GLenum state : unwanted) {
        glDisable(state);
    }
    DrawBackground(area);
    if (sheet.glName != 0) {
        glEnable(GL_BLEND);
        glEnable(GL_TEXTURE_2D);
        glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_MODULATE);
        glBindTexture(GL_TEXTURE_2D, sheet.glName);
        DrawOutputText(area);
        DrawInputText(area);
        glDisable(GL_TEXTURE_2D);
        glDisable(GL_BLEND);
    }
    DrawCursor(area);
    PopAllState();
}

Texture Font() {
    return FontTexture();
}

void ReleaseFont() {
    font.reset();
}

}  // namespace Console
