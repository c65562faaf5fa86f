// What is up while the services are, and what is left when they have gone.

#include "game/Services.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "engine/Console.h"
#include "engine/ConsoleCommands.h"
#include "game/HeadlessGame.h"
#include "graphics/GLWindow.h"
#include "platform/SilentAudio.h"
#include "support/TestGame.h"

namespace {

class ServicesTest : public testing::Test {
protected:
    ServicesTest() { Platform::ForgetListings(); }
    ~ServicesTest() override { Platform::ForgetListings(); }

    std::string Log() const {
        std::ifstream file(directory.path / "ConsoleLog.txt");
        return {std::istreambuf_iterator<char>(file), {}};
    }

    TemporaryDirectory directory;
    WorkingDirectoryGuard here{directory.path};
};

TEST_F(ServicesTest, LeaveNothingOfThemselvesBehind) {
    Platform::ScriptedClock clock;
    Platform::HeadlessWindow window;
    Platform::SilentAudio audio;
    for (int round = 0; round < 2; ++round) {
        {
            const Services services({.clock = &clock, .window = &window, .audio = &audio});
            EXPECT_TRUE(window.IsOpen());
            EXPECT_EQ(&Platform::TheClock(), &clock);
            EXPECT_EQ(&Platform::TheAudio(), &audio);
            EXPECT_TRUE(Console::Commands().contains("SOUNDLIST"));
            EXPECT_TRUE(Console::Commands().contains("TEXTURELIST"));
        }
        EXPECT_FALSE(window.IsOpen());
        EXPECT_NE(&Platform::TheClock(), &clock);
        EXPECT_NE(&Platform::TheWindow(), &window);
        EXPECT_NE(&Platform::TheAudio(), &audio);
        EXPECT_TRUE(Console::Commands().empty());
    }
    const Services silent({});
    EXPECT_FALSE(Console::Commands().contains("SOUNDLIST"));
}

TEST_F(ServicesTest, EndTheGameBeforeTheConsoleAndOnlyIfItIsUp) {
    directory.Write("cfg/console.cfg", "enableLogging true");
    directory.Write("a.swah", TestLevelFile::Text(TestLevelFile::Room().Serialise()));
    {
        HeadlessGame game(800, 600);
        ASSERT_TRUE(game.Start("a.swah"));
        Game::RequestQuit();
        game.Frame(16);
    }
    EXPECT_FALSE(Game::IsUp());
    EXPECT_NE(Log().find("Game shutdown"), std::string::npos);
    { const HeadlessGame unstarted(800, 600); }
    EXPECT_EQ(Log().find("Game shutdown"), std::string::npos);
}

}  // namespace
