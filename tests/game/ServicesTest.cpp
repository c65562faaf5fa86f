// What is up while the services are, and what is left when they have gone.

#include "game/Services.h"

#include <gtest/gtest.h>

#include "engine/Console.h"
#include "engine/ConsoleCommands.h"
#include "platform/Clock.h"
#include "platform/HeadlessWindow.h"
#include "platform/Paths.h"
#include "platform/SilentAudio.h"
#include "support/TemporaryDirectory.h"

namespace {

TEST(Services, LeaveNothingOfThemselvesBehind) {
    const TemporaryDirectory directory;
    const WorkingDirectoryGuard here{directory.path};
    Platform::ForgetListings();
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
    Platform::ForgetListings();
}

}  // namespace
