#pragma once
// A full-screen page of widgets (engine/Page.h), letterboxed into the client area. The screen turns
// window positions into logical ones, decides which widget has the focus, passes events to that
// widget, and runs the widget's callbacks, at once or from its pending queues.
//
// A screen is built once and shown many times; `Reset` begins each showing. The queues count
// down in `OnPaint` only: those of a screen that isn't shown stand still, until the next
// `Reset` drops them. Main thread only.

#include <memory>
#include <utility>
#include <vector>

#include "engine/Timer.h"
#include "menus/GuiWidget.h"

class GuiScreen : public GLWindowEventListener {
public:
    /// Also releases any clip of the cursor.
    GuiScreen();
    GuiScreen(const GuiScreen&) = delete;
    GuiScreen& operator=(const GuiScreen&) = delete;
    ~GuiScreen() override = default;

    /// The screen is being shown: resets the widgets, drops what is pending, clears the focus.
    /// The widgets' `hasFocus` stays: one that is left flagged gains no focus from the mouse
    /// until the pointer has left it once.
    virtual void Reset();

    /// Appends a widget and owns it from then on. Null and a widget that has an owner are
    /// ignored and stay with the caller.
    void AddWidget(std::unique_ptr<GuiWidget>&& widget);
    /// Makes a widget and adds it.
    template <class Widget, class... Arguments>
    Widget& Add(Arguments&&... arguments) {
        auto widget = std::make_unique<Widget>(std::forward<Arguments>(arguments)...);
        Widget& added = *widget;
        AddWidget(std::move(widget));
        return added;
    }
    /// What the first key press focuses; only a widget of this screen is taken.
    void SetDefaultFocus(GuiWidget* widget);
    /// Moves the focus; only to a widget of this screen.
    void SetFocus(GuiWidget* widget);
    void FlushPending();

    /// Runs the screen as a modal loop until `Stop` or until the window closes; the listener
    /// of before is restored.
    void Run();
    void Stop() { running = false; }

    void OnMouseMove(int x, int y) override;
    void OnMouseDown(int x, int y, int button) override;
    void OnMouseUp(int x, int y, int button) override;
    /// Without a focus the key only wakes the default focus up.
    void OnKeyDown(int virtualKey) override;
    void OnKeyUp(int virtualKey) override;
    void OnClose() override;
    /// Deletes all widgets.
    void OnDestroy() override;
    /// Paints the widgets in the order of adding, then counts the pending queues down.
    void OnPaint() override;

    Colour clearColour;           ///< background
    bool clearBackground = true;  ///< false when the page lies over another frame
    bool swapAfterPaint = true;   ///< false when the caller ends the frame
    Timer timer;                  ///< time base of the pending queues
    bool running = false;         ///< of `Run`
    GuiWidget* focus = nullptr;   ///< under the mouse or reached by keys; not owned
    GuiWidget* defaultFocus = nullptr;
    /// In the order of adding: paint order, and order of the hit test, so that the first wins
    /// where widgets overlap.
    std::vector<std::unique_ptr<GuiWidget>> widgets;

    // Pending entries; each remembers its event.

    struct PendingMouseButton {
        float delay;  ///< seconds left
        GuiWidget::MouseButtonCallback callback;
        GuiWidget* widget;
        int x, y, button;
        bool Call() const { return callback(widget, x, y, button); }
    };
    struct PendingMouseMove {
        float delay;
        GuiWidget::MouseMoveCallback callback;
        GuiWidget* widget;
        int x, y;
        bool Call() const { return callback(widget, x, y); }
    };
    struct PendingKey {
        float delay;
        GuiWidget::KeyCallback callback;
        GuiWidget* widget;
        int virtualKey;
        bool Call() const { return callback(widget, virtualKey); }
    };
    std::vector<PendingMouseButton> pendingMouseDown;
    std::vector<PendingMouseButton> pendingMouseUp;
    std::vector<PendingMouseMove> pendingMouseMove;
    std::vector<PendingKey> pendingKeyDown;
    std::vector<PendingKey> pendingKeyUp;

private:
    void RunPending(float dt);
};
