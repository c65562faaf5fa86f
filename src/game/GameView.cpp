// The logical view, fitted to the window or to a recorded run's.

#include "actors/Camera.h"
#include "engine/Page.h"
#include "game/Game.h"
#include "game/RunRecorder.h"
#include "graphics/GLWindow.h"

namespace {

struct ViewSize {
    float width, height;
};

/// 600 high or 800 wide, whichever shows more; 800 by 600 while the window has no area.
ViewSize LogicalView() {
    if (RunRecorder::HoldsView()) {
        return {RunRecorder::Current().viewWidth, RunRecorder::Current().viewHeight};
    }
    const int width = GLWindow::ClientWidth();
    const int height = GLWindow::ClientHeight();
    if (width < 1 || height < 1) {
        return {Page::width, Page::height};
    }
    const auto w = static_cast<float>(width);
    const auto h = static_cast<float>(height);
    if (height >= width) {
        return {Page::width, h * (Page::width / w)};
    }
    return {w * (Page::height / h), Page::height};
}

}  // namespace

float Game::ViewWidth() {
    return LogicalView().width;
}

float Game::ViewHeight() {
    return LogicalView().height;
}

View Game::CurrentView() {
    const ViewSize size = LogicalView();
    return Camera::Look(size.width, size.height);
}
