// The splash's thread, and how the two threads hand the window's context to each other.

#include "game/LoadingSplash.h"

#include <atomic>
#include <memory>

#include "engine/Thread.h"
#include "engine/Timer.h"
#include "game/SplashPicture.h"
#include "graphics/GLWindow.h"
#include "graphics/GLWindowDraw.h"
#include "platform/Clock.h"

namespace LoadingSplash {

namespace {

/// Milliseconds; leaves the loader most of the processor.
constexpr std::uint32_t pause = 25;
constexpr std::uint32_t timeBetweenLooks = 5;
static_assert(pause % timeBetweenLooks == 0);

std::atomic<bool> splashRunning = false;  // set by the main thread
std::atomic<bool> splashReady = true;     // set by the splash thread
std::unique_ptr<Thread> splashThread;
GLWindowEventListener* savedListener = nullptr;

std::unique_ptr<SplashPicture> picture;  // made before the thread starts

/// Until the next frame, or until the level is loaded, as the player waits for that.
void Pause() {
    for (std::uint32_t passed = 0; passed < pause && splashRunning; passed += timeBetweenLooks) {
        Platform::TheClock().Sleep(timeBetweenLooks);
    }
}

std::uint32_t Run(void*) {
    Platform::TheWindow().BorrowContext();
    PushAllState();
    Timer timer;
    timer.Tick();
    splashReady = true;
    while (splashRunning) {
        timer.Tick();
        picture->Step(timer.deltaSeconds);
        picture->Draw(GLWindow::ClientWidth(), GLWindow::ClientHeight());
        GLWindow::SwapBuffers();
        Pause();
    }
    PopAllState();
    Platform::TheWindow().ReturnContext();
    return 0;
}

void ShowStill() {
    PushAllState();
    picture->Draw(GLWindow::ClientWidth(), GLWindow::ClientHeight());
    PopAllState();
    GLWindow::SwapBuffers();
}

/// False, with the window's context where it was, if there can't be a thread or a context.
bool StartThread() {
    if (!Platform::TheWindow().LendContext()) {
        return false;
    }
    splashThread = std::make_unique<Thread>(Run);
    if (!splashThread->IsValid()) {
        splashThread.reset();
        Platform::TheWindow().ReclaimContext();
        return false;
    }
    splashThread->SetPriority(0);
    splashReady = false;
    splashThread->Resume();
    while (!splashReady) {
        Platform::TheClock().Sleep(timeBetweenLooks);
    }
    return true;
}

}  // namespace

void Start() {
    if (splashRunning) {
        return;
    }
    savedListener = GLWindow::GetListener();
    GLWindow::SetListener(nullptr);
    GLWindow::HoldEvents();
    splashRunning = true;
    if (!GLWindow::IsOpen()) {
        return;
    }
    picture = std::make_unique<SplashPicture>();
    if (!StartThread()) {
        ShowStill();
    }
}

void Stop() {
    if (!splashRunning) {
        return;
    }
    splashRunning = false;
    if (splashThread) {
        splashThread.reset();
        Platform::TheWindow().ReclaimContext();
    }
    picture.reset();
    GLWindow::ReleaseEvents();
    GLWindow::SetListener(savedListener);
    savedListener = nullptr;
}

bool IsRunning() {
    return splashRunning;
}

}  // namespace LoadingSplash
