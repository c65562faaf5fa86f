// The one list of what comes up before the game and goes after it; see Services.h.

#include "game/Services.h"

#include "audio/MusicPlayer.h"
#include "audio/SoundManager.h"
#include "engine/Console.h"
#include "game/Game.h"
#include "game/Notice.h"
#include "game/RunRecorder.h"
#include "graphics/GLWindow.h"
#include "graphics/GLWindowCommands.h"
#include "platform/Assert.h"

namespace {

void UseScreen(const ScreenParts& screen) {
    TextureManager::UseDevice(screen.textures);
    GuiPainter::Use(screen.painter);
    Presentation::Use(screen.presentation);
}

void OpenWindow(const ServiceOptions& options) {
    if (options.openWindow) {
        options.openWindow();
    } else {
        GLWindow::Create(options.title, options.width, options.height);
    }
}

}  // namespace

Services::Services(const ServiceOptions& options)
    : hasSound(options.audio != nullptr), releaseConsoleFont(options.screen.releaseConsoleFont) {
    VANTREL_ASSERT(options.width > 0 && options.height > 0);
    VANTREL_ASSERT(!Game::IsUp() && !GLWindow::IsOpen());
    Platform::UseClock(options.clock);
    Platform::UseAudio(options.audio);
    Platform::UseWindow(options.window);
    UseScreen(options.screen);
    OpenWindow(options);
    TextureManager::Initialise();
    Console::Initialise();
    RepeatNotices();
    GLWindow::AddConsoleCommands();
    if (hasSound) {
        MusicPlayer::Initialise();
        SoundManager::Initialise();
        SoundManager::InitialiseCache();
    }
}

Services::~Services() {
    if (Game::IsUp()) {
        Game::Shutdown();
    }
    RunRecorder::Stop();
    if (hasSound) {
        SoundManager::ShutdownCache();
        SoundManager::Shutdown();
        MusicPlayer::Shutdown();
    }
    if (releaseConsoleFont != nullptr) {
        releaseConsoleFont();
    }
    Console::Shutdown();
    TextureManager::Shutdown();
    if (GLWindow::IsOpen()) {
        GLWindow::Close();
    }
    UseScreen({});
    Platform::UseWindow(nullptr);
    Platform::UseAudio(nullptr);
    Platform::UseClock(nullptr);
}
