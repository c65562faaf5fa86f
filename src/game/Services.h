#pragma once
// What every program that runs the game stands on: clock, window, textures, console and sound.
// They are up for as long as the object lives; they come up in one order, and go in its reverse.
// One at a time, on the main thread. Neither the game nor a level is started: that is
// Game::Initialise or Game::Run, which need all of this.

#include <functional>
#include <string>

#include "engine/Presentation.h"
#include "graphics/TextureManager.h"
#include "menus/GuiPainter.h"
#include "platform/Audio.h"
#include "platform/Clock.h"
#include "platform/Window.h"

/// The parts with GL behind them: GameScreen has them all. Without them pictures aren't loaded and
/// nothing is drawn.
struct ScreenParts {
    TextureDevice* textures = nullptr;
    GuiPainter* painter = nullptr;
    Presentation* presentation = nullptr;
    void (*releaseConsoleFont)() = nullptr;  ///< called while console and textures are still up
};

/// None of what is pointed to is owned; it must live longer than the services.
struct ServiceOptions {
    Platform::Clock* clock = nullptr;    ///< null: real time
    Platform::Window* window = nullptr;  ///< null: one without a display
    ScreenParts screen = {};
    Platform::Audio* audio = nullptr;  ///< null: no sound and no commands for it

    std::string title = "Vantrel";
    int width = Platform::defaultWidth;  ///< of the window's client area
    int height = Platform::defaultHeight;
    /// Opens the window in place of GLWindow::Create with what stands above.
    std::function<void()> openWindow = {};
};

class Services {
public:
    explicit Services(const ServiceOptions& options);
    /// A game that is still up ends first, with its level and a recording.
    ~Services();
    Services(const Services&) = delete;
    Services& operator=(const Services&) = delete;

private:
    bool hasSound;
    void (*releaseConsoleFont)();
};
