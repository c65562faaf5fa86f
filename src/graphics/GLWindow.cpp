// The window's life and the turning of its events into calls on the listener. Geometry,
// display modes and the cursor are in GLWindowState.cpp, samples and extensions in
// GLWindowSetup.cpp.

#include "graphics/GLWindow.h"

#include <cstdint>
#include <utility>

#include "graphics/GLWindowState.h"
#include "platform/Assert.h"
#include "platform/System.h"
#include "platform/VirtualKeys.h"

namespace GLWindow {

State state;

namespace {

/// Positions travel as two unsigned 16-bit halves, so a drag beyond the top or left edge
/// gives large values, not negative ones.
void TakeMousePosition(const Platform::Event& event) {
    state.mouseX = static_cast<std::uint16_t>(event.x);
    state.mouseY = static_cast<std::uint16_t>(event.y);
}

/// Inside of the client area the cursor is the one asked for, outside an arrow.
void SettleCursor() {
    SetCursorKind(IsCursorInClient() ? state.cursorKind : Platform::Cursor::Arrow);
}

/// Updates the stored state, calls the listener, then does what the window does by itself.
void Dispatch(const Platform::Event& event) {
    using Platform::EventKind;
    GLWindowEventListener nobody;
    GLWindowEventListener& listener = state.listener != nullptr ? *state.listener : nobody;
    switch (event.kind) {
        case EventKind::MouseMove:
            TakeMousePosition(event);
            listener.OnMouseMove(state.mouseX, state.mouseY);
            break;
        case EventKind::MouseDown:
            TakeMousePosition(event);
            listener.OnMouseDown(state.mouseX, state.mouseY, event.button);
            break;
        case EventKind::MouseUp:
            TakeMousePosition(event);
            listener.OnMouseUp(state.mouseX, state.mouseY, event.button);
            break;
        case EventKind::KeyDown:
            state.lastKey = event.key;
            listener.OnKeyDown(event.key);
            break;
        case EventKind::KeyUp:
            listener.OnKeyUp(event.key);
            break;
        case EventKind::Resize:
            listener.OnResize();
            if (IsOpen()) {
                Platform::TheWindow().SetViewport(ClientWidth(), ClientHeight());
            }
            break;
        case EventKind::Close:
            listener.OnClose();
            Close();
            break;
        case EventKind::Paint:
            SettleCursor();
            listener.OnPaint();
            break;
    }
}

[[noreturn]] void Fail(Platform::WindowError error) {
    std::string text = "Unable to create window.";
    if (error == Platform::WindowError::NoDisplay) {
        text += " There is no display.";
    } else if (error == Platform::WindowError::NoContext) {
        text += " Could not create an OpenGL rendering context.";
    } else if (error == Platform::WindowError::TooLarge) {
        text += " It is larger than the display can hold.";
    }
    const std::string reason = Platform::TheWindow().Reason();
    if (!reason.empty()) {
        text += " (" + reason + ")";
    }
    Platform::ShowMessage(text, "Error");
    Platform::EndProcess(1);
}

/// False if the size is at fault; any other failure ends the process.
bool TryMakeWindow(const Platform::WindowSettings& settings) {
    VANTREL_ASSERT(!IsOpen() && !state.holding);
    const Platform::WindowError error = Platform::TheWindow().Create(settings);
    if (error == Platform::WindowError::TooLarge) {
        return false;
    }
    if (error != Platform::WindowError::None) {
        Fail(error);
    }
    state.mayLoseFocus = false;
    state.heldResize = false;
    state.heldClose = false;
    SetTitle(settings.title);
    return true;
}

/// A minimised window has its loss behind it: it may come back without the focus at first,
/// and must not be minimised again for that.
void NoticeFocus() {
    Platform::Window& window = Platform::TheWindow();
    if (window.IsForeground()) {
        state.mayLoseFocus = true;
    } else if (window.IsMinimised()) {
        state.mayLoseFocus = false;
    }
}

/// Whether the event has to wait, and is kept.
bool HoldBack(const Platform::Event& event) {
    const bool isResize = event.kind == Platform::EventKind::Resize;
    const bool isClose = event.kind == Platform::EventKind::Close;
    if (!state.holding || (!isResize && !isClose)) {
        return false;
    }
    state.heldResize |= isResize;
    state.heldClose |= isClose;
    return true;
}

void ServeHeldEvents() {
    if (std::exchange(state.heldResize, false)) {
        Dispatch({.kind = Platform::EventKind::Resize});
    }
    if (std::exchange(state.heldClose, false)) {
        Dispatch({.kind = Platform::EventKind::Close});
    }
}

}  // namespace

void MakeWindow(const Platform::WindowSettings& settings) {
    if (!TryMakeWindow(settings)) {
        Fail(Platform::WindowError::TooLarge);
    }
}

void Create(const std::string& title, int width, int height) {
    if (!TryCreate(title, width, height)) {
        Fail(Platform::WindowError::TooLarge);
    }
}

bool TryCreate(const std::string& title, int width, int height) {
    if (IsOpen()) {
        return true;
    }
    if (!TryMakeWindow({.title = State::initialTitle, .width = width, .height = height})) {
        return false;
    }
    Platform::Window& window = Platform::TheWindow();
    SetCursorKind(Platform::Cursor::Arrow);
    state.mouseX = 0;
    state.mouseY = 0;
    state.samples = 1;
    window.SetPixelProjection(ClientWidth(), ClientHeight());
    state.lastKey = 0;
    Centre();  // so that it doesn't come up in a corner first; its frame isn't known yet
    window.Show();
    BringToFront();
    SetClientSize(width, height);
    Centre();
    SetTitle(title);
    NoticeFocus();
    return true;
}

void Close() {
    VANTREL_ASSERT(!state.holding);
    if (!IsOpen() || state.closing) {
        return;
    }
    state.closing = true;
    if (state.listener != nullptr) {
        state.listener->OnDestroy();
    }
    Platform::TheWindow().Destroy();
    state.fullscreen = false;
    state.listener = nullptr;
    state.cursorKind = Platform::Cursor::Arrow;
    state.closing = false;
}

bool IsOpen() {
    return Platform::TheWindow().IsOpen();
}

void PumpMessages() {
    Platform::Window& window = Platform::TheWindow();
    Platform::Event event;
    if (!state.holding) {
        ServeHeldEvents();
    }
    while (IsOpen() && window.TakeEvent(event)) {
        if (!HoldBack(event)) {
            Dispatch(event);
        }
        // A paint ends the drain: what it asks for comes with the next one, so that a
        // listener that always wants another frame doesn't hold the loop.
        if (event.kind == Platform::EventKind::Paint) {
            break;
        }
    }
    if (!IsOpen() || state.holding) {
        return;
    }
    NoticeFocus();
    if (!state.mayLoseFocus || window.IsForeground()) {
        return;
    }
    state.mayLoseFocus = false;
    Minimise();
    if (state.listener != nullptr) {
        state.listener->OnFocusLost();
    }
}

void HoldEvents() {
    VANTREL_ASSERT(!state.holding);
    state.holding = true;
}

void ReleaseEvents() {
    VANTREL_ASSERT(state.holding);
    state.holding = false;
}

void RequestRepaint() {
    Platform::TheWindow().RequestRepaint();
}

void SwapBuffers() {
    Platform::TheWindow().SwapBuffers();
}

void SetListener(GLWindowEventListener* listener) {
    state.listener = listener;
}

GLWindowEventListener* GetListener() {
    return state.listener;
}

bool IsKeyDown(int virtualKey) {
    return Platform::TheWindow().IsKeyDown(virtualKey);
}

bool IsKeyToggled(int virtualKey) {
    return Platform::TheWindow().IsKeyToggled(virtualKey);
}

bool IsMouseButtonDown(int button) {
    return (button == MouseButton::left || button == MouseButton::right ||
            button == MouseButton::middle) &&
           Platform::TheWindow().IsMouseButtonDown(button);
}

char KeyToChar(int virtualKey) {
    return Platform::TheWindow().KeyToChar(virtualKey);
}

int TakeLastKey() {
    const int key = state.lastKey;
    state.lastKey = 0;
    return key;
}

int MouseX() {
    return state.mouseX;
}

int MouseY() {
    return state.mouseY;
}

void ShowMessage(const std::string& text, const std::string& caption) {
    Platform::ShowMessage(text, caption);
}

bool AskYesNo(const std::string& text, const std::string& caption) {
    return Platform::AskYesNo(text, caption);
}

}  // namespace GLWindow
