#pragma once
// What the files of GlfwWindow share. The only header that names the toolkit.

#include <GLFW/glfw3.h>

#include <atomic>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "platform/Clock.h"
#include "platform/FocusFilter.h"
#include "platform/GlfwWindow.h"
#include "platform/Keys.h"
#include "platform/SwapPace.h"
#include "platform/WindowInput.h"

namespace Platform {

struct alignas(8) Point {  // so that an atomic one needs no lock
    int x = 0;
    int y = 0;
    bool operator==(const Point&) const = default;
};

/// What a desktop puts around the client area, in the toolkit's units.
struct Frame {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
};

struct GlfwWindow::State {
    GLFWwindow* window = nullptr;
    GLFWwindow* loader = nullptr;  ///< never shown; only its context counts; there while lending
    std::atomic<bool> borrowed = false;  ///< by the other thread
    std::thread::id ownThread = std::this_thread::get_id();

    /// The window's state as last reported: asking costs a round trip to the display, and a frame
    /// would ask a dozen times. Empty without a window.
    struct Told {
        Point size;  ///< of the client area, in the toolkit's units
        bool focused = false;
        bool iconified = false;
    };
    Told told;
    std::atomic<Point> pixels;  ///< of the framebuffer; also asked by the thread that draws

    WindowInput input;
    KeyCodes keyCodes;
    FocusFilter focus;
    SteadyClock clock;  ///< real time, whatever clock the game runs on
    std::string reason;
    unsigned samples = 1;
    std::map<unsigned, bool> offers;  ///< answers of OffersSamples
    bool hasSwapControl = false;
    int swapInterval = -1;
    bool isPaced =
        false;  ///< an interval of 1 or more was asked for, whether there is control or not
    SwapPace pace;
    std::uint64_t lastEvent = 0;  ///< when one was last taken, by the clock's counter
    std::uint64_t restEnd = 0;    ///< when the last rest ended, or was to end

    Frame windowedFrame;  ///< the last one known

    std::optional<Cursor> cursor;
    GLFWcursor* arrow = nullptr;
    GLFWcursor* cross = nullptr;

    std::vector<unsigned char> icon;  ///< RGBA
    Point iconSize;

    // The window as it was before it went fullscreen, in the toolkit's units.
    Point windowedPosition;
    Point windowedSize;

    bool IsOwnThread() const { return std::this_thread::get_id() == ownThread; }
    bool Start();
    /// Whether a window of that size, in pixels, has its place on the screens or in one of their
    /// display modes. Beyond that, displays fail late and in ways that end the process.
    bool ScreensHold(int width, int height) const;
    void ListenToEvents();
    void ApplyIcon();
    void Poll();
    /// After a swap: where it should have waited for the retrace, and didn't.
    void AwaitNextFrame();
    /// Fills the window with a plain colour until its first frame; it would show what lay under it.
    void PaintPlainly();
    /// Fills `told` for the first time; events keep it up to date.
    void AskWindow();
    /// Framebuffer pixels per unit of the toolkit; 1 on most desktops.
    double Scale() const;
    /// The cursor in client pixels.
    Point CursorPosition() const;
    /// Moves the pointer so that all moves after it are reported.
    void PutPointer(double x, double y);
    /// The toolkit reports no moves to (0, 0) until it has moved the pointer itself.
    void HearOfEveryMove();
    /// The window has moved: the pointer at rest in it is at another place.
    void FollowUnderPointer();
    /// Has the toolkit compare the next move with where the pointer is, not with the last position
    /// that it reported.
    void ForgetToolkitsPointer();
    /// Lets the desktop catch up until the client area has that size, for a moment at most:
    /// it may never grant it.
    void AwaitSize(Point wanted);
    void AwaitPosition(Point position);
    /// Whether the window is on the screen, though maybe under others; waits for a moment.
    bool AwaitVisible();
    /// Asked only of a window that is shown: the toolkit waits for a hidden one's.
    Frame CurrentFrame();
};

}  // namespace Platform
