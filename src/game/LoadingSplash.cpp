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

std::atomic<bool> splashRunning = false;  // set by the main thread
std::atomic<bool> splashReady = true;     // set by the splash thread
std::unique_ptr<Thread> splashThread;
GLWindowEventListener* savedListener = nullptr;

// Written before the thread starts. The platform may not be asked for sizes in the thread.
std::unique_ptr<SplashPicture> picture;
int clientWidth = 0;
int clientHeight = 0;

std::uint32_t Run(void*) {
    Platform::TheWindow().BorrowContext();
    PushAllState();
    Timer timer;
    timer.Tick();
    splashReady = true;
    while (splashRunning) {
        timer.Tick();
        picture->Step(timer.deltaSeconds);
        picture->Draw(clientWidth, clientHeight);
        GLWindow::SwapBuffers();
        Platform::TheClock().Sleep(pause);
    }
    PopAllState();
    Platform::TheWindow().ReturnContext();
    return 0;
}

void ShowStill() {
    PushAllState();
    picture->Draw(clientWidth, clientHeight);
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
    splashRunning = true;
    if (!GLWindow::IsOpen()) {
        return;
    }
    picture = std::make_unique<SplashPicture>();
    clientWidth = GLWindow::ClientWidth();
    clientHeight = GLWindow::ClientHeight();
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
    GLWindow::SetListener(savedListener);
    savedListener = nullptr;
}

bool IsRunning() {
    return splashRunning;
}

}  // namespace LoadingSplash
