// The parts that show the game; see GameScreen.h.

#include "game/GameScreen.h"

#include "graphics/ConsoleDraw.h"

ScreenParts GameScreen::Parts() {
    return {&textures, &painter, &presentation, Console::ReleaseFont};
}
