#pragma once
// A picture, or a part of one, stretched over the widget's rectangle.

#include <string>

#include "graphics/Texture.h"
#include "menus/GuiWidget.h"

class GuiImage : public GuiWidget {
public:
    /// Shows the whole image; `resourceName` is the embedded image to fall back on, null for
    /// none.
    void SetImage(const std::string& name, const char* resourceName = "DEFAULT_TEXTURE");
    /// The part to show, in pixels of the image.
    void SetSourceRect(float left, float top, float partWidth, float partHeight);
    void OnPaint() override;

    Texture texture;
    float sourceX = 0.0f;
    float sourceY = 0.0f;
    float sourceWidth = 0.0f;
    float sourceHeight = 0.0f;
};
