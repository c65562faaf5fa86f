#pragma once
// A painter that keeps the texts that were painted, in order.

#include <string>
#include <vector>

#include "menus/GuiPainter.h"

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
    /// The last text painted; empty if none was.
    std::string LastText() const { return texts.empty() ? std::string() : texts.back(); }

    std::vector<std::string> texts;
};
