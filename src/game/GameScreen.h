#pragma once
// What shows the game, with GL behind it: textures, menus and frames. It must outlive the services
// that it is given to.

#include "game/GameDraw.h"
#include "game/Services.h"
#include "graphics/TextureDeviceDraw.h"
#include "menus/GuiPainterDraw.h"

class GameScreen {
public:
    ScreenParts Parts();

private:
    GLTextureDevice textures;
    GLGuiPainter painter;
    GamePresentation presentation;
};
