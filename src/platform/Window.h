#pragma once
// The one window, as the game asks for it: a GL context, an event queue, geometry, display
// modes, cursor and keyboard. Keys and buttons are those of platform/VirtualKeys.h. Sizes and mouse
// positions are framebuffer pixels; screen positions are pixels of the desktop, counted from
// the top left corner of the primary monitor.

#include <string>
#include <vector>

namespace Platform {

enum class EventKind { MouseMove, MouseDown, MouseUp, KeyDown, KeyUp, Resize, Close, Paint };

struct Event {
    EventKind kind = EventKind::Paint;
    int x = 0;  ///< mouse position in client pixels
    int y = 0;
    int button = 0;  ///< MouseButton
    int key = 0;
    char character = 0;  ///< what a key-down types, as Latin-1; 0 for nothing
};

struct DisplayMode {
    int width = 0;
    int height = 0;
    int refreshRate = 0;  ///< hertz
};

/// The client size that a window has unless told otherwise, and that is opened even on screens
/// that are smaller.
inline constexpr int defaultWidth = 800;
inline constexpr int defaultHeight = 600;

struct WindowSettings {
    std::string title;
    int width = defaultWidth;  ///< client size
    int height = defaultHeight;
    unsigned samples = 1;  ///< 1: no multisampling
    bool resizable = false;
};

/// Why a window could not be made. TooLarge: neither the screens nor their display modes, or GL,
/// hold a window of that size; nothing was made.
enum class WindowError { None, NoDisplay, NoWindow, NoContext, TooLarge };

enum class Cursor { Empty, Arrow, Cross };

class Window {
public:
    virtual ~Window() = default;

    // Life. `Create` makes window and context and makes the context current.
    virtual WindowError Create(const WindowSettings& settings) = 0;
    /// Gives back the display mode, too.
    virtual void Destroy() = 0;
    virtual bool IsOpen() const = 0;
    virtual unsigned Samples() const = 0;  ///< in force; 1 for none
    /// Whether a window with at least that many samples could be made. Leaves the window and
    /// the current context as they are.
    virtual bool OffersSamples(unsigned count) = 0;
    /// Why the last `Create` failed, in the platform's own words; may be empty.
    virtual std::string Reason() const { return {}; }

    // Events. `TakeEvent` polls the platform when its queue is empty; false: nothing waits.
    // A requested repaint comes when nothing else waits; requests made before it are one.
    virtual bool TakeEvent(Event& event) = 0;
    virtual void RequestRepaint() = 0;
    /// Once an interval of 1 or more was asked for, a swap lasts until the display is ready for the
    /// next picture, also where there is no retrace to wait for (platform/SwapPace.h).
    virtual void SwapBuffers() = 0;
    virtual bool SetSwapInterval(int interval) = 0;  ///< false if there is no such control
    virtual int SwapInterval() const = 0;            ///< -1 if it can't be asked
    /// For a screen that changes little: after a while without events it waits for the next one,
    /// for a few frames at most. True if it waited. Only where swapping should wait for the retrace
    /// but doesn't; else frames cost little, and it comes back at once.
    virtual bool Rest() { return false; }
    virtual void SetViewport(int width, int height) = 0;
    /// Viewport and projection of 1 unit per pixel, origin top left, y down; depth unscaled.
    /// Selects and clears the modelview matrix.
    virtual void SetPixelProjection(int width, int height) = 0;
    /// GL_EXTENSIONS and GL_RENDERER; empty without a current context.
    virtual std::string ExtensionText() const = 0;
    virtual std::string RendererText() const = 0;

    // A second thread may draw in the window for a while. `LendContext` takes the window's GL
    // context from the main thread and gives it a hidden one that shares textures and display
    // lists, to load with; false, with nothing changed, if there is none to be had. Then the
    // other thread calls `BorrowContext`, draws and swaps, and calls `ReturnContext`. When it
    // has ended, `ReclaimContext` makes the window's context the main thread's again and drops
    // the hidden one; what was loaded in it stays. Meanwhile the main thread doesn't swap or
    // destroy the window, and the other one asks it for nothing but the client size.
    virtual bool LendContext() { return false; }
    virtual void BorrowContext() {}
    virtual void ReturnContext() {}
    virtual void ReclaimContext() {}

    // Show state and geometry.
    virtual void Show() = 0;
    virtual void Focus() = 0;
    /// Whether the window has the keyboard. A loss counts once it has lasted for a moment,
    /// since the focus flickers when other windows come and go.
    virtual bool IsForeground() const = 0;
    virtual bool IsMinimised() const = 0;
    virtual bool IsMaximised() const = 0;
    virtual void Maximise() = 0;
    /// A request: without a window manager nothing happens, and with one it takes a while.
    virtual void Minimise() = 0;
    virtual void Restore() = 0;
    virtual void SetTitle(const std::string& title) = 0;
    /// The icon as rows of RGBA bytes, the top row first. Kept for windows made later.
    virtual void SetIcon(const unsigned char* /*rgba*/, int /*width*/, int /*height*/) {}
    virtual int ClientWidth() const = 0;
    virtual int ClientHeight() const = 0;
    virtual int ScreenWidth() const = 0;
    virtual int ScreenHeight() const = 0;
    /// The client area's top left corner on the screen.
    virtual int ClientLeft() const = 0;
    virtual int ClientTop() const = 0;
    /// The outer window's corner and size, decoration included as far as it is known: of a
    /// window that isn't shown, as it was last.
    virtual int OuterLeft() const = 0;
    virtual int OuterTop() const = 0;
    virtual int OuterWidth() const = 0;
    virtual int OuterHeight() const = 0;
    virtual void MoveOuter(int left, int top) = 0;
    virtual void SetOuterSize(int width, int height) = 0;
    virtual void SetClientSize(int width, int height) = 0;
    virtual void SetResizable(bool on) = 0;
    virtual bool IsResizable() const = 0;

    // Display. `LeaveFullscreen` is true also when there is nothing to leave.
    virtual std::vector<DisplayMode> DisplayModes() const = 0;
    virtual bool EnterFullscreen(const DisplayMode& mode) = 0;
    virtual bool LeaveFullscreen() = 0;
    virtual void SetGammaRamp(const std::vector<unsigned short>& ramp) = 0;

    // Cursor, in screen pixels.
    virtual void SetCursor(Cursor cursor) = 0;
    virtual int CursorScreenX() const = 0;
    virtual int CursorScreenY() const = 0;
    /// Only for a window in the foreground; held within the screen.
    virtual void WarpCursor(int screenX, int screenY) = 0;

    // Keyboard and buttons.
    virtual bool IsKeyDown(int virtualKey) const = 0;
    virtual bool IsKeyToggled(int virtualKey) const = 0;
    virtual bool IsMouseButtonDown(int button) const = 0;
    /// The character that the key made when it last went down, by the layout, shift and lock
    /// state of that moment; 0 if none. So it is right while that event is being handled.
    virtual char KeyToChar(int virtualKey) const = 0;
};

/// The window in force: a headless one of the default size unless another was set. It exists before
/// its platform window is created.
Window& TheWindow();
/// Sets the window, not owned; null goes back to the headless one.
void UseWindow(Window* window);

}  // namespace Platform
