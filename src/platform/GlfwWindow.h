#pragma once
// The real window, on GLFW 3, whose types stay within the .cpp files. Only for the thread that
// made it, the main thread, but for SwapBuffers and GL calls, which go with the context, the
// client size, and Borrow- and ReturnContext.

#include <memory>

#include "platform/Window.h"

namespace Platform {

class GlfwWindow : public Window {
public:
    GlfwWindow();
    /// Closes the toolkit and gives display mode and gamma back.
    ~GlfwWindow() override;
    GlfwWindow(const GlfwWindow&) = delete;
    GlfwWindow& operator=(const GlfwWindow&) = delete;

    WindowError Create(const WindowSettings& settings) override;
    void Destroy() override;
    bool IsOpen() const override;
    unsigned Samples() const override;
    bool OffersSamples(unsigned count) override;
    std::string Reason() const override;
    bool TakeEvent(Event& event) override;
    void RequestRepaint() override;
    void SwapBuffers() override;
    bool SetSwapInterval(int interval) override;
    int SwapInterval() const override;
    bool Rest() override;
    void SetViewport(int width, int height) override;
    void SetPixelProjection(int width, int height) override;
    std::string ExtensionText() const override;
    std::string RendererText() const override;
    bool LendContext() override;
    void BorrowContext() override;
    void ReturnContext() override;
    void ReclaimContext() override;
    void Show() override;
    void Focus() override;
    bool IsForeground() const override;
    bool IsMinimised() const override;
    bool IsMaximised() const override;
    void Maximise() override;
    void Minimise() override;
    void Restore() override;
    void SetTitle(const std::string& title) override;
    void SetIcon(const unsigned char* rgba, int width, int height) override;
    int ClientWidth() const override;
    int ClientHeight() const override;
    int ScreenWidth() const override;
    int ScreenHeight() const override;
    int ClientLeft() const override;
    int ClientTop() const override;
    int OuterLeft() const override;
    int OuterTop() const override;
    int OuterWidth() const override;
    int OuterHeight() const override;
    void MoveOuter(int left, int top) override;
    void SetOuterSize(int width, int height) override;
    void SetClientSize(int width, int height) override;
    void SetResizable(bool on) override;
    bool IsResizable() const override;
    std::vector<DisplayMode> DisplayModes() const override;
    bool EnterFullscreen(const DisplayMode& mode) override;
    bool LeaveFullscreen() override;
    void SetGammaRamp(const std::vector<unsigned short>& ramp) override;
    void SetCursor(Cursor cursor) override;
    int CursorScreenX() const override;
    int CursorScreenY() const override;
    void WarpCursor(int screenX, int screenY) override;
    bool IsKeyDown(int virtualKey) const override;
    bool IsKeyToggled(int virtualKey) const override;
    bool IsMouseButtonDown(int button) const override;
    char KeyToChar(int virtualKey) const override;

private:
    struct State;
    std::unique_ptr<State> state;
};

}  // namespace Platform
