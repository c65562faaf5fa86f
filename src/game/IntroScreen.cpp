// The film's loop. Films are made for displays of 60 refreshes a second, where a frame stands for
// whole ones. On others, and where nothing holds the loop, it holds itself, so that picture and
// sound stay in step.

#include "game/IntroScreen.h"

#include <cmath>

#include "audio/MusicPlayer.h"
#include "graphics/GLWindow.h"
#include "graphics/GLWindowCursor.h"
#include "platform/Clock.h"

namespace {

constexpr double refresh = 1000.0 / 60.0;  // milliseconds

/// Milliseconds that a frame stands: it goes with the first refresh after its time.
double StandingTime(int frameMilliseconds) {
    return (std::floor(frameMilliseconds / refresh) + 1.0) * refresh;
}

/// Waits for the moment, or, where that is far, for a part of the time.
void SleepTowards(double due, std::uint32_t start) {
    const double left = due - (Platform::TheClock().Milliseconds() - start);
    if (left >= 1.0) {
        Platform::TheClock().Sleep(
            static_cast<std::uint32_t>(left < 2.0 * refresh ? left : refresh));
    }
}

}  // namespace

void IntroScreen::OnMouseDown(int /*x*/, int /*y*/, int /*button*/) {
    playing = false;
}

void IntroScreen::OnKeyDown(int /*virtualKey*/) {
    playing = false;
}

void IntroScreen::OnClose() {
    GLWindow::Close();
}

void IntroScreen::Run() {
    GLWindowEventListener* const previous = GLWindow::GetListener();
    GLWindow::SetListener(this);
    video.Restart();
    MusicPlayer::Play("vid\\intro.ogg", false);
    playing = true;
    const std::uint32_t start = Platform::TheClock().Milliseconds();
    const double standingTime = StandingTime(video.FrameMilliseconds());
    while (GLWindow::IsOpen() && playing && !video.IsFinished()) {
        GLWindow::RequestRepaint();
        GLWindow::PumpMessages();
        if (!GLWindow::IsOpen()) {
            break;
        }
        GLWindow::SetCursorKind(GLWindow::IsCursorInClient() ? Platform::Cursor::Empty
                                                             : Platform::Cursor::Arrow);
        video.Update();
        video.Draw();
        // Late frames aren't waited for: as their header's time is shorter, they catch up.
        SleepTowards((video.CurrentFrame() + 1) * standingTime, start);
    }
    MusicPlayer::Stop();
    GLWindow::SetListener(previous);
}
