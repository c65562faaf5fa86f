// The cursor's kind, and the centre that it is warped to.

#include "graphics/GLWindowCursor.h"

namespace GLWindow {

namespace {

Platform::Cursor kindInForce = Platform::Cursor::Arrow;

// How far the last warp to the centre missed it, as it does when the centre is off screen.
int warpMissX = 0;
int warpMissY = 0;

int GeometricCentreX() {
    const Platform::Window& window = Platform::TheWindow();
    return window.ClientLeft() + window.ClientWidth() / 2 - 1;
}

int GeometricCentreY() {
    const Platform::Window& window = Platform::TheWindow();
    return window.ClientTop() + window.ClientHeight() / 2 - 1;
}

}  // namespace

void SetCursorKind(Platform::Cursor kind) {
    kindInForce = kind;
    Platform::TheWindow().SetCursor(kind);
}

Platform::Cursor GetCursorKind() {
    return kindInForce;
}

bool IsCursorInClient() {
    const Platform::Window& window = Platform::TheWindow();
    const int x = CursorScreenX() - window.ClientLeft();
    const int y = CursorScreenY() - window.ClientTop();
    return x > 0 && y > 0 && x <= window.ClientWidth() + 1 && y <= window.ClientHeight() + 1;
}

void WarpCursorToCentre() {
    Platform::Window& window = Platform::TheWindow();
    window.WarpCursor(GeometricCentreX(), GeometricCentreY());
    // Out of the foreground nothing was moved, and nothing reads the mouse either.
    if (window.IsForeground()) {
        warpMissX = CursorScreenX() - GeometricCentreX();
        warpMissY = CursorScreenY() - GeometricCentreY();
    }
}

void WarpCursorBy(int dx, int dy) {
    Platform::TheWindow().WarpCursor(CursorScreenX() + dx, CursorScreenY() + dy);
}

int ClientCentreScreenX() {
    return GeometricCentreX() + warpMissX;
}

int ClientCentreScreenY() {
    return GeometricCentreY() + warpMissY;
}

}  // namespace GLWindow
