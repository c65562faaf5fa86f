#pragma once
// The window's cursor: its looks, and where it is on the screen. Main thread only.

#include "platform/Window.h"

namespace GLWindow {

void SetCursorKind(Platform::Cursor kind);
/// As set last; an arrow at first, and again after the cursor was seen outside of the window.
Platform::Cursor GetCursorKind();

/// Strict at the near edges, one pixel to spare at the far ones.
bool IsCursorInClient();
inline int CursorScreenX() {
    return Platform::TheWindow().CursorScreenX();
}
inline int CursorScreenY() {
    return Platform::TheWindow().CursorScreenY();
}

/// After this, a mouse at rest reads exactly ClientCentreScreenX.
void WarpCursorToCentre();
void WarpCursorBy(int dx, int dy);
int ClientCentreScreenX();
int ClientCentreScreenY();

/// The toolkit can't confine the cursor to a rectangle: these do nothing.
inline void ClipCursorTo(int /*x*/, int /*y*/, int /*width*/, int /*height*/) {}
inline void UnclipCursor() {}

}  // namespace GLWindow
