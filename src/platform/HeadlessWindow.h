#pragma once
// A window without a display: geometry, focus and keys are plain state, scripted by its owner.
// Every request takes effect at once. The cursor rests outside of the client area until it is
// moved.

#include "platform/Window.h"
#include "platform/WindowInput.h"

namespace Platform {

class HeadlessWindow : public Window {
public:
    /// Thickness of the decoration in pixels; none in fullscreen.
    static constexpr int border = 4;
    static constexpr int caption = 20;

    // The script.

    /// Holds a key down or lets it go, and queues the event; `character` is what it types.
    void SetKey(int virtualKey, bool down, char character = 0);
    void SetToggled(int virtualKey, bool on) { input.SetToggled(virtualKey, on); }
    /// Presses or lets go a button at the cursor.
    void SetButton(int button, bool down);
    /// Moves the cursor; within the client area this queues a mouse move.
    void SetCursorPosition(int screenX, int screenY);
    void QueueEvent(const Event& event) { input.AddEvent(event); }
    void SetForeground(bool on) { foreground = on; }
    void SetMinimised(bool on) { minimised = on; }
    /// Whether `Minimise` is obeyed, as by a window manager.
    void SetCanMinimise(bool on) { canMinimise = on; }
    void SetScreen(int width, int height);
    void SetDisplayModes(std::vector<DisplayMode> list) { modes = std::move(list); }
    /// What `OffersSamples` says, and what `Create` then really gives.
    void SetSampleLimits(unsigned offered, unsigned given);
    void SetExtensions(std::string text) { extensions = std::move(text); }
    /// What `Create` says from now on.
    void SetCreateError(WindowError error) { createError = error; }
    /// -1: there is no such control.
    void SetSwapControl(int interval) { swapInterval = interval; }

    // What was asked of it.

    int CreateCount() const { return createCount; }
    int SwapCount() const { return swapCount; }
    int MinimiseCount() const { return minimiseCount; }
    int ViewportWidth() const { return viewportWidth; }
    int ViewportHeight() const { return viewportHeight; }
    Cursor CursorShown() const { return cursor; }
    const std::string& Title() const { return title; }
    const std::vector<unsigned short>& GammaRamp() const { return gammaRamp; }
    const DisplayMode& ModeInForce() const { return modeInForce; }

    // Window.

    WindowError Create(const WindowSettings& settings) override;
    void Destroy() override;
    bool IsOpen() const override { return open; }
    unsigned Samples() const override { return samples; }
    bool OffersSamples(unsigned count) override { return count <= offeredSamples; }
    bool TakeEvent(Event& event) override { return open && input.Take(event); }
    void RequestRepaint() override { input.RequestRepaint(); }
    void SwapBuffers() override { ++swapCount; }
    bool SetSwapInterval(int interval) override;
    int SwapInterval() const override { return swapInterval; }
    void SetViewport(int w, int h) override;
    void SetPixelProjection(int w, int h) override { SetViewport(w, h); }
    std::string ExtensionText() const override { return open ? extensions : std::string(); }
    std::string RendererText() const override { return open ? "none" : ""; }
    void Show() override {}
    void Focus() override;
    bool IsForeground() const override { return open && foreground; }
    bool IsMinimised() const override { return minimised; }
    bool IsMaximised() const override { return maximised; }
    void Maximise() override;
    void Minimise() override;
    void Restore() override;
    void SetTitle(const std::string& text) override { title = text; }
    int ClientWidth() const override { return clientWidth; }
    int ClientHeight() const override { return clientHeight; }
    int ScreenWidth() const override { return screenWidth; }
    int ScreenHeight() const override { return screenHeight; }
    int ClientLeft() const override { return clientLeft; }
    int ClientTop() const override { return clientTop; }
    int OuterLeft() const override;
    int OuterTop() const override;
    int OuterWidth() const override;
    int OuterHeight() const override;
    void MoveOuter(int left, int top) override;
    void SetOuterSize(int w, int h) override;
    void SetClientSize(int w, int h) override;
    void SetResizable(bool on) override { resizable = on; }
    bool IsResizable() const override { return resizable; }
    std::vector<DisplayMode> DisplayModes() const override { return modes; }
    bool EnterFullscreen(const DisplayMode& mode) override;
    bool LeaveFullscreen() override;
    void SetGammaRamp(const std::vector<unsigned short>& ramp) override { gammaRamp = ramp; }
    void SetCursor(Cursor shape) override { cursor = shape; }
    int CursorScreenX() const override { return cursorX; }
    int CursorScreenY() const override { return cursorY; }
    void WarpCursor(int screenX, int screenY) override;
    bool IsKeyDown(int virtualKey) const override { return input.IsKeyDown(virtualKey); }
    bool IsKeyToggled(int virtualKey) const override { return input.IsKeyToggled(virtualKey); }
    bool IsMouseButtonDown(int button) const override { return input.IsButtonDown(button); }
    char KeyToChar(int virtualKey) const override { return input.CharacterOf(virtualKey); }

private:
    int Border() const { return inFullscreen ? 0 : border; }
    int Caption() const { return inFullscreen ? 0 : caption; }

    bool open = false;
    bool foreground = true;
    bool minimised = false;
    bool maximised = false;
    bool canMinimise = true;
    bool resizable = false;
    bool inFullscreen = false;
    int clientLeft = border;
    int clientTop = border + caption;
    int clientWidth = defaultWidth;
    int clientHeight = defaultHeight;
    int screenWidth = 1280;
    int screenHeight = 1024;
    DisplayMode desktopMode{1280, 1024, 60};
    DisplayMode modeInForce{1280, 1024, 60};
    std::vector<DisplayMode> modes{{defaultWidth, defaultHeight, 60}, {1280, 1024, 60}};
    unsigned samples = 1;
    unsigned offeredSamples = 1;
    unsigned givenSamples = 1;
    WindowError createError = WindowError::None;
    std::string title;
    std::string extensions;
    std::vector<unsigned short> gammaRamp;
    WindowInput input;
    Cursor cursor = Cursor::Arrow;
    int cursorX = -1;
    int cursorY = -1;
    int swapInterval = 0;
    int viewportWidth = 0;
    int viewportHeight = 0;
    int createCount = 0;
    int swapCount = 0;
    int minimiseCount = 0;
};

}  // namespace Platform
