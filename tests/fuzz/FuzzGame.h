#pragma once
// The game of the harnesses: up for the whole run of the program, in a directory of its own. Each
// input loads its level anew, over the one before, which leaves nothing behind.

#include "fuzz/Harness.h"
#include "support/TestGame.h"

class FuzzGame {
public:
    static FuzzGame& The() {
        static FuzzGame game;
        return game;
    }

    /// Loads the level, which must be a good one, with the water free to run and no menu.
    void Load(std::string_view levelBytes) {
        game.directory.Write("lev/a.swah", levelBytes);
        Random::state = 0;
        Console::Clear();
        Game::Initialise("lev/a.swah");
        MenuManager::Show(MenuManager::None);
        Camera::SetState(Camera::Following);
    }

    /// Loads FuzzLevel.
    void Load();

    TestGame game;

private:
    FuzzGame() {
        // From now on files come and go by overwriting, which listings needn't follow.
        game.directory.Write("lev/a.swah", "");
        Platform::ForgetListings();
    }
};

/// A basin with a ramp, a gate that slides, a force and a trigger or two.
inline LevelFile FuzzLevel() {
    using namespace TestLevelFile;
    LevelFile level;
    level.polygons = {Box(0, 500, 900, 560), Box(-60, 0, 0, 560), Box(900, 0, 960, 560),
                      Polygon({{300, 500}, {450, 420}, {600, 500}}), Box(650, 400, 680, 500, 5)};
    level.movers = {{5, 40.0f, {0, 0}, {0, -90}}};
    level.forces = {{6, {500, 300}, {0.0f, -1.0f}, 20.0f}};
    level.triggers = {Area(400, 200, 400, 300, 500, 5), Area(300, 350, 400, 420, 500, 6)};
    level.objects = {{5, "obj_FRAME.tga", 2, {660, 450}, 0}};
    level.sounds = {{7, {100, 400}, 300, 1, "snd\\drip.wav"}};
    level.emitters = {{8, {400, 300}, {0.0f, -1.0f}, "cfg\\emitter.cfg"}};
    level.waterStart = {250, 380};
    level.cameraStart = {250, 380};
    return level;
}

inline void FuzzGame::Load() {
    static const std::vector<std::byte> level = FuzzLevel().Serialise();
    Load(TestLevelFile::Text(level));
}
