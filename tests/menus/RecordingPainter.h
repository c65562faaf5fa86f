#pragma once
// A painter that keeps what was painted, in order.

#include <string>
#include <vector>

#include "graphics/Texture.h"
#include "menus/GuiPainter.h"

class RecordingPainter : public GuiPainter {
public:
    struct Image {
        std::string name;
        GuiRect area;
        GuiRect source;
        GuiColour colour;
    };
    struct Fill {
        GuiRect area;
        GuiColour top;
        GuiColour bottom;
    };
    struct Text {
        std::string text;
        float x, y, size;
        GuiColour colour;
    };
    struct Page {
        float offsetX, offsetY, scaleX, scaleY;
    };

    void Clear(float, float, float) override { ++clears; }
    void BeginPage(float offsetX, float offsetY, float scaleX, float scaleY) override {
        pages.push_back({offsetX, offsetY, scaleX, scaleY});
    }
    void EndPage() override { ++endedPages; }
    void DrawImage(const Texture& image, const GuiRect& area, const GuiRect& source,
                   const GuiColour& colour) override {
        images.push_back({image.name, area, source, colour});
    }
    void FillRect(const GuiRect& area, const GuiColour& top, const GuiColour& bottom) override {
        fills.push_back({area, top, bottom});
    }
    void DrawText(const Texture&, const char* text, float x, float y, float size,
                  const GuiColour& colour) override {
        texts.push_back({text, x, y, size, colour});
    }
    void DrawTextCentred(const Texture&, const char* text, const GuiRect& box, float size,
                         const GuiColour& colour) override {
        texts.push_back({text, box.left, box.top, size, colour});
    }

    void Forget() { *this = RecordingPainter(); }
    /// The last text painted; empty if none was.
    std::string LastText() const { return texts.empty() ? std::string() : texts.back().text; }

    std::vector<Image> images;
    std::vector<Fill> fills;
    std::vector<Text> texts;
    std::vector<Page> pages;
    int clears = 0;
    int endedPages = 0;
};
