// The ten menus as the game shows them, with the settings that ship: where each button leads
// by mouse and by keys, and that they can be reached in windows of all shapes.

#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "actors/Camera.h"
#include "audio/MusicPlayer.h"
#include "audio/SoundManager.h"
#include "engine/ConfigFile.h"
#include "engine/Console.h"
#include "engine/PreferenceStore.h"
#include "game/Game.h"
#include "game/HighScoreTable.h"
#include "game/Services.h"
#include "graphics/GLWindow.h"
#include "menus/LogicalSpace.h"
#include "menus/MenuManager.h"
#include "platform/Clock.h"
#include "platform/DataRoot.h"
#include "platform/HeadlessWindow.h"
#include "platform/Paths.h"
#include "platform/SilentAudio.h"
#include "platform/VirtualKeys.h"
#include "support/Places.h"
#include "support/TemporaryDirectory.h"

namespace {

using namespace VirtualKey;

constexpr int space = 32;

/// A device that is there, but mute: volumes can be set.
class MuteAudio : public Platform::SilentAudio {
public:
    bool Start() override { return true; }
    bool HasDevice() const override { return true; }
};

const std::map<int, std::string> fileOfMenu = {
    {1, "main"},     {2, "inGame"},  {3, "options"}, {4, "highScores"},    {5, "instructions"},
    {6, "quitGame"}, {7, "loadMap"}, {8, "credits"}, {9, "levelFinished"}, {10, "restart"}};

struct Arrow {
    int from;
    std::string button;
    int to;  ///< the previous menu, if it goes back
};
constexpr int back = -1;
const std::vector<Arrow> arrows = {
    {1, "start", 0},      {1, "load", 7},    {1, "options", 3}, {1, "instructions", 5},
    {1, "highScores", 4}, {1, "credits", 8}, {1, "quit", 6},    {2, "continue", 0},
    {2, "restart", 10},   {2, "load", 7},    {2, "options", 3}, {2, "instructions", 5},
    {2, "highScores", 4}, {2, "credits", 8}, {2, "quit", 6},    {3, "back", back},
    {4, "back", back},    {5, "back", back}, {6, "no", back},   {7, "back", back},
    {8, "back", back},    {10, "no", back},  {10, "yes", 0},
};

class MenuGraphTest : public testing::Test {
protected:
    MenuGraphTest() {
        setenv("XDG_CONFIG_HOME", directory.path.c_str(), 1);
        Platform::UseDataRoot(SourceDirectory() / "data");
        Platform::ForgetListings();
        services.emplace(ServiceOptions{.clock = &clock, .window = &window, .audio = &audio});
        HighScoreTable::Load();
        Game::Initialise("lev\\testLevel.swah");
        GLWindow::SetListener(&game);
    }
    ~MenuGraphTest() override {
        services.reset();
        Platform::ForgetListings();
    }

    /// One frame, as the game's loop has it; without a screen the menu is painted here.
    void Frame(std::uint32_t milliseconds = 20) {
        clock.Advance(milliseconds);
        GLWindow::PumpMessages();
        MenuManager::Draw();
        Game::Frame();
    }
    /// Until a press has acted.
    void Wait(std::uint32_t milliseconds = 860) {
        for (std::uint32_t passed = 0; passed < milliseconds; passed += 20) {
            Frame();
        }
    }
    /// Presses a key; nothing waits for what it does.
    void Key(int virtualKey, char character = 0) {
        window.SetKey(virtualKey, true, character);
        window.SetKey(virtualKey, false);
        GLWindow::PumpMessages();
    }
    /// The middle of a widget of a menu, by its settings, in logical units.
    static LogicalPosition Middle(int menu, const std::string& name) {
        const ConfigFile file("cfg\\menu_" + fileOfMenu.at(menu) + ".cfg");
        EXPECT_TRUE(file.Has(name + "_w")) << name;
        return {file.GetInt(name + "_x") + file.GetInt(name + "_w") / 2,
                file.GetInt(name + "_y") + file.GetInt(name + "_h") / 2};
    }
    /// Puts the pointer there and clicks.
    void Click(LogicalPosition position, int mouseButton = MouseButton::left) {
        const LogicalSpace page = LogicalSpace::OfWindow();
        const auto at = [&](int logical, float offset) {
            return static_cast<int>(static_cast<float>(logical) * page.scale + offset);
        };
        window.SetCursorPosition(window.ClientLeft() + at(position.x, page.offsetX),
                                 window.ClientTop() + at(position.y, page.offsetY));
        window.SetButton(mouseButton, true);
        window.SetButton(mouseButton, false);
        GLWindow::PumpMessages();
    }
    void Press(const std::string& button) {
        Click(Middle(MenuManager::Current(), button + "Button"));
    }
    /// Shows a menu as if it had been reached from another.
    static void ShowFrom(int origin, int menu) {
        MenuManager::Show(origin);
        MenuManager::Show(menu);
    }

    TemporaryDirectory directory;
    WorkingDirectoryGuard here{directory.path};
    Platform::ScriptedClock clock;
    Platform::HeadlessWindow window;
    MuteAudio audio;
    Game game;
    std::optional<Services> services;
};

TEST_F(MenuGraphTest, EveryButtonLeadsWhereItShouldByMouseInWindowsOfAllShapes) {
    constexpr int sizes[][2] = {{800, 600},   {1024, 768},  {1280, 720},
                                {1280, 1024}, {1920, 1080}, {600, 800}};
    window.SetScreen(1920, 1080);
    ASSERT_EQ(MenuManager::Current(), 1);
    for (const auto& size : sizes) {
        GLWindow::SetClientSize(size[0], size[1]);
        for (const Arrow& arrow : arrows) {
            const int origin = arrow.from == 2 ? 1 : 2;
            ShowFrom(origin, arrow.from);
            Press(arrow.button);
            Wait(760);
            EXPECT_EQ(MenuManager::Current(), arrow.from) << "too early: " << arrow.button;
            Wait(100);
            EXPECT_EQ(MenuManager::Current(), arrow.to == back ? origin : arrow.to)
                << size[0] << ' ' << arrow.from << ' ' << arrow.button;
        }
    }
}

TEST_F(MenuGraphTest, KeysWalkAlongTheButtons) {
    struct Walk {
        int menu;
        std::vector<int> keys;  ///< after the one that wakes the focus
        int to;
    };
    const std::vector<Walk> walks = {
        {1, {enter}, 0},
        {1, {down, enter}, 7},
        {1, {tab, tab, enter}, 3},
        {1, {down, down, down, down, down, space}, 8},
        {1, {down, down, down, down, down, down, enter}, 6},
        {1, {down, down, down, down, down, down, up, enter}, 4},  // past the credits
        {1, {tab, tab, tab, tab, tab, tab, tab, enter}, 0},
        {1, {left, right, 'A'}, 1},
        {2, {enter}, 0},
        {2, {down, enter}, 10},
        {2, {tab, tab, tab, tab, tab, tab, tab, enter}, 6},
        {2, {tab, tab, tab, tab, tab, tab, tab, tab, enter}, 0},
        {3, {up, up, down, down, enter}, 1},
        {3, {tab, down, tab, space}, 1},
        {6, {enter}, 1},
        {7, {up, tab, enter}, 1},
        {4, {tab, enter}, 1},
        {10, {left, enter}, 0},
        {10, {enter}, 1},
    };
    window.SetCursorPosition(-1, -1);
    for (const Walk& walk : walks) {
        ShowFrom(1, walk.menu);
        Key(enter);  // only wakes the focus
        for (const int key : walk.keys) {
            Key(key);
        }
        Wait();
        EXPECT_EQ(MenuManager::Current(), walk.to)
            << walk.menu << " after " << walk.keys.size() << " keys";
    }
}

TEST_F(MenuGraphTest, EscapeGoesBackOrAsksOrDoesNothing) {
    Key(escape);
    EXPECT_EQ(MenuManager::Current(), 6);
    Key(escape);
    EXPECT_EQ(MenuManager::Current(), 1);
    MenuManager::Show(0);
    Key(escape);
    EXPECT_EQ(MenuManager::Current(), 2);
    for (const int menu : {3, 4, 5, 6, 7, 8, 10}) {
        ShowFrom(2, menu);
        Key(escape);
        EXPECT_EQ(MenuManager::Current(), 2) << menu;
    }
    MenuManager::Show(9);
    Key(escape);
    EXPECT_EQ(MenuManager::Current(), 9);
    // With the console open, keys are the console's.
    MenuManager::Show(0);
    Key(console);
    Key(escape);
    Key(console);
    EXPECT_EQ(MenuManager::Current(), 0);
}

TEST_F(MenuGraphTest, MenusHoldTheGameStill) {
    const auto stepTheGame = [&] {
        const float before = Camera::position.x + Camera::position.y;
        Wait(400);
        return Camera::position.x + Camera::position.y != before;
    };
    EXPECT_FALSE(stepTheGame());
    MenuManager::Show(0);
    EXPECT_TRUE(stepTheGame());
    Key('P', 'p');
    EXPECT_TRUE(Game::IsPaused());
    Key(escape);
    Key('P', 'p');
    EXPECT_TRUE(Game::IsPaused()) << "the key is the menu's now";

    // The same by mouse: the right button leaves, any other goes on.
    MenuManager::Show(0);
    Click({10, 10}, 2);
    EXPECT_EQ(MenuManager::Current(), 2);
    Click({10, 10}, 2);
    EXPECT_EQ(MenuManager::Current(), 2) << "the buttons are the menu's now";
    MenuManager::Show(0);
    EXPECT_TRUE(Game::IsPaused());
    Click({10, 10});
    EXPECT_FALSE(Game::IsPaused());
    window.SetForeground(false);
    GLWindow::PumpMessages();
    EXPECT_TRUE(Game::IsPaused()) << "another program has the keyboard";
}

TEST_F(MenuGraphTest, OptionsCountByTheButtonAndAreDroppedByEscape) {
    constexpr const char* preferences = "software/Vantrel/Preferences";
    const auto stored = [](std::string_view name) {
        return PreferenceStore::OpenKey(preferences).GetValue(name);
    };
    SoundManager::SetMasterVolume(0.5f);
    ShowFrom(1, 3);
    const LogicalPosition music = Middle(3, "musicChooser");
    Click({music.x - 40, music.y});  // off
    Key(escape);
    EXPECT_EQ(MusicPlayer::Volume(), 255);
    EXPECT_EQ(stored("Music"), "");

    ShowFrom(1, 3);
    Click({music.x - 40, music.y});
    Press("back");
    Wait();
    EXPECT_EQ(MenuManager::Current(), 1);
    EXPECT_EQ(MusicPlayer::Volume(), 0);
    EXPECT_EQ(SoundManager::MasterVolume(), 1.0f) << "half is on";
    EXPECT_EQ(stored("Music") + stored("Sound"), "0") << "and no key touched it";

    // Without a device there is no music to hear, and "off" shows; that isn't the player's choice.
    PreferenceStore::OpenKey(preferences).SetValue("Music", "1");
    MusicPlayer::Shutdown();
    ShowFrom(1, 3);
    const LogicalPosition sound = Middle(3, "soundChooser");
    Click({sound.x - 40, sound.y});
    Press("back");
    Wait();
    EXPECT_EQ(stored("Music") + stored("Sound"), "10");
    ShowFrom(1, 3);
    Click({sound.x + 40, sound.y});
    Click({sound.x - 40, sound.y});
    PreferenceStore::OpenKey(preferences).SetValue("Sound", "kept");
    Press("back");
    Wait();
    EXPECT_EQ(stored("Sound"), "kept") << "there and back again is no change";
}

TEST_F(MenuGraphTest, LoadsTheLevelThatIsChosen) {
    // A player's own levels, in the working directory, stand in one list with those that ship.
    for (const char* name : {"lev/00.swah", "lev/00b.swah"}) {
        std::filesystem::copy_file(SourceDirectory() / "data/lev/testLevel.swah",
                                   directory.Write(name, ""),
                                   std::filesystem::copy_options::overwrite_existing);
    }
    Platform::ForgetListings();
    MenuManager::Shutdown();
    MenuManager::Initialise();
    ShowFrom(1, 7);
    Press("load");
    Wait();
    EXPECT_EQ(Game::MapName(), "lev\\00.swah");
    EXPECT_EQ(MenuManager::Current(), 1);

    ShowFrom(2, 7);
    const LogicalPosition chooser = Middle(7, "mapChooser");
    Click({chooser.x + 60, chooser.y});
    Press("load");
    Wait();
    EXPECT_EQ(Game::MapName(), "lev\\00b.swah");
}

}  // namespace
