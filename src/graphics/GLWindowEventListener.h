#pragma once
// Receives the window's events. At most one listener is current; a modal loop installs its own and
// restores the predecessor afterwards.

class GLWindowEventListener {
public:
    virtual ~GLWindowEventListener() = default;

    // Positions are client pixels from the top left; buttons and keys are those of
    // platform/VirtualKeys.h, repeats included.

    virtual void OnMouseMove(int /*x*/, int /*y*/) {}
    virtual void OnMouseDown(int /*x*/, int /*y*/, int /*button*/) {}
    virtual void OnMouseUp(int /*x*/, int /*y*/, int /*button*/) {}
    virtual void OnKeyDown(int /*virtualKey*/) {}
    virtual void OnKeyUp(int /*virtualKey*/) {}
    virtual void OnResize() {}
    virtual void OnClose() {}
    virtual void OnDestroy() {}
    /// A repaint is due: draw one frame.
    virtual void OnPaint() {}
    /// The window has just been minimised because it lost the foreground.
    virtual void OnFocusLost() {}
};
