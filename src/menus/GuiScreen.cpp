// Focus, events and pending queues of a screen; see GuiScreen.h.

#include "menus/GuiScreen.h"

#include <cstddef>

#include "graphics/GLWindow.h"
#include "graphics/GLWindowCursor.h"
#include "menus/GuiPainter.h"
#include "menus/LogicalSpace.h"

namespace {

/// Counts a queue down and runs the callbacks that are due, the oldest first. Returns true if a
/// callback left the screen. Callbacks may change the queue, so it is walked by index.
template <class Entry>
bool RunQueue(std::vector<Entry>& queue, float dt) {
    std::size_t i = 0;
    while (i < queue.size()) {
        queue[i].delay -= dt;
        if (queue[i].delay > 0.0f) {
            ++i;
            continue;
        }
        const Entry due = queue[i];
        queue.erase(queue.begin() + static_cast<std::ptrdiff_t>(i));
        if (due.Call()) {
            return true;
        }
    }
    return false;
}

/// Runs a callback at once, or queues it if it has a delay. What a callback that runs within
/// its event returns doesn't matter.
template <class Entry>
void RunOrQueue(std::vector<Entry>& queue, const Entry& entry) {
    if (!entry.callback) {
        return;
    }
    if (entry.delay > 0.0f) {
        queue.push_back(entry);
    } else {
        entry.Call();
    }
}

}  // namespace

GuiScreen::GuiScreen() {
    GLWindow::UnclipCursor();
}

void GuiScreen::Reset() {
    for (const auto& widget : widgets) {
        widget->Reset();
    }
    FlushPending();
    focus = nullptr;
    timer.Reset();
}

void GuiScreen::AddWidget(std::unique_ptr<GuiWidget>&& widget) {
    if (!widget || widget->owner) {
        return;
    }
    widget->owner = this;
    widgets.push_back(std::move(widget));
}

void GuiScreen::SetDefaultFocus(GuiWidget* widget) {
    if (widget && widget->owner == this) {
        defaultFocus = widget;
    }
}

void GuiScreen::SetFocus(GuiWidget* widget) {
    if (!widget || widget->owner != this || widget == focus) {
        return;
    }
    if (focus) {
        focus->hasFocus = false;
        focus->OnLoseFocus();
    }
    widget->hasFocus = true;
    widget->OnGainFocus();
    focus = widget;
}

void GuiScreen::FlushPending() {
    pendingMouseDown.clear();
    pendingMouseUp.clear();
    pendingMouseMove.clear();
    pendingKeyDown.clear();
    pendingKeyUp.clear();
}

void GuiScreen::Run() {
    GLWindowEventListener* const before = GLWindow::GetListener();
    GLWindow::SetListener(this);
    running = true;
    while (running && GLWindow::IsOpen()) {
        GLWindow::RequestRepaint();
        GLWindow::PumpMessages();
    }
    GLWindow::SetListener(before);
}

void GuiScreen::OnMouseMove(int x, int y) {
    const LogicalPosition at = LogicalPosition::InWindow(x, y);
    GuiWidget* hit = nullptr;
    for (const auto& widget : widgets) {
        if (!hit && widget->enabled && widget->Contains(at.x, at.y)) {
            hit = widget.get();
            if (!hit->hasFocus) {
                hit->hasFocus = true;
                hit->OnGainFocus();
            }
            hit->OnMouseMove(at.x, at.y);
        } else if (widget->hasFocus) {
            widget->hasFocus = false;
            widget->OnLoseFocus();
        }
    }
    // So the pointer leaving all widgets also ends a focus that was reached by keys.
    focus = hit;
    if (focus) {
        RunOrQueue(pendingMouseMove,
                   {focus->delayMouseMove, focus->onMouseMove, focus, at.x, at.y});
    }
}

void GuiScreen::OnMouseDown(int x, int y, int button) {
    if (!focus) {
        return;
    }
    const LogicalPosition at = LogicalPosition::InWindow(x, y);
    focus->OnMouseDown(at.x, at.y, button);
    RunOrQueue(pendingMouseDown,
               {focus->delayMouseDown, focus->onMouseDown, focus, at.x, at.y, button});
}

void GuiScreen::OnMouseUp(int x, int y, int button) {
    if (!focus) {
        return;
    }
    const LogicalPosition at = LogicalPosition::InWindow(x, y);
    focus->OnMouseUp(at.x, at.y, button);
    RunOrQueue(pendingMouseUp, {focus->delayMouseUp, focus->onMouseUp, focus, at.x, at.y, button});
}

void GuiScreen::OnKeyDown(int virtualKey) {
    if (!focus) {
        SetFocus(defaultFocus);
        return;
    }
    focus->OnKeyDown(virtualKey);
    RunOrQueue(pendingKeyDown, {focus->delayKeyDown, focus->onKeyDown, focus, virtualKey});
    // A callback that ran at once may have cleared the focus.
    if (!focus || !focus->owner) {
        return;
    }
    const auto route = focus->keyNavigation.find(virtualKey);
    if (route != focus->keyNavigation.end()) {
        focus->owner->SetFocus(route->second);
    }
}

void GuiScreen::OnKeyUp(int virtualKey) {
    if (!focus) {
        return;
    }
    focus->OnKeyUp(virtualKey);
    RunOrQueue(pendingKeyUp, {focus->delayKeyUp, focus->onKeyUp, focus, virtualKey});
}

void GuiScreen::OnClose() {
    GLWindow::Close();
}

void GuiScreen::OnDestroy() {
    FlushPending();
    focus = nullptr;
    defaultFocus = nullptr;
    widgets.clear();
}

void GuiScreen::OnPaint() {
    GuiPainter& painter = GuiPainter::Current();
    if (clearBackground) {
        painter.Clear(clearColour);
    }
    const LogicalSpace space = LogicalSpace::OfWindow();
    painter.BeginPage(space.offsetX, space.offsetY, space.scale, space.scale);
    for (const auto& widget : widgets) {
        if (widget->visible) {
            widget->OnPaint();
        }
    }
    if (swapAfterPaint) {
        GLWindow::SwapBuffers();
    }
    painter.EndPage();
    timer.Tick();
    RunPending(timer.deltaSeconds);
}

void GuiScreen::RunPending(float dt) {
    // A screen that has been left runs nothing more of what was pending.
    if (RunQueue(pendingMouseDown, dt) || RunQueue(pendingMouseUp, dt) ||
        RunQueue(pendingMouseMove, dt) || RunQueue(pendingKeyDown, dt) ||
        RunQueue(pendingKeyUp, dt)) {
        FlushPending();
    }
}
