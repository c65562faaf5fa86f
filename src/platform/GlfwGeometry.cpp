// The real window: show state, geometry and display. The desktop does most of what is
// asked a little later, so sizes and positions are waited for, but never for long.

#include <algorithm>
#include <array>
#include <cmath>

#include "platform/GlfwWindowState.h"
#include "platform/X11Window.h"

namespace Platform {

namespace {

constexpr std::uint32_t patienceMilliseconds = 150;
/// Until the window is shown, on which more depends: where it goes, and whether it can fill the
/// screen.
constexpr std::uint32_t showPatienceMilliseconds = 500;

/// Top left corner of the primary monitor, in the toolkit's units.
Point ScreenOrigin() {
    Point origin;
    if (GLFWmonitor* monitor = glfwGetPrimaryMonitor()) {
        glfwGetMonitorPos(monitor, &origin.x, &origin.y);
    }
    return origin;
}

Point ScreenSize() {
    GLFWmonitor* monitor = glfwGetPrimaryMonitor();
    const GLFWvidmode* mode = monitor != nullptr ? glfwGetVideoMode(monitor) : nullptr;
    return mode != nullptr ? Point{mode->width, mode->height} : Point{};
}

Point PositionOf(GLFWwindow* window) {
    Point position;
    glfwGetWindowPos(window, &position.x, &position.y);
    return position;
}

int Scaled(int value, double scale) {
    return static_cast<int>(std::lround(value * scale));
}

bool HasAttribute(GLFWwindow* window, int attribute) {
    return window != nullptr && glfwGetWindowAttrib(window, attribute) == GLFW_TRUE;
}

}  // namespace

bool GlfwWindow::State::ScreensHold(int width, int height) const {
    int count = 0;
    GLFWmonitor** const monitors = glfwGetMonitors(&count);
    Point first;
    Point last{defaultWidth, defaultHeight};
    double scale = 1.0;
    for (int i = 0; i < count; ++i) {
        float x = 1.0f;
        float y = 1.0f;
        glfwGetMonitorContentScale(monitors[i], &x, &y);
        scale = std::max({scale, static_cast<double>(x), static_cast<double>(y)});
        Point at;
        glfwGetMonitorPos(monitors[i], &at.x, &at.y);
        first = {std::min(first.x, at.x), std::min(first.y, at.y)};
        int modeCount = 0;
        const GLFWvidmode* const modes = glfwGetVideoModes(monitors[i], &modeCount);
        for (int mode = 0; mode < modeCount; ++mode) {
            last = {std::max(last.x, at.x + modes[mode].width),
                    std::max(last.y, at.y + modes[mode].height)};
        }
    }
    // Without any screen nothing is known, and creating the window shows it.
    return count == 0 ||
           (width <= (last.x - first.x) * scale && height <= (last.y - first.y) * scale);
}

void GlfwWindow::State::AskWindow() {
    glfwGetWindowSize(window, &told.size.x, &told.size.y);
    Point area;
    glfwGetFramebufferSize(window, &area.x, &area.y);
    pixels = area;
    told.focused = HasAttribute(window, GLFW_FOCUSED);
    told.iconified = HasAttribute(window, GLFW_ICONIFIED);
}

double GlfwWindow::State::Scale() const {
    const int width = pixels.load().x;
    return told.size.x > 0 && width > 0 ? static_cast<double>(width) / told.size.x : 1.0;
}

void GlfwWindow::State::AwaitSize(Point wanted) {
    const std::uint32_t start = clock.Milliseconds();
    while (pixels.load() != wanted && clock.Milliseconds() - start < patienceMilliseconds) {
        glfwWaitEventsTimeout(0.005);
    }
}

void GlfwWindow::State::AwaitPosition(Point position) {
    const std::uint32_t start = clock.Milliseconds();
    Point now = PositionOf(window);
    while (now != position && clock.Milliseconds() - start < patienceMilliseconds) {
        glfwWaitEventsTimeout(0.005);
        now = PositionOf(window);
    }
}

bool GlfwWindow::State::AwaitVisible() {
    const std::uint32_t start = clock.Milliseconds();
    while (!HasAttribute(window, GLFW_VISIBLE)) {
        if (clock.Milliseconds() - start >= showPatienceMilliseconds) {
            return false;
        }
        glfwWaitEventsTimeout(0.005);
    }
    return true;
}

Frame GlfwWindow::State::CurrentFrame() {
    if (glfwGetWindowMonitor(window) != nullptr) {
        return {};
    }
    if (!told.iconified && HasAttribute(window, GLFW_VISIBLE)) {
        glfwGetWindowFrameSize(window, &windowedFrame.left, &windowedFrame.top,
                               &windowedFrame.right, &windowedFrame.bottom);
    }
    return windowedFrame;
}

void GlfwWindow::State::PaintPlainly() {
    if (glfwGetCurrentContext() != window) {
        return;
    }
    glPushAttrib(GL_COLOR_BUFFER_BIT);
    glClearColor(0.055f, 0.075f, 0.095f, 1.0f);  // as behind the levels
    glClear(GL_COLOR_BUFFER_BIT);
    glPopAttrib();
    glfwSwapBuffers(window);
}

// Show state.

void GlfwWindow::Show() {
    if (IsOpen()) {
        if (!RequestShow(state->window)) {
            glfwShowWindow(state->window);
        }
        state->AwaitVisible();
        state->Poll();
        state->PaintPlainly();
    }
}

void GlfwWindow::Focus() {
    if (IsOpen()) {
        glfwFocusWindow(state->window);
        state->Poll();
    }
}

bool GlfwWindow::IsForeground() const {
    return IsOpen() && state->focus.IsForeground();
}

bool GlfwWindow::IsMinimised() const {
    return state->told.iconified;
}

bool GlfwWindow::IsMaximised() const {
    return HasAttribute(state->window, GLFW_MAXIMIZED);
}

void GlfwWindow::Maximise() {
    if (IsOpen()) {
        glfwMaximizeWindow(state->window);
    }
}

void GlfwWindow::Minimise() {
    if (IsOpen()) {
        glfwIconifyWindow(state->window);
    }
}

void GlfwWindow::Restore() {
    if (!IsOpen()) {
        return;
    }
    // The toolkit shows a minimised window only by waiting for it.
    if (HasAttribute(state->window, GLFW_VISIBLE) || !RequestShow(state->window)) {
        glfwRestoreWindow(state->window);
    }
}

void GlfwWindow::SetTitle(const std::string& title) {
    if (IsOpen()) {
        glfwSetWindowTitle(state->window, title.c_str());
    }
}

void GlfwWindow::SetIcon(const unsigned char* rgba, int width, int height) {
    if (rgba == nullptr || width < 1 || height < 1) {
        return;
    }
    const std::size_t bytes =
        static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4;
    state->icon.assign(rgba, rgba + bytes);
    state->iconSize = {width, height};
    if (IsOpen()) {
        state->ApplyIcon();
    }
}

void GlfwWindow::State::ApplyIcon() {
    if (!icon.empty()) {
        const GLFWimage image{iconSize.x, iconSize.y, icon.data()};
        glfwSetWindowIcon(window, 1, &image);
    }
}

// Geometry.

int GlfwWindow::ClientWidth() const {
    return state->pixels.load().x;
}

int GlfwWindow::ClientHeight() const {
    return state->pixels.load().y;
}

int GlfwWindow::ScreenWidth() const {
    return Scaled(ScreenSize().x, state->Scale());
}

int GlfwWindow::ScreenHeight() const {
    return Scaled(ScreenSize().y, state->Scale());
}

int GlfwWindow::ClientLeft() const {
    return IsOpen() ? Scaled(PositionOf(state->window).x - ScreenOrigin().x, state->Scale()) : 0;
}

int GlfwWindow::ClientTop() const {
    return IsOpen() ? Scaled(PositionOf(state->window).y - ScreenOrigin().y, state->Scale()) : 0;
}

int GlfwWindow::OuterLeft() const {
    return IsOpen() ? ClientLeft() - Scaled(state->CurrentFrame().left, state->Scale()) : 0;
}

int GlfwWindow::OuterTop() const {
    return IsOpen() ? ClientTop() - Scaled(state->CurrentFrame().top, state->Scale()) : 0;
}

int GlfwWindow::OuterWidth() const {
    if (!IsOpen()) {
        return 0;
    }
    const Frame frame = state->CurrentFrame();
    return ClientWidth() + Scaled(frame.left + frame.right, state->Scale());
}

int GlfwWindow::OuterHeight() const {
    if (!IsOpen()) {
        return 0;
    }
    const Frame frame = state->CurrentFrame();
    return ClientHeight() + Scaled(frame.top + frame.bottom, state->Scale());
}

void GlfwWindow::MoveOuter(int left, int top) {
    if (!IsOpen() || glfwGetWindowMonitor(state->window) != nullptr) {
        return;
    }
    const double scale = state->Scale();
    const Frame frame = state->CurrentFrame();
    const Point origin = ScreenOrigin();
    const Point position{Scaled(left, 1.0 / scale) + frame.left + origin.x,
                         Scaled(top, 1.0 / scale) + frame.top + origin.y};
    glfwSetWindowPos(state->window, position.x, position.y);
    state->AwaitPosition(position);
}

void GlfwWindow::SetOuterSize(int width, int height) {
    if (!IsOpen()) {
        return;
    }
    SetClientSize(width - (OuterWidth() - ClientWidth()),
                  height - (OuterHeight() - ClientHeight()));
}

void GlfwWindow::SetClientSize(int width, int height) {
    if (!IsOpen() || glfwGetWindowMonitor(state->window) != nullptr) {
        return;
    }
    const double scale = state->Scale();
    const Point size{std::max(width, 1), std::max(height, 1)};
    if (state->pixels.load() == size) {
        return;
    }
    glfwSetWindowSize(state->window, std::max(Scaled(size.x, 1.0 / scale), 1),
                      std::max(Scaled(size.y, 1.0 / scale), 1));
    state->AwaitSize(size);
    state->PaintPlainly();
}

void GlfwWindow::SetResizable(bool on) {
    if (IsOpen()) {
        glfwSetWindowAttrib(state->window, GLFW_RESIZABLE, on ? GLFW_TRUE : GLFW_FALSE);
    }
}

bool GlfwWindow::IsResizable() const {
    return HasAttribute(state->window, GLFW_RESIZABLE);
}

// Display.

std::vector<DisplayMode> GlfwWindow::DisplayModes() const {
    std::vector<DisplayMode> list;
    GLFWmonitor* monitor = glfwGetPrimaryMonitor();
    int count = 0;
    const GLFWvidmode* modes = monitor != nullptr ? glfwGetVideoModes(monitor, &count) : nullptr;
    for (int i = 0; modes != nullptr && i < count; ++i) {
        list.push_back({modes[i].width, modes[i].height, modes[i].refreshRate});
    }
    return list;
}

bool GlfwWindow::EnterFullscreen(const DisplayMode& mode) {
    GLFWmonitor* monitor = glfwGetPrimaryMonitor();
    // A window that isn't shown would have the toolkit wait until it is.
    if (!IsOpen() || monitor == nullptr || !state->AwaitVisible()) {
        return false;
    }
    if (glfwGetWindowMonitor(state->window) == nullptr) {
        state->windowedPosition = PositionOf(state->window);
        state->windowedSize = state->told.size;
    }
    glfwSetWindowMonitor(state->window, monitor, 0, 0, mode.width, mode.height, mode.refreshRate);
    state->AwaitSize({mode.width, mode.height});
    state->PaintPlainly();
    return glfwGetWindowMonitor(state->window) != nullptr;
}

bool GlfwWindow::LeaveFullscreen() {
    if (!IsOpen() || glfwGetWindowMonitor(state->window) == nullptr) {
        return true;
    }
    const Point position = state->windowedPosition;
    const Point size = state->windowedSize;
    glfwSetWindowMonitor(state->window, nullptr, position.x, position.y, size.x, size.y,
                         GLFW_DONT_CARE);
    const double scale = state->Scale();
    state->AwaitSize({Scaled(size.x, scale), Scaled(size.y, scale)});
    return glfwGetWindowMonitor(state->window) == nullptr;
}

void GlfwWindow::SetGammaRamp(const std::vector<unsigned short>& ramp) {
    GLFWmonitor* monitor = glfwGetPrimaryMonitor();
    if (monitor != nullptr && !ramp.empty()) {
        std::vector<unsigned short> channel = ramp;
        const GLFWgammaramp gamma{channel.data(), channel.data(), channel.data(),
                                  static_cast<unsigned>(channel.size())};
        glfwSetGammaRamp(monitor, &gamma);
    }
}

}  // namespace Platform
