#pragma once
// The drop shadow that widgets share: the same drawing done first, shifted and in the
// shadow's colour.

#include "engine/Colour.h"

class GuiShadow {
public:
    virtual void SetShadowColour(const Colour& newColour);
    /// In logical units.
    virtual void SetShadowOffset(float offsetX, float offsetY);

    bool dropShadow = false;
    float shadowOffsetX = 0.0f;
    float shadowOffsetY = 0.0f;
    Colour shadowColour;

protected:
    ~GuiShadow() = default;
};
