#pragma once
// What a program with a screen gives the game: a window, and the GL behind textures, menus and
// frames. One at a time; it must outlive the game.

#include "game/GameDraw.h"
#include "graphics/TextureDeviceDraw.h"
#include "menus/GuiPainterDraw.h"
#include "platform/Window.h"

class GameScreen {
public:
    /// The window must live longer.
    explicit GameScreen(Platform::Window& window);
    ~GameScreen();
    GameScreen(const GameScreen&) = delete;
    GameScreen& operator=(const GameScreen&) = delete;

private:
    GLTextureDevice textures;
    GLGuiPainter painter;
    GamePresentation presentation;
};
