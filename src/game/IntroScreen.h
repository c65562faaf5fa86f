#pragma once
// The opening film, played once at the start with its sound track until it ends, a key or a
// mouse button goes down, or the window is closed. A missing film is passed over, a missing
// sound track means silence.

#include "graphics/AviPlayer.h"
#include "graphics/GLWindowEventListener.h"

class IntroScreen : public GLWindowEventListener {
public:
    void OnMouseDown(int x, int y, int button) override;
    void OnKeyDown(int virtualKey) override;
    void OnClose() override;

    /// Comes back when the film is over.
    void Run();
    std::uint32_t FrameShown() const { return video.CurrentFrame(); }

private:
    AviPlayer video{"vid\\intro.avi"};
    bool playing = false;
};
