#pragma once
// What screens and widgets draw with. They paint through the current painter, so that they
// can be linked, laid out, focused and clicked in a program without a screen; such a program
// never sets a painter, and the one that then is current draws nothing. The painter that
// draws with GL is in menus/GuiPainterDraw.h.
//
// Between BeginPage and EndPage coordinates are the page's logical units; outside of a page
// they are whatever units the current transform has.

#include "engine/Colour.h"

class Texture;

/// Edges in logical units, or in texture coordinates; y grows downwards.
struct GuiRect {
    float left = 0.0f;
    float top = 0.0f;
    float right = 0.0f;
    float bottom = 0.0f;
};

/// The whole of an image, in texture coordinates.
inline constexpr GuiRect wholeImage{0.0f, 0.0f, 1.0f, 1.0f};

class GuiPainter {
public:
    virtual ~GuiPainter() = default;

    /// Clears the whole client area; alpha doesn't count.
    virtual void Clear(const Colour& /*colour*/) {}
    /// Saves the drawing state, turns off all that could disturb a flat page, and lets one
    /// logical unit be `scaleX` by `scaleY` pixels, the origin `offsetX`, `offsetY` pixels
    /// from the client area's top left.
    virtual void BeginPage(float /*offsetX*/, float /*offsetY*/, float /*scaleX*/,
                           float /*scaleY*/) {}
    /// Brings the drawing state back; the page's transform stays.
    virtual void EndPage() {}

    /// `source` of the image over `area`, tinted by the colour and blended by alpha.
    virtual void DrawImage(const Texture& /*image*/, const GuiRect& /*area*/,
                           const GuiRect& /*source*/, const Colour& /*colour*/) {}
    /// A rectangle from one colour at its top edge to another at its bottom edge, blended by
    /// alpha.
    virtual void FillRect(const GuiRect& /*area*/, const Colour& /*top*/,
                          const Colour& /*bottom*/) {}
    /// `x`, `y` is the first character's top left; see Texture::DrawText.
    virtual void DrawText(const Texture& /*font*/, const char* /*text*/, float /*x*/, float /*y*/,
                          float /*size*/, const Colour& /*colour*/) {}
    /// One line centred in a box, to whole units; see Texture::DrawTextCentred.
    virtual void DrawTextCentred(const Texture& /*font*/, const char* /*text*/,
                                 const GuiRect& /*box*/, float /*size*/, const Colour& /*colour*/) {
    }

    /// The painter in force; one that draws nothing unless one was set.
    static GuiPainter& Current();
    /// Sets the painter, not owned; null goes back to the one that draws nothing.
    static void Use(GuiPainter* painter);
};
