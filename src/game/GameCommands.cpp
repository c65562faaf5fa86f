// The game's console commands.

#include "actors/Camera.h"
#include "engine/Console.h"
#include "engine/ConsoleCommands.h"
#include "engine/Version.h"
#include "game/Game.h"
#include "game/GameState.h"
#include "level/Limits.h"
#include "water/ParticleManager.h"

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

void CreateInView(float x, float y, float radius, std::int32_t amount) {
    if (amount < 1) {
        Console::Print("\nInvalid number of particles to make");
        return;
    }
    if (ParticleManager::AllWater() + static_cast<std::size_t>(amount) > Limits::water) {
        Console::Print("\nToo many particles to make. The most in a level is ");
        Console::PrintUnsigned(Limits::water);
        return;
    }
    ParticleManager::CreateParticles(x, y, radius, static_cast<std::uint32_t>(amount));
    Camera::position = {x, y};
}

void MapCommand(std::string name) {
    if (!name.empty()) {
        Game::RequestMap(name);
        return;
    }
    Console::Print("\nMap is ");
    Console::Print(gameState.loadedMapName);
}

const Console::CommandTable commands{
    {"ShowGameSpeeds", Flag<&GameState::showGameSpeeds>, "Prints the frame rate."},
    {"ShowDrawSpeeds", Flag<&GameState::showDrawSpeeds>,
     "Prints what drawing costs, in clock tics."},
    {"ShowSimSpeeds", Flag<&GameState::showSimSpeeds>,
     "Prints what the simulation costs, in clock tics."},
    {"FreeCamera", Flag<&GameState::freeCamera>, "Looks around with the arrow and page keys."},
    {"ParticleCreate", Console::Words<CreateInView>,
     "Adds water within a radius of a point, up to 20000 drops in the level, and takes the "
     "camera there.",
     "\nUsage: ParticleCreate < x : number > < y : number > < radius : number > "
     "< amount : integer number > "},
    {"ZoomCamera", [] { Camera::Zoom(); }, "Lets the camera zoom as if the level asked for it."},
    {"ShakeCamera", [] { Camera::Shake(); }, "Lets the camera shake as if the level asked for it."},
    {"Restart", Game::RequestRestart, "Starts the level again."},
    {"Pause", PauseCommand, "Stands still, and the music with it."},
};
// These stay until the console goes.
const Console::CommandTable lastingCommands{
    {"Version", [] { return std::string(programVersion); }, "The program's version."},
    {"Map", MapCommand, "Loads a level, like lev\\testLevel.swah, or tells which one is loaded.",
     "< name OR nothing >"},
};

}  // namespace

void AddGameCommands() {
    commands.Add();
    lastingCommands.Add();
}

void RemoveGameCommands() {
    commands.Remove();
}
