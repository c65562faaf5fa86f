// The real window: life, context and events. Geometry, display and show state are in
// GlfwGeometry.cpp.

#include "platform/GlfwWindow.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "platform/Assert.h"
#include "platform/GlfwWindowState.h"
#include "platform/Keys.h"
#include "platform/VirtualKeys.h"
#include "platform/X11Window.h"

namespace Platform {

namespace {

constexpr std::uint64_t nanosecondsPerMs = 1'000'000;

// The toolkit's last error. Most are of no interest (a desktop that can't minimise); the
// text is shown only when no window could be made.
int lastErrorCode = 0;
std::string lastErrorText;

void OnError(int code, const char* text) {
    lastErrorCode = code;
    lastErrorText = text;
}

void SetHints(unsigned samples, bool resizable) {
    glfwDefaultWindowHints();
    glfwWindowHint(GLFW_VISIBLE, GLFW_FALSE);
    glfwWindowHint(GLFW_RESIZABLE, resizable ? GLFW_TRUE : GLFW_FALSE);
    // The game minimises itself when it loses the foreground.
    glfwWindowHint(GLFW_AUTO_ICONIFY, GLFW_FALSE);
    for (const int bits : {GLFW_RED_BITS, GLFW_GREEN_BITS, GLFW_BLUE_BITS, GLFW_ALPHA_BITS}) {
        glfwWindowHint(bits, 8);
    }
    // Drivers have 16 bits or none, and answer 8 with none.
    for (const int bits : {GLFW_ACCUM_RED_BITS, GLFW_ACCUM_GREEN_BITS, GLFW_ACCUM_BLUE_BITS,
                           GLFW_ACCUM_ALPHA_BITS}) {
        glfwWindowHint(bits, 16);
    }
    glfwWindowHint(GLFW_DEPTH_BITS, 24);
    glfwWindowHint(GLFW_STENCIL_BITS, 8);
    glfwWindowHint(GLFW_SAMPLES, samples > 1 ? static_cast<int>(samples) : 0);
    glfwWindowHintString(GLFW_X11_CLASS_NAME, "vantrel");
    glfwWindowHintString(GLFW_X11_INSTANCE_NAME, "vantrel");
}

unsigned SamplesOfContext() {
    GLint samples = 0;
    glGetIntegerv(GL_SAMPLES, &samples);
    return static_cast<unsigned>(std::max(samples, 1));
}

bool ContextHasSwapControl() {
    // Only X11 leaves it to an extension.
    return std::strstr(glfwGetVersionString(), "X11") == nullptr ||
           glfwExtensionSupported("GLX_EXT_swap_control") == GLFW_TRUE ||
           glfwExtensionSupported("GLX_MESA_swap_control") == GLFW_TRUE ||
           glfwExtensionSupported("GLX_SGI_swap_control") == GLFW_TRUE;
}

/// Whether the current context can draw a picture of that size.
bool ContextHolds(int width, int height) {
    GLint most[2] = {};
    glGetIntegerv(GL_MAX_VIEWPORT_DIMS, most);
    return width <= most[0] && height <= most[1];
}

/// Of all monitors, as the window may be on any; 0 if none tells.
int HighestRefreshRate() {
    int count = 0;
    GLFWmonitor** const monitors = glfwGetMonitors(&count);
    int highest = 0;
    for (int i = 0; i < count; ++i) {
        const GLFWvidmode* const mode = glfwGetVideoMode(monitors[i]);
        highest = std::max(highest, mode != nullptr ? mode->refreshRate : 0);
    }
    return highest;
}

std::string TextOf(GLenum name) {
    const GLubyte* text = glfwGetCurrentContext() != nullptr ? glGetString(name) : nullptr;
    return text != nullptr ? reinterpret_cast<const char*>(text) : "";
}

/// One that draws without the display's knowing.
bool IsSoftwareRenderer() {
    const std::string renderer = TextOf(GL_RENDERER);
    const auto isNamed = [&](const char* name) { return renderer.find(name) != std::string::npos; };
    return isNamed("llvmpipe") || isNamed("softpipe") || isNamed("swrast");
}

WindowInput::KeyAction ActionOf(int action) {
    switch (action) {
        case GLFW_PRESS:
            return WindowInput::KeyAction::Press;
        case GLFW_REPEAT:
            return WindowInput::KeyAction::Repeat;
        default:
            return WindowInput::KeyAction::Release;
    }
}

int ButtonOf(int button) {
    switch (button) {
        case GLFW_MOUSE_BUTTON_LEFT:
            return MouseButton::left;
        case GLFW_MOUSE_BUTTON_RIGHT:
            return MouseButton::right;
        case GLFW_MOUSE_BUTTON_MIDDLE:
            return MouseButton::middle;
        default:
            return 0;
    }
}

/// The lock keys' own events still report the state before them.
void TakeLocks(WindowInput& input, int key, int modifiers) {
    if (key != VirtualKey::capsLock && key != VirtualKey::numLock) {
        input.SetToggled(VirtualKey::capsLock, (modifiers & GLFW_MOD_CAPS_LOCK) != 0);
        input.SetToggled(VirtualKey::numLock, (modifiers & GLFW_MOD_NUM_LOCK) != 0);
    }
}

}  // namespace

GlfwWindow::GlfwWindow() : state(std::make_unique<State>()) {}

GlfwWindow::~GlfwWindow() {
    Destroy();
    glfwTerminate();
}

bool GlfwWindow::State::Start() {
    glfwSetErrorCallback(OnError);
    WatchDisplay();
    return glfwInit() == GLFW_TRUE;
}

void GlfwWindow::State::ListenToEvents() {
    glfwSetWindowUserPointer(window, this);
    glfwSetInputMode(window, GLFW_LOCK_KEY_MODS, GLFW_TRUE);
    static constexpr auto stateOf = [](GLFWwindow* w) -> State& {
        return *static_cast<State*>(glfwGetWindowUserPointer(w));
    };
    glfwSetKeyCallback(window, [](GLFWwindow* w, int key, int, int action, int modifiers) {
        const bool types =
            ((modifiers & GLFW_MOD_NUM_LOCK) != 0) != ((modifiers & GLFW_MOD_SHIFT) != 0);
        const int code = action == GLFW_RELEASE ? stateOf(w).keyCodes.Release(key)
                                                : stateOf(w).keyCodes.Press(key, types);
        if (action != GLFW_RELEASE) {  // a lost focus lets keys go without telling the locks
            TakeLocks(stateOf(w).input, code, modifiers);
        }
        stateOf(w).input.AddKey(code, ActionOf(action));
    });
    glfwSetCharCallback(window, [](GLFWwindow* w, unsigned character) {
        stateOf(w).input.AddCharacter(character);
    });
    glfwSetCursorPosCallback(window, [](GLFWwindow* w, double x, double y) {
        const double scale = stateOf(w).Scale();
        stateOf(w).input.AddMouseMove(static_cast<int>(std::floor(x * scale)),
                                      static_cast<int>(std::floor(y * scale)));
    });
    glfwSetMouseButtonCallback(window, [](GLFWwindow* w, int button, int action, int) {
        if (const int known = ButtonOf(button); known != 0) {
            stateOf(w).input.AddButton(known, action == GLFW_PRESS);
        }
    });
    glfwSetWindowSizeCallback(window, [](GLFWwindow* w, int width, int height) {
        stateOf(w).told.size = {width, height};
    });
    glfwSetWindowPosCallback(window,
                             [](GLFWwindow* w, int, int) { stateOf(w).FollowUnderPointer(); });
    glfwSetWindowFocusCallback(window, [](GLFWwindow* w, int on) {
        stateOf(w).told.focused = on == GLFW_TRUE;
        if (on == GLFW_TRUE) {
            stateOf(w).HearOfEveryMove();
        }
    });
    glfwSetWindowIconifyCallback(
        window, [](GLFWwindow* w, int on) { stateOf(w).told.iconified = on == GLFW_TRUE; });
    glfwSetFramebufferSizeCallback(window, [](GLFWwindow* w, int width, int height) {
        stateOf(w).pixels = Point{width, height};
        stateOf(w).input.AddEvent({.kind = EventKind::Resize});
    });
    glfwSetWindowCloseCallback(window, [](GLFWwindow* w) {
        glfwSetWindowShouldClose(w, GLFW_FALSE);
        stateOf(w).input.AddEvent({.kind = EventKind::Close});
    });
    glfwSetWindowRefreshCallback(window, [](GLFWwindow* w) { stateOf(w).input.RequestRepaint(); });
}

WindowError GlfwWindow::Create(const WindowSettings& settings) {
    VANTREL_ASSERT(state->IsOwnThread());
    if (IsOpen()) {
        return WindowError::None;
    }
    lastErrorCode = 0;
    lastErrorText.clear();
    if (!state->Start()) {
        state->reason = lastErrorText;
        return WindowError::NoDisplay;
    }
    if (!state->ScreensHold(settings.width, settings.height)) {
        return WindowError::TooLarge;
    }
    SetHints(settings.samples, settings.resizable);
    state->window = glfwCreateWindow(std::max(settings.width, 1), std::max(settings.height, 1),
                                     settings.title.c_str(), nullptr, nullptr);
    if (state->window == nullptr) {
        state->reason = lastErrorText;
        const bool noContext = lastErrorCode == GLFW_API_UNAVAILABLE ||
                               lastErrorCode == GLFW_VERSION_UNAVAILABLE ||
                               lastErrorCode == GLFW_FORMAT_UNAVAILABLE;
        return noContext ? WindowError::NoContext : WindowError::NoWindow;
    }
    glfwMakeContextCurrent(state->window);
    if (!ContextHolds(settings.width, settings.height)) {
        Destroy();
        return WindowError::TooLarge;
    }
    state->samples = SamplesOfContext();
    state->hasSwapControl = ContextHasSwapControl();
    state->swapInterval = -1;
    state->isPaced = false;
    state->cursor.reset();
    state->focus = {};
    state->keyCodes = {};
    state->ListenToEvents();
    state->AskWindow();
    state->ApplyIcon();
    return WindowError::None;
}

void GlfwWindow::Destroy() {
    VANTREL_ASSERT(state->IsOwnThread() && state->loader == nullptr);
    if (IsOpen()) {
        glfwDestroyWindow(state->window);
        state->window = nullptr;
        state->samples = 1;
        state->told = {};
        state->pixels = Point{};
        state->input.Clear();
    }
}

bool GlfwWindow::IsOpen() const {
    return state->window != nullptr;
}

unsigned GlfwWindow::Samples() const {
    return state->samples;
}

bool GlfwWindow::OffersSamples(unsigned count) {
    if (count < 2) {
        return true;
    }
    if (const auto known = state->offers.find(count); known != state->offers.end()) {
        return known->second;
    }
    // The count of a hint is a request; only a context tells what was granted.
    bool offered = false;
    if (state->Start()) {
        GLFWwindow* current = glfwGetCurrentContext();
        SetHints(count, false);
        if (GLFWwindow* probe = glfwCreateWindow(64, 64, "", nullptr, nullptr)) {
            glfwMakeContextCurrent(probe);
            offered = SamplesOfContext() >= count;
            glfwMakeContextCurrent(current);
            glfwDestroyWindow(probe);
        }
    }
    state->offers[count] = offered;
    return offered;
}

std::string GlfwWindow::Reason() const {
    return state->reason;
}

void GlfwWindow::State::Poll() {
    glfwPollEvents();
    focus.Update(told.focused, clock.Milliseconds());
}

bool GlfwWindow::TakeEvent(Event& event) {
    VANTREL_ASSERT(state->IsOwnThread());
    if (!IsOpen()) {
        return false;
    }
    if (state->input.IsEmpty()) {
        state->Poll();
    }
    const bool taken = state->input.Take(event);
    if (taken && event.kind != EventKind::Paint) {
        state->lastEvent = state->clock.Counter();
    }
    return taken;
}

void GlfwWindow::RequestRepaint() {
    state->input.RequestRepaint();
}

void GlfwWindow::SwapBuffers() {
    if (IsOpen()) {
        VANTREL_ASSERT(glfwGetCurrentContext() == state->window);
        glfwSwapBuffers(state->window);
        state->AwaitNextFrame();
    }
}

void GlfwWindow::State::AwaitNextFrame() {
    if (isPaced) {
        // In whole milliseconds, rounded down; what is left is part of the next wait.
        clock.Sleep(static_cast<std::uint32_t>(pace.AfterSwap(clock.Counter()) / nanosecondsPerMs));
    }
}

bool GlfwWindow::Rest() {
    constexpr std::uint64_t untilRest = 1000 * nanosecondsPerMs;
    // A little more than a picture of the menus' animations, of which there are twelve in a second.
    constexpr std::uint64_t frame = 85 * nanosecondsPerMs;
    const std::uint64_t now = state->clock.Counter();
    if (!IsOpen() || !state->isPaced || !state->pace.IsFree() || !state->input.IsEmpty() ||
        now - state->lastEvent < untilRest) {
        return false;
    }
    state->restEnd = std::max(state->restEnd + frame, now);
    if (state->restEnd > now + frame || state->restEnd == now) {
        state->restEnd = now;  // the first for a while, or late
        return false;
    }
    glfwWaitEventsTimeout(static_cast<double>(state->restEnd - now) / 1.0e9);
    return true;
}

bool GlfwWindow::SetSwapInterval(int interval) {
    if (!IsOpen()) {
        return false;
    }
    state->isPaced = interval > 0;
    state->pace.Begin(HighestRefreshRate(), IsSoftwareRenderer());
    if (!state->hasSwapControl) {
        return false;
    }
    glfwSwapInterval(interval);
    state->swapInterval = interval;
    return true;
}

int GlfwWindow::SwapInterval() const {
    return state->swapInterval;
}

bool GlfwWindow::LendContext() {
    VANTREL_ASSERT(state->IsOwnThread());
    if (!IsOpen() || state->loader != nullptr) {
        return false;
    }
    // Made while the window's context is current: some drivers need that to share.
    SetHints(state->samples, false);
    state->loader = glfwCreateWindow(1, 1, "", nullptr, state->window);
    if (state->loader == nullptr) {
        return false;
    }
    glFinish();
    glfwMakeContextCurrent(nullptr);
    glfwMakeContextCurrent(state->loader);
    return true;
}

void GlfwWindow::BorrowContext() {
    VANTREL_ASSERT(!state->IsOwnThread() && state->loader != nullptr && !state->borrowed);
    state->borrowed = true;
    glfwMakeContextCurrent(state->window);
}

void GlfwWindow::ReturnContext() {
    VANTREL_ASSERT(glfwGetCurrentContext() == state->window);
    glFinish();
    glfwMakeContextCurrent(nullptr);
    state->borrowed = false;
}

void GlfwWindow::ReclaimContext() {
    VANTREL_ASSERT(state->IsOwnThread() && !state->borrowed);
    if (state->loader != nullptr) {
        // What was loaded is to be complete before another context uses it.
        glFinish();
        glfwMakeContextCurrent(state->window);
        glfwDestroyWindow(state->loader);
        state->loader = nullptr;
    }
}

void GlfwWindow::SetViewport(int width, int height) {
    if (glfwGetCurrentContext() != nullptr) {
        glViewport(0, 0, width, height);
    }
}

void GlfwWindow::SetPixelProjection(int width, int height) {
    if (width < 1 || height < 1 || glfwGetCurrentContext() == nullptr) {
        return;
    }
    const double halfWidth = width / 2.0;
    const double halfHeight = height / 2.0;
    const double projection[16] = {
        1.0 / halfWidth, 0, 0, 0, 0, -1.0 / halfHeight, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    glViewport(0, 0, width, height);
    glMatrixMode(GL_PROJECTION);
    glLoadMatrixd(projection);
    glTranslated(-halfWidth, -halfHeight, 0.0);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
}

std::string GlfwWindow::ExtensionText() const {
    return IsOpen() ? TextOf(GL_EXTENSIONS) : "";
}

std::string GlfwWindow::RendererText() const {
    return IsOpen() ? TextOf(GL_RENDERER) : "";
}

bool GlfwWindow::IsKeyDown(int virtualKey) const {
    return state->input.IsKeyDown(virtualKey);
}

bool GlfwWindow::IsKeyToggled(int virtualKey) const {
    return state->input.IsKeyToggled(virtualKey);
}

bool GlfwWindow::IsMouseButtonDown(int button) const {
    return state->input.IsButtonDown(button);
}

char GlfwWindow::KeyToChar(int virtualKey) const {
    return state->input.CharacterOf(virtualKey);
}

}  // namespace Platform
