// The frame loop and the life of a level; see Game.h.

#include "game/Game.h"

#include <cmath>

#include "actors/Camera.h"
#include "audio/IceSounds.h"
#include "audio/MusicPlayer.h"
#include "audio/SteamSounds.h"
#include "audio/WaterSounds.h"
#include "engine/ConfigFile.h"
#include "engine/Console.h"
#include "engine/FullBody.h"
#include "engine/Presentation.h"
#include "game/GameMenuHost.h"
#include "game/GameState.h"
#include "game/LevelLife.h"
#include "game/LevelProgress.h"
#include "game/ListenerInPlay.h"
#include "game/Notice.h"
#include "game/RunRecorder.h"
#include "game/World.h"
#include "graphics/GLWindow.h"
#include "graphics/GLWindowCursor.h"
#include "level/LevelData.h"
#include "level/Surfaces.h"
#include "menus/MenuHost.h"
#include "menus/MenuManager.h"
#include "platform/Assert.h"
#include "platform/Clock.h"
#include "water/FxParticleManager.h"
#include "water/ParticleManager.h"

GameState gameState;

namespace {

// Modules are stepped once at least this much time has gathered, with all of it.
constexpr float shortestStep = 0.01f;
constexpr unsigned framesPerBatch = 16;

constexpr float startRadius = 10.0f;

void ResetRequests() {
    gameState.running = true;
    gameState.quitRequested = false;
    gameState.newMapRequested = false;
    gameState.restartRequested = false;
}

void ResetDebugViews() {
    gameState.showGameSpeeds = false;
    gameState.showDrawSpeeds = false;
    gameState.showSimSpeeds = false;
    gameState.freeCamera = false;
    gameState.freeCameraX = 0.0f;
    gameState.freeCameraY = 0.0f;
    gameState.freeCameraZoom = 1.0f;
}

void ReadSettings() {
    const ConfigFile file("cfg\\game.cfg");
    gameState.background = file.GetColour("background");
    gameState.musicName = file.GetString("music");
    if (!gameState.cursorTexture) {
        gameState.cursorTexture =
            std::make_unique<Texture>(file.GetString("cursor"), "DEFAULT_SPRITE");
    }
    if (!gameState.font) {
        gameState.font = std::make_unique<Texture>(file.GetString("font"), "DEFAULT_FONT");
    }
}

/// The water at the level's start, and the camera on its way to it.
void StartWaterAndCamera() {
    ParticleManager::CreateParticles(LevelData::waterStart.x, LevelData::waterStart.y, startRadius,
                                     fullBody);
    Camera::position = LevelData::cameraStart;
    Camera::SetState(Camera::OpeningFlight);
}

void StartSoundEffects() {
    IceSounds::Initialise();
    WaterSounds::Initialise();
    SteamSounds::Initialise();
}

void StartModules() {
    TemperatureChangeReadConfig();
    ParticleManager::Initialise();
    Presentation::Current().PrepareWater();
    Camera::ReadConfig();
    StartWaterAndCamera();
    gameState.frameTimer.Reset();
    StartSoundEffects();
    LevelProgress::Initialise();
}

void BeginLevel(const std::string& mapName) {
    gameState.loadedMapName = mapName;
    ResetDebugViews();
    gameState.stepAccumulator = shortestStep;
    RunRecorder::LevelBegins(mapName);
    AddGameCommands();
    Console::PrintBanner("Game initialisation");
    StartModules();
    if (RunRecorder::IsReplaying()) {
        MenuManager::Show(MenuManager::None);
        MusicPlayer::Play(gameState.musicName, true);
    }
}

/// For a recorded run, which can't begin with what a restart leaves as it is, like emitters.
void LoadAgain() {
    const int menu = MenuManager::Current();
    const std::string name = gameState.loadedMapName;
    Game::Initialise(name);
    MenuManager::Show(menu);
}

void RestartLevel() {
    RunRecorder::GiveUp();
    if (RunRecorder::WantsRecording()) {
        LoadAgain();
        return;
    }
    ResetRequests();
    ResetDebugViews();
    ParticleManager::ClearAll();
    FxParticleManager::ClearParticles();
    LevelData::Restart();
    Camera::ReadConfig();
    StartWaterAndCamera();
    StartSoundEffects();
    LevelProgress::Initialise();
}

/// Loads a piece of what the first frames can do without, while time stands; false if nothing is
/// left.
bool LoadMore() {
    return MenuManager::BuildNext() || LevelProgress::PrepareFinish();
}

void UpdateFrameTime() {
    gameState.frameTimer.Tick();
    if (gameState.rested) {
        return;  // the frames after a rest last as long as those before it
    }
    gameState.frameTimeSum += gameState.frameTimer.deltaSeconds;
    if (++gameState.frameTimeCount < framesPerBatch) {
        return;
    }
    gameState.frameTime = gameState.frameTimeSum / static_cast<float>(framesPerBatch);
    gameState.frameTimeSum = 0.0f;
    gameState.frameTimeCount = 0;
    if (gameState.showGameSpeeds && gameState.frameTime > 0.0f) {
        Console::Print("\nGame - fps: ");
        Console::PrintFloat(1.0f / gameState.frameTime);
    }
}

void TellCost(std::uint64_t begin, std::uint64_t end) {
    if (gameState.simulationCost.Add(begin, end) && gameState.showSimSpeeds) {
        Console::Print("\nSimulation - clock tics: ");
        Console::PrintUnsigned(static_cast<std::uint32_t>(gameState.simulationCost.mean));
    }
}

void StepModules(RunStep step) {
    if (gameState.loadedMapName.empty()) {
        step.flags |= RunStep::Paused;  // there is nothing to play
    }
    const WorldParts world = WorldInPlay();
    const bool simulates = IsPlaying(world, step);
    const std::uint64_t begin = Platform::TheClock().Counter();
    StepWorld(world, step, {Game::ViewWidth(), Game::ViewHeight()}, &ListenerInPlay());
    if (simulates) {
        TellCost(begin, Platform::TheClock().Counter());
    }
    if ((step.flags & RunStep::Menu) == 0 && gameState.freeCamera) {
        StepFreeCamera();
    }
}

void ServeRequests() {
    if (gameState.quitRequested) {
        gameState.running = false;
    } else if (gameState.newMapRequested) {
        Game::Initialise(gameState.pendingMapName);
    } else if (gameState.restartRequested) {
        RestartLevel();
    }
}

}  // namespace

bool CostMeter::Add(std::uint64_t begin, std::uint64_t end) {
    constexpr unsigned runsPerMean = 32;
    sum += static_cast<double>(static_cast<std::uint32_t>(end) - static_cast<std::uint32_t>(begin));
    if (++count < runsPerMean) {
        return false;
    }
    mean = sum / runsPerMean;
    sum = 0.0;
    count = 0;
    return true;
}

void Game::Initialise(const std::string& mapName) {
    if (!gameState.isUp) {
        ReadSurfaces();
        gameState.isUp = true;
    }
    ResetRequests();
    Presentation::Current().BeginLoading();
    MenuHost::Use(&GameMenuHost());
    MenuManager::Initialise();
    MenuManager::Show(MenuManager::Main);
    ReadSettings();
    RunRecorder::LevelLoads(mapName);
    if (LevelData::Load(mapName)) {
        BeginLevel(mapName);
    }
    if (MenuManager::Current() == MenuManager::None) {
        // The level begins at once: nothing is to make it falter later.
        while (LoadMore()) {
        }
    }
    Presentation::Current().EndLoading();
}

void Game::Frame() {
    UpdateFrameTime();
    if (GLWindow::IsCursorInClient()) {
        GLWindow::SetCursorKind(Platform::Cursor::Empty);
    }
    gameState.stepAccumulator +=
        gameState.rested ? gameState.frameTimer.deltaSeconds : gameState.frameTime;
    if (RunRecorder::IsReplaying()) {
        ReplayGatheredTime();
    } else if (gameState.stepAccumulator >= shortestStep) {
        Step(LiveStep(gameState.stepAccumulator));
        gameState.stepAccumulator = 0.0f;
    }
    if (!GLWindow::IsMinimised()) {
        Presentation::Current().DrawFrame();
    }
    if (MenuManager::Current() != MenuManager::None) {
        gameState.isLoadingMore = LoadMore();
    }
    ServeRequests();
}

void Game::Step(const RunStep& step) {
    VANTREL_ASSERT(step.dt > 0.0f && std::isfinite(step.dt));
    gameState.lastStep = step.dt;
    RunRecorder::StepBegins(step);
    StepModules(step);
    ++gameState.stepCount;
    RunRecorder::StepEnds(LevelProgress::IsFinished());
}

void Game::Run(const std::string& mapName) {
    if (!GLWindow::IsOpen() || gameState.running) {
        return;
    }
    Initialise(mapName);
    if (MapName().empty()) {
        Notice("Unable to load level '" + mapName + "': " + LastReason());
    }
    GLWindowEventListener* const previous = GLWindow::GetListener();
    Game game;
    GLWindow::SetListener(&game);
    gameState.frameTimer.Reset();
    while (GLWindow::IsOpen() && gameState.running) {
        GLWindow::PumpMessages();
        if (!GLWindow::IsOpen()) {
            break;  // a level that was asked for just before can't be loaded any more
        }
        Frame();
        if (GLWindow::IsMinimised()) {
            Platform::TheClock().Sleep(1);
        }
        gameState.rested = MenuManager::Current() == MenuManager::Main && !gameState.consoleOpen &&
                           !gameState.isLoadingMore && GLWindow::Rest();
    }
    GLWindow::SetListener(previous);
    Shutdown();
}

void Game::Shutdown() {
    Console::PrintBanner("Game shutdown");
    RunRecorder::LevelEnds();
    RemoveGameCommands();
    LevelData::Unload();
    ParticleManager::Shutdown();
    Presentation::Current().ReleaseWater();
    IceSounds::Shutdown();
    WaterSounds::Shutdown();
    SteamSounds::Shutdown();
    LevelProgress::Shutdown();
    FxParticleManager::Shutdown();
    MenuManager::Shutdown();
    gameState.running = false;
    gameState.isUp = false;
    gameState.loadedMapName.clear();
    gameState.cursorTexture.reset();
    gameState.font.reset();
}

bool Game::IsUp() {
    return gameState.isUp;
}

std::uint32_t Game::StepCount() {
    return gameState.stepCount;
}

float Game::LastStep() {
    return gameState.lastStep;
}

void Game::RequestMap(const std::string& name) {
    gameState.newMapRequested = true;
    gameState.pendingMapName = name;
}

void Game::RequestQuit() {
    gameState.quitRequested = true;
}

void Game::RequestRestart() {
    gameState.restartRequested = true;
}

const std::string& Game::MapName() {
    return gameState.loadedMapName;
}

std::string Game::MusicName() {
    return gameState.musicName;
}

float Game::FrameTime() {
    return gameState.frameTime;
}

bool Game::IsPaused() {
    return gameState.paused;
}

void SetPaused(bool paused) {
    if (paused == gameState.paused) {
        return;
    }
    gameState.paused = paused;
    if (paused) {
        MusicPlayer::Pause();
    } else {
        MusicPlayer::Resume();
    }
}
