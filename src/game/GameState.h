#pragma once
// The running game's state, private to the files of `Game`.

#include <cstdint>
#include <memory>
#include <string>

#include "engine/Colour.h"
#include "engine/Timer.h"
#include "game/RunFile.h"
#include "graphics/Texture.h"

/// Sum of clock tics over 32 runs of something, and the last mean.
struct CostMeter {
    double sum = 0.0;
    unsigned count = 0;
    double mean = 0.0;

    /// Adds one run; true when a mean is ready.
    bool Add(std::uint64_t begin, std::uint64_t end);
};

struct GameState {
    bool isUp = false;     ///< from the first Initialise to Shutdown
    bool running = false;  ///< until the player quits
    bool quitRequested = false;
    bool newMapRequested = false;
    bool restartRequested = false;
    bool consoleOpen = false;
    bool paused = false;
    bool showGameSpeeds = false;
    bool showDrawSpeeds = false;
    bool showSimSpeeds = false;

    bool freeCamera = false;
    float freeCameraX = 0.0f;  ///< world units
    float freeCameraY = 0.0f;
    float freeCameraZoom = 1.0f;  ///< 0.01 to 100; larger shows less

    float frameTime = 0.0f;     ///< mean of the last full batch of 16 frames, seconds
    float frameTimeSum = 0.0f;  ///< of the batch that is being counted
    unsigned frameTimeCount = 0;
    float stepAccumulator = 0.01f;  ///< seconds not yet given to the modules
    std::uint32_t stepCount = 0;    ///< module steps since the program started
    float lastStep = 0.0f;          ///< seconds given to the last module step

    Colour background;
    std::string loadedMapName;
    std::string pendingMapName;
    std::string musicName;
    std::unique_ptr<Texture> cursorTexture;
    std::unique_ptr<Texture> font;

    Timer frameTimer;
    bool isLoadingMore = false;  ///< behind the menu
    bool rested = false;         ///< before this frame
    CostMeter simulationCost;
    CostMeter drawingCost;
};

extern GameState gameState;

/// Pauses or resumes the game, and its music with it.
void SetPaused(bool paused);

/// The commands that a loaded level brings.
void AddGameCommands();
/// Removes them, but for "Version" and "Map", which stay until the console goes.
void RemoveGameCommands();

/// Moves the debug free camera by the keys that are held.
void StepFreeCamera();

/// What the player does now, as the input of a step of `dt` seconds.
RunStep LiveStep(float dt);
/// As many steps of the replayed run as the gathered time is worth; none while the viewer has a
/// menu open or has paused.
void ReplayGatheredTime();
