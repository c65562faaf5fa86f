// The window's geometry, display modes and cursor.

#include "graphics/GLWindowState.h"

#include <algorithm>

namespace GLWindow {

namespace {

Platform::Window& Window() {
    return Platform::TheWindow();
}

int GeometricCentreX() {
    return Window().ClientLeft() + ClientWidth() / 2 - 1;
}

int GeometricCentreY() {
    return Window().ClientTop() + ClientHeight() / 2 - 1;
}

/// Whether a later mode of the list is to replace the best so far: rates walk towards 60 Hz
/// from either side.
bool IsBetterRate(int rate, int best) {
    return (rate > best && best < 60) || (rate < best && best > 60);
}

}  // namespace

void SetTitle(const std::string& text) {
    state.title = text;
    Window().SetTitle(text);
}

std::string GetTitle() {
    return state.title;
}

bool IsForeground() {
    return Window().IsForeground();
}

bool IsMinimised() {
    return Window().IsMinimised();
}

bool IsMaximised() {
    return Window().IsMaximised();
}

void BringToFront() {
    Window().Focus();
}

void Maximise() {
    Window().Maximise();
}

void Minimise() {
    Window().Minimise();
}

void Restore() {
    Window().Restore();
}

int ClientWidth() {
    return Window().ClientWidth();
}

int ClientHeight() {
    return Window().ClientHeight();
}

int ScreenWidth() {
    return Window().ScreenWidth();
}

int ScreenHeight() {
    return Window().ScreenHeight();
}

int WindowLeft() {
    return Window().OuterLeft();
}

int WindowTop() {
    return Window().OuterTop();
}

void Move(int x, int y) {
    Window().MoveOuter(x, y);
}

void SetOuterSize(int width, int height) {
    if (width < 1 || height < 1) {
        return;
    }
    Window().SetOuterSize(width, height);
    Window().SetViewport(ClientWidth(), ClientHeight());
}

void SetClientSize(int width, int height) {
    if (width < 1 || height < 1) {
        return;
    }
    Window().SetClientSize(width, height);
    // The size in force, in case that the desktop grants another one.
    Window().SetViewport(ClientWidth(), ClientHeight());
}

void SetResizable(bool on) {
    Window().SetResizable(on);
}

bool IsResizable() {
    return Window().IsResizable();
}

void Centre() {
    Move(ScreenWidth() / 2 - Window().OuterWidth() / 2,
         ScreenHeight() / 2 - Window().OuterHeight() / 2);
}

void SetFullscreen(bool on, int width, int height) {
    if (on) {
        Platform::DisplayMode mode;
        if (!FindDisplayMode(width, height, mode)) {
            return;
        }
        const bool entered = Window().EnterFullscreen(mode);
        // Shown, not stored: the next paint brings the kind back that was asked for.
        Window().SetCursor(Platform::Cursor::Arrow);
        if (entered) {
            state.fullscreen = true;
            Window().SetViewport(ClientWidth(), ClientHeight());
        }
    } else if (Window().LeaveFullscreen()) {
        SetResizable(false);
        SetClientSize(width, height);
        Centre();
        state.fullscreen = false;
    }
}

bool IsFullscreen() {
    return state.fullscreen;
}

bool FindDisplayMode(int width, int height, Platform::DisplayMode& best) {
    bool found = false;
    for (const Platform::DisplayMode& mode : Window().DisplayModes()) {
        if (mode.width != width || mode.height != height) {
            continue;
        }
        if (!found || IsBetterRate(mode.refreshRate, best.refreshRate)) {
            best = mode;
        }
        found = true;
    }
    return found;
}

bool HasDisplayMode(int width, int height) {
    Platform::DisplayMode mode;
    return FindDisplayMode(width, height, mode);
}

void SetGamma(float value) {
    // Written so that a NaN is ignored too.
    if (!(value >= 0.0f && value <= 2.0f) || !IsOpen()) {
        return;
    }
    const int step = static_cast<int>(value * 255.0f);
    std::vector<unsigned short> ramp(256);
    for (int i = 0; i < 256; ++i) {
        ramp[static_cast<std::size_t>(i)] = static_cast<unsigned short>(std::min(65535, i * step));
    }
    Window().SetGammaRamp(ramp);
}

void SetCursorKind(Platform::Cursor kind) {
    state.cursorKind = kind;
    Window().SetCursor(kind);
}

Platform::Cursor GetCursorKind() {
    return state.cursorKind;
}

bool IsCursorInClient() {
    const int x = CursorScreenX() - Window().ClientLeft();
    const int y = CursorScreenY() - Window().ClientTop();
    // Strict at the near edges, one pixel to spare at the far ones.
    return x > 0 && y > 0 && x <= ClientWidth() + 1 && y <= ClientHeight() + 1;
}

int CursorScreenX() {
    return Window().CursorScreenX();
}

int CursorScreenY() {
    return Window().CursorScreenY();
}

int ClientCentreScreenX() {
    return GeometricCentreX() + state.warpMissX;
}

int ClientCentreScreenY() {
    return GeometricCentreY() + state.warpMissY;
}

void WarpCursorToCentre() {
    Window().WarpCursor(GeometricCentreX(), GeometricCentreY());
    // Out of the foreground nothing was moved, and nothing reads the mouse either.
    if (IsForeground()) {
        state.warpMissX = CursorScreenX() - GeometricCentreX();
        state.warpMissY = CursorScreenY() - GeometricCentreY();
    }
}

void WarpCursorBy(int dx, int dy) {
    Window().WarpCursor(CursorScreenX() + dx, CursorScreenY() + dy);
}

void ClipCursorTo(int /*x*/, int /*y*/, int /*width*/, int /*height*/) {}

void UnclipCursor() {}

}  // namespace GLWindow
