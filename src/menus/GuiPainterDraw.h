#pragma once
// The painter that draws into the current GL context.

#include "menus/GuiPainter.h"

class GLGuiPainter : public GuiPainter {
public:
    void Clear(const Colour& colour) override;
    void BeginPage(float offsetX, float offsetY, float scaleX, float scaleY) override;
    void EndPage() override;
    void DrawImage(const Texture& image, const GuiRect& area, const GuiRect& source,
                   const Colour& colour) override;
    void FillRect(const GuiRect& area, const Colour& top, const Colour& bottom) override;
    void DrawText(const Texture& font, const char* text, float x, float y, float size,
                  const Colour& colour) override;
    void DrawTextCentred(const Texture& font, const char* text, const GuiRect& box, float size,
                         const Colour& colour) override;
};
