#pragma once
// The drop shadow that widgets share: the same drawing done first, shifted and in the
// shadow's colour.

#include "menus/GuiPainter.h"

class GuiShadow {
public:
    virtual void SetShadowColour(float r, float g, float b, float a);
    /// In logical units.
    virtual void SetShadowOffset(float offsetX, float offsetY);

    bool dropShadow = false;
    float shadowOffsetX = 0.0f;
    float shadowOffsetY = 0.0f;
    float shadowRed = 0.0f;
    float shadowGreen = 0.0f;
    float shadowBlue = 0.0f;
    float shadowAlpha = 1.0f;

protected:
    ~GuiShadow() = default;
    GuiColour ShadowColour() const { return {shadowRed, shadowGreen, shadowBlue, shadowAlpha}; }
};
