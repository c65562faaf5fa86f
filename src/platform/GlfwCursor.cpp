// The real window: cursor, and the pointer moves that the toolkit has to be made to report.

#include <cmath>

#include "platform/GlfwWindowState.h"

namespace Platform {

void GlfwWindow::SetCursor(Cursor cursor) {
    if (!IsOpen() || state->cursor == cursor) {
        return;
    }
    state->cursor = cursor;
    GLFWcursor*& shape = cursor == Cursor::Cross ? state->cross : state->arrow;
    if (shape == nullptr) {
        shape = glfwCreateStandardCursor(cursor == Cursor::Cross ? GLFW_CROSSHAIR_CURSOR
                                                                 : GLFW_ARROW_CURSOR);
    }
    glfwSetCursor(state->window, shape);
    glfwSetInputMode(state->window, GLFW_CURSOR,
                     cursor == Cursor::Empty ? GLFW_CURSOR_HIDDEN : GLFW_CURSOR_NORMAL);
}

Point GlfwWindow::State::CursorPosition() const {
    double x = 0.0;
    double y = 0.0;
    glfwGetCursorPos(window, &x, &y);
    const double scale = Scale();
    return {static_cast<int>(std::floor(x * scale)), static_cast<int>(std::floor(y * scale))};
}

void GlfwWindow::State::PutPointer(double x, double y) {
    // The toolkit doesn't report moves to where it put the pointer last, not even the player's,
    // and so the place of a press would be wrong. The X server takes 16 bits of each coordinate:
    // with the 17th set the pointer goes where it should, and no move ever ends where the toolkit
    // believes it to be.
    constexpr double beyond = 65536.0;
    glfwSetCursorPos(window, std::floor(x) + beyond, std::floor(y) + beyond);
}

void GlfwWindow::State::HearOfEveryMove() {
    double x = 0.0;
    double y = 0.0;
    glfwGetCursorPos(window, &x, &y);
    PutPointer(x, y);
}

void GlfwWindow::State::FollowUnderPointer() {
    const Point at = CursorPosition();
    const Point area = pixels;
    const bool isIn = at.x >= 0 && at.y >= 0 && at.x < area.x && at.y < area.y;
    if (isIn && !input.IsPointerAt(at.x, at.y)) {
        input.AddMouseMove(at.x, at.y);
        ForgetToolkitsPointer();
    }
}

void GlfwWindow::State::ForgetToolkitsPointer() {
    const int mode = glfwGetInputMode(window, GLFW_CURSOR);
    for (const int next :
         {mode == GLFW_CURSOR_NORMAL ? GLFW_CURSOR_HIDDEN : GLFW_CURSOR_NORMAL, mode}) {
        glfwSetInputMode(window, GLFW_CURSOR, next);
    }
}

int GlfwWindow::CursorScreenX() const {
    return IsOpen() ? ClientLeft() + state->CursorPosition().x : -1;
}

int GlfwWindow::CursorScreenY() const {
    return IsOpen() ? ClientTop() + state->CursorPosition().y : -1;
}

void GlfwWindow::WarpCursor(int screenX, int screenY) {
    if (!IsForeground()) {
        return;
    }
    const double scale = state->Scale();
    state->PutPointer((screenX - ClientLeft()) / scale, (screenY - ClientTop()) / scale);
}

}  // namespace Platform
