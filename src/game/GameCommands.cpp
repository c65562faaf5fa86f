// The game's console commands.

#include "actors/Camera.h"
#include "engine/Console.h"
#include "game/Game.h"
#include "game/GameState.h"

namespace {

/// An accessor on one of the game's flags.
template <bool GameState::*flag>
bool Flag(bool value, bool isSet) {
    if (isSet) {
        gameState.*flag = value;
    }
    return gameState.*flag;
}

bool PauseCommand(bool value, bool isSet) {
    if (isSet) {
        SetPaused(value);
    }
    return gameState.paused;
}

void MapCommand(std::string name) {
    if (!name.empty()) {
        Game::RequestMap(name);
        return;
    }
    Console::Print("\nMap is ");
    Console::Print(gameState.loadedMapName);
}

}  // namespace

void AddGameCommands() {
    Console::AddCommand("ShowGameSpeeds", Flag<&GameState::showGameSpeeds>);
    Console::AddCommand("ShowDrawSpeeds", Flag<&GameState::showDrawSpeeds>);
    Console::AddCommand("ShowSimSpeeds", Flag<&GameState::showSimSpeeds>);
    Console::AddCommand("FreeCamera", Flag<&GameState::freeCamera>);
    Console::AddCommand("ZoomCamera", Camera::Zoom);
    Console::AddCommand("ShakeCamera", Camera::Shake);
    Console::AddCommand("Restart", Game::RequestRestart);
    Console::AddCommand("Pause", PauseCommand);
    Console::AddCommand("Version", []() { return std::string("1.03"); });
    Console::AddCommand("Map", MapCommand);
}

void RemoveGameCommands() {
    for (const char* name : {"ShowGameSpeeds", "ShowDrawSpeeds", "ShowSimSpeeds", "FreeCamera",
                             "ZoomCamera", "ShakeCamera", "Restart", "Pause"}) {
        Console::RemoveCommand(name);
    }
}
