// The window's life, the turning of its events into calls on the listener, and its place on the
// screen.

#include "graphics/GLWindow.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "graphics/GLWindowCursor.h"
#include "graphics/GLWindowDisplay.h"
#include "platform/Assert.h"

namespace GLWindow {

namespace {

struct State {
    GLWindowEventListener* listener = nullptr;  ///< not owned
    std::string title;
    unsigned samples = 1;  ///< as asked for; the context may hold more
    int mouseX = 0;        ///< client pixels, from the last mouse event
    int mouseY = 0;
    int lastKey = 0;
    bool fullscreen = false;
    bool closing = false;
    bool holding = false;  ///< and what has come since and waits for its end:
    bool heldResize = false;
    bool heldClose = false;
    /// The window had the foreground since it was made or minimised: only then can it lose it.
    bool mayLoseFocus = false;
};
State state;

/// Shown for as long as a window is being built.
constexpr const char* initialTitle = "Untitled window";

/// Positions travel as two unsigned 16-bit halves, so a drag beyond the top or left edge
/// gives large values, not negative ones.
void TakeMousePosition(const Platform::Event& event) {
    state.mouseX = static_cast<std::uint16_t>(event.x);
    state.mouseY = static_cast<std::uint16_t>(event.y);
}

/// Updates the stored state, calls the listener, then does what the window does by itself.
void Dispatch(const Platform::Event& event) {
    using Platform::EventKind;
    GLWindowEventListener ignoring;
    GLWindowEventListener& listener = state.listener != nullptr ? *state.listener : ignoring;
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
            // Inside of the client area the cursor is the one asked for, outside an arrow.
            SetCursorKind(IsCursorInClient() ? GetCursorKind() : Platform::Cursor::Arrow);
            listener.OnPaint();
            break;
    }
}

[[noreturn]] void Fail(Platform::WindowError error) {
    using Platform::WindowError;
    std::string text = "Unable to create window.";
    text += error == WindowError::NoDisplay   ? " There is no display."
            : error == WindowError::NoContext ? " Could not create an OpenGL rendering context."
            : error == WindowError::TooLarge  ? " It is larger than the display can hold."
                                              : "";
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

/// A minimised window has already lost the focus: it may come back without it at first, and must
/// not be minimised again for that.
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

/// Or ends the process.
void MakeWindow(const Platform::WindowSettings& settings) {
    if (!TryMakeWindow(settings)) {
        Fail(Platform::WindowError::TooLarge);
    }
}

/// What a rebuilt window takes over from its predecessor.
struct Kept {
    std::string title = GetTitle();
    Platform::Cursor cursorKind = GetCursorKind();
    bool fullscreen = IsFullscreen();
    int width = ClientWidth();
    int height = ClientHeight();
    int left = WindowLeft();
    int top = WindowTop();
    GLWindowEventListener* listener = GetListener();
};

void GiveBack(const Kept& kept) {
    Platform::Window& window = Platform::TheWindow();
    window.Show();
    BringToFront();
    Move(kept.left, kept.top);
    SetClientSize(kept.width, kept.height);
    SetTitle(kept.title);
    SetCursorKind(kept.cursorKind);
    SetListener(kept.listener);
    if (kept.fullscreen) {
        SetFullscreen(true, kept.width, kept.height);
    }
}

/// False if the count can't be had; then there is one without samples.
bool Rebuild(unsigned count) {
    Platform::Window& window = Platform::TheWindow();
    const Kept kept;
    SetListener(nullptr);
    Close();
    Platform::WindowSettings settings{
        .title = initialTitle, .width = 320, .height = 240, .samples = count};
    const bool made = count > 1 && window.Create(settings) == Platform::WindowError::None;
    // The context may hold more samples than asked for, which serves as well.
    const bool sampled = made && window.Samples() >= count;
    state.samples = sampled ? count : 1;
    if (!sampled) {
        window.Destroy();
        settings.samples = 1;
        settings.resizable = count == 1;
        MakeWindow(settings);
    }
    GiveBack(kept);
    return state.samples == count;
}

}  // namespace

void Create(const std::string& title, int width, int height) {
    if (!TryCreate(title, width, height)) {
        Fail(Platform::WindowError::TooLarge);
    }
}

bool TryCreate(const std::string& title, int width, int height) {
    if (IsOpen()) {
        return true;
    }
    if (!TryMakeWindow({.title = initialTitle, .width = width, .height = height})) {
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
    SetCursorKind(Platform::Cursor::Arrow);
    state.closing = false;
}

bool SetSamples(unsigned count) {
    count = std::max(count, 1U);
    const unsigned previous = state.samples;
    if (!IsOpen() || count == previous) {
        return IsOpen();
    }
    if (count > 1 && !Platform::TheWindow().OffersSamples(count)) {
        return false;
    }
    if (Rebuild(count)) {
        return true;
    }
    if (previous > 1) {
        Rebuild(previous);
    }
    return false;
}

unsigned Samples() {
    return state.samples;
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

void SetListener(GLWindowEventListener* listener) {
    state.listener = listener;
}

GLWindowEventListener* GetListener() {
    return state.listener;
}

void SetTitle(const std::string& text) {
    state.title = text;
    Platform::TheWindow().SetTitle(text);
}

std::string GetTitle() {
    return state.title;
}

void SetOuterSize(int width, int height) {
    if (width < 1 || height < 1) {
        return;
    }
    Platform::TheWindow().SetOuterSize(width, height);
    Platform::TheWindow().SetViewport(ClientWidth(), ClientHeight());
}

void SetClientSize(int width, int height) {
    if (width < 1 || height < 1) {
        return;
    }
    Platform::TheWindow().SetClientSize(width, height);
    // The size in force, in case that the desktop grants another one.
    Platform::TheWindow().SetViewport(ClientWidth(), ClientHeight());
}

void Centre() {
    Move(ScreenWidth() / 2 - Platform::TheWindow().OuterWidth() / 2,
         ScreenHeight() / 2 - Platform::TheWindow().OuterHeight() / 2);
}

void SetFullscreen(bool on, int width, int height) {
    if (on) {
        Platform::DisplayMode mode;
        if (!FindDisplayMode(width, height, mode)) {
            return;
        }
        const bool entered = Platform::TheWindow().EnterFullscreen(mode);
        // Shown, not stored: the next paint brings the kind back that was asked for.
        Platform::TheWindow().SetCursor(Platform::Cursor::Arrow);
        if (entered) {
            state.fullscreen = true;
            Platform::TheWindow().SetViewport(ClientWidth(), ClientHeight());
        }
    } else if (Platform::TheWindow().LeaveFullscreen()) {
        SetResizable(false);
        SetClientSize(width, height);
        Centre();
        state.fullscreen = false;
    }
}

bool IsFullscreen() {
    return state.fullscreen;
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

}  // namespace GLWindow
