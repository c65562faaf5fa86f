#pragma once
// How a page (engine/Page.h) lies in the client area. An area that is wider than
// high always fits the page's height, even if the page then overhangs its sides (5:4); one
// that is higher than wide fits the page's width.

struct LogicalSpace {
    float scale = 1.0f;    ///< pixels per logical unit
    float offsetX = 0.0f;  ///< of the page's top left corner, in pixels
    float offsetY = 0.0f;

    /// For the present client area of the window.
    static LogicalSpace OfWindow();
    /// For a client area of that size; a size below 1 counts as 1.
    static LogicalSpace Of(int clientWidth, int clientHeight);
};

/// A position in logical units, cut to whole ones.
struct LogicalPosition {
    int x = 0;
    int y = 0;

    /// Of a position in client pixels of a client area of that size.
    static LogicalPosition Of(int pixelX, int pixelY, int clientWidth, int clientHeight);
    /// Of a position in client pixels of the present client area.
    static LogicalPosition InWindow(int pixelX, int pixelY);
};
