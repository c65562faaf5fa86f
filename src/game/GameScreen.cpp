// Puts the shown game's parts in their places, and takes them out in reverse.

#include "game/GameScreen.h"

#include "graphics/TextureManager.h"

GameScreen::GameScreen(Platform::Window& window) {
    Platform::UseWindow(&window);
    TextureManager::UseDevice(&textures);
    GuiPainter::Use(&painter);
    Presentation::Use(&presentation);
}

GameScreen::~GameScreen() {
    Presentation::Use(nullptr);
    GuiPainter::Use(nullptr);
    TextureManager::UseDevice(nullptr);
    Platform::UseWindow(nullptr);
}
