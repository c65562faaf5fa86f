// The film's loop. Picture and sound keep time by themselves: the film's frame duration
// allows for the pass that each frame waits for.

#include "game/IntroScreen.h"

#include "audio/MusicPlayer.h"
#include "graphics/GLWindow.h"
#include "platform/Clock.h"

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
    while (GLWindow::IsOpen() && playing && !video.IsFinished()) {
        GLWindow::RequestRepaint();
        GLWindow::PumpMessages();
        if (!GLWindow::IsOpen()) {
            break;
        }
        GLWindow::SetCursorKind(GLWindow::IsCursorInClient() ? 0 : 1);
        video.Update();
        video.Draw();
        if (GLWindow::IsMinimised()) {
            Platform::TheClock().Sleep(1);  // nothing else holds the loop then
        }
    }
    MusicPlayer::Stop();
    GLWindow::SetListener(previous);
}
