#pragma once
// The painter that draws into the current GL context.

#include "menus/GuiPainter.h"

class GLGuiPainter : public GuiPainter {
public:
    void Clear(float red, float green, float blue) override;
    void BeginPage(float offsetX, float offsetY, float scaleX, float scaleY) override;
    void EndPage() override;
    void DrawImage(const Texture& image, const GuiRect& area, const GuiRect& source,
                   const GuiColour& colour) override;
    void FillRect(const GuiRect& area, const GuiColour& top, const GuiColour& bottom) override;
    void DrawText(const Texture& font, const char* text, float x, float y, float size,
                  const GuiColour& colour) override;
    void DrawTextCentred(const Texture& font, const char* text, const GuiRect& box, float size,
                         const GuiColour& colour) override;
};
