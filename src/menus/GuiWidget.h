#pragma once
// The base of everything on a screen: a rectangle in the units of the page (engine/Page.h),
// with a colour, and up to five callbacks that the screen runs after it has passed an event
// to the widget.
//
// A callback with a delay above 0 runs that many seconds of painting later; this lets a
// button play its click before the menu changes under it. A callback that returns true says
// that the screen has been left, and drops all that is still pending on it.

#include <map>

#include "graphics/GLWindowEventListener.h"
#include "menus/GuiPainter.h"

class GuiScreen;

class GuiWidget : public GLWindowEventListener {
public:
    using MouseButtonCallback = bool (*)(GuiWidget* widget, int x, int y, int button);
    using MouseMoveCallback = bool (*)(GuiWidget* widget, int x, int y);
    using KeyCallback = bool (*)(GuiWidget* widget, int virtualKey);

    GuiWidget() = default;
    GuiWidget(const GuiWidget&) = delete;
    GuiWidget& operator=(const GuiWidget&) = delete;
    ~GuiWidget() override = default;

    /// The widget has just become the screen's focus.
    virtual void OnGainFocus() {}
    /// The widget has just stopped being the screen's focus.
    virtual void OnLoseFocus() {}
    /// The screen is being shown: go back to the initial look.
    virtual void Reset() {}

    /// Each component is held within 0..1.
    void SetColour(const Colour& newColour);
    /// Negative sizes become 0.
    void SetSize(int w, int h);
    void SetPosition(int left, int top);
    /// Pressing `virtualKey` on this widget moves the focus to `target`; replaces an earlier
    /// route of that key.
    void MapKey(int virtualKey, GuiWidget* target);
    /// Whether a position in logical units lies in the widget; right and bottom edge don't.
    bool Contains(int logicalX, int logicalY) const;

    Colour colour = Colours::white;
    int width = 100;
    int height = 20;
    int x = 0;
    int y = 0;
    bool visible = true;    ///< the screen paints the widget
    bool enabled = true;    ///< the mouse can reach the widget
    bool hasFocus = false;  ///< the widget is the screen's focus

    MouseButtonCallback onMouseDown = nullptr;
    MouseButtonCallback onMouseUp = nullptr;
    MouseMoveCallback onMouseMove = nullptr;
    KeyCallback onKeyDown = nullptr;
    KeyCallback onKeyUp = nullptr;
    // Delays in seconds; 0 runs the callback within the event.
    float delayMouseDown = 0.0f;
    float delayMouseUp = 0.0f;
    float delayMouseMove = 0.0f;
    float delayKeyDown = 0.0f;
    float delayKeyUp = 0.0f;

    GuiScreen* owner = nullptr;               ///< the screen that holds the widget
    std::map<int, GuiWidget*> keyNavigation;  ///< not owned; widgets of the same screen
};
