// A picture; see GuiImage.h.

#include "menus/GuiImage.h"

void GuiImage::SetImage(const std::string& name, const char* resourceName) {
    texture = Texture(name, resourceName);
    SetSourceRect(0.0f, 0.0f, static_cast<float>(texture.width),
                  static_cast<float>(texture.height));
}

void GuiImage::SetSourceRect(float left, float top, float partWidth, float partHeight) {
    sourceX = left;
    sourceY = top;
    sourceWidth = partWidth;
    sourceHeight = partHeight;
}

void GuiImage::OnPaint() {
    GuiRect source;
    if (texture.width > 0 && texture.height > 0) {
        const auto imageWidth = static_cast<float>(texture.width);
        const auto imageHeight = static_cast<float>(texture.height);
        source = {sourceX / imageWidth, sourceY / imageHeight, (sourceX + sourceWidth) / imageWidth,
                  (sourceY + sourceHeight) / imageHeight};
    }
    const GuiRect area{static_cast<float>(x), static_cast<float>(y), static_cast<float>(x + width),
                       static_cast<float>(y + height)};
    GuiPainter::Current().DrawImage(texture, area, source, colour);
}
