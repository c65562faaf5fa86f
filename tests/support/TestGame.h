#pragma once
// The game running frame by frame without a screen, on levels made in code and with settings
// of its own, so that tuning the shipped ones changes no test.

#include <functional>
#include <optional>
#include <string>

#include "actors/Camera.h"
#include "actors/MoverManager.h"
#include "actors/TriggerManager.h"
#include "engine/Console.h"
#include "engine/Random.h"
#include "game/Game.h"
#include "game/LevelProgress.h"
#include "game/Services.h"
#include "graphics/GLWindow.h"
#include "level/LevelData.h"
#include "menus/MenuManager.h"
#include "platform/Clock.h"
#include "platform/HeadlessWindow.h"
#include "platform/Paths.h"
#include "support/TemporaryDirectory.h"
#include "support/TestLevelFile.h"
#include "water/ParticleManager.h"
#include "water/WaterCheck.h"

class TestGame {
public:
    TestGame() : inDirectory(directory.path) {
        WriteSettings();
        services.emplace(ServiceOptions{.clock = &clock, .window = &window});
        Random::state = 0;
    }

    /// Writes the level and starts it, with no menu showing.
    void Start(const LevelFile& level, const std::string& name = "lev/a.swah") {
        Write(level, name);
        Game::Initialise(name);
        MenuManager::Show(MenuManager::None);
    }
    void Write(const LevelFile& level, const std::string& name) {
        directory.Write(name, TestLevelFile::Text(level.Serialise()));
        Platform::ForgetListings();
    }
    void Frames(int count, std::uint32_t milliseconds = 16) {
        for (int i = 0; i < count; ++i) {
            clock.Advance(milliseconds);
            GLWindow::PumpMessages();
            Game::Frame();
        }
    }
    /// False if the condition doesn't hold within the frames.
    bool FramesUntil(const std::function<bool()>& holds, int most = 2000) {
        for (int i = 0; i < most && !holds(); ++i) {
            Frames(1);
        }
        return holds();
    }
    /// Restarts as the console command does, with no menu in the way.
    void Restart() {
        Game::RequestRestart();
        Frames(1);
        MenuManager::Show(MenuManager::None);
    }

    TemporaryDirectory directory;
    WorkingDirectoryGuard inDirectory;
    Platform::ScriptedClock clock;
    Platform::HeadlessWindow window;

private:
    void WriteSettings() {
        directory.Write("cfg/water.cfg",
                        "gravity 500 roomTemperature 20 heatTransferRate 0.2\n"
                        "particleKillTime 0.2 particleGroupInterpolation 0.02\n"
                        "groupExpandSpeed 0.05 iceGravityStrenght 1\n"
                        "triggerTemperatureChangeSpeed 200\n"
                        "triggerTemperatureChangeAmountIce 40\n"
                        "triggerTemperatureChangeAmountSteam 160\n");
        directory.Write("cfg/surfaces.cfg",
                        "surfaceFriction_metal 0.9 surfaceFriction_wood 0.9\n"
                        "surfaceFriction_stone 0.9 surfaceFriction_cloth 0.9\n"
                        "surfaceFriction_sand 0.9\n");
        directory.Write("cfg/camera.cfg",
                        "maxAngle 60 keyboardTurnSpeed 100 movementInterpolateSpeed 0.1\n"
                        "waypointInterpolateSpeed 0.01 waypointInterpolateDistance 50\n");
        directory.Write("cfg/game.cfg", "finishWaterVolume 0.5 finishAnimationTime 0.5\n");
        Platform::ForgetListings();
    }

    std::optional<Services> services;
};

namespace TestLevelFile {

inline LevelFile::Trigger Area(std::uint32_t type, int left, int top, int right, int bottom,
                               std::uint32_t target = 0) {
    return {target, type, 0.0f, {{left, top}, {right, top}, {right, bottom}, {left, bottom}}};
}

/// A closed room of 400 by 300 with the water start in its middle.
inline LevelFile Room() {
    LevelFile file;
    file.polygons = {Box(-240, -190, 240, -150), Box(-240, 150, 240, 190),
                     Box(-240, -150, -200, 150), Box(200, -150, 240, 150)};
    return file;
}

}  // namespace TestLevelFile
