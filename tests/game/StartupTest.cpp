// Start-up settings: defaults, the preference store, the command line.

#include <gtest/gtest.h>

#include <cstdlib>

#include "engine/PreferenceStore.h"
#include "game/Startup.h"
#include "support/TemporaryDirectory.h"

namespace {

class Startup : public testing::Test {
protected:
    void SetUp() override {
        setenv("XDG_CONFIG_HOME", directory.path.c_str(), 1);
        startupSettings = {};
    }

    static std::string Stored(std::string_view name) {
        return PreferenceStore::OpenKey(preferencesPath).GetValue(name);
    }
    static void Store(std::string_view name, std::string_view text) {
        PreferenceStore::OpenOrCreateKey(preferencesPath).SetValue(name, text);
    }

    TemporaryDirectory directory;
};

TEST_F(Startup, SwitchesCountInAnyCaseAndAreKept) {
    ParseCommandLine("-detail 9 -Resolution 1024 768 -fullSCREEN 0 -sound 7 -music 0");
    EXPECT_EQ(startupSettings.detailLevel, 5);
    EXPECT_EQ(Stored("DetailLevel"), "5");
    EXPECT_EQ(Stored("ResolutionX") + "x" + Stored("ResolutionY"), "1024x768");
    EXPECT_EQ(Stored("Fullscreen") + Stored("Sound") + Stored("Music"), "010");

    startupSettings = {};
    LoadPreferences();
    EXPECT_EQ(startupSettings.detailLevel, 5);
    EXPECT_EQ(startupSettings.resolutionY, 768u);
    EXPECT_FALSE(startupSettings.fullscreen);
}

TEST_F(Startup, IgnoresWhatIsBadlyFormed) {
    ParseCommandLine("-DETAIL 1.5 nonsense -FULLSCREEN -RESOLUTION 1024");
    EXPECT_EQ(startupSettings.detailLevel, 2);
    EXPECT_EQ(startupSettings.resolutionX, 800u);
    EXPECT_TRUE(startupSettings.fullscreen);
    ParseCommandLine("-DETAIL -1");
    EXPECT_EQ(startupSettings.detailLevel, 0);

    Store("ResolutionX", "640");
    Store("ResolutionY", "abc");
    LoadPreferences();
    EXPECT_EQ(startupSettings.resolutionX, 800u) << "one bad value spoils the pair";
}

TEST_F(Startup, ZeroResolutionHoldsForOneStart) {
    ParseCommandLine("-RESOLUTION 0 0");
    EXPECT_EQ(startupSettings.resolutionX, 1u);
    startupSettings = {};
    LoadPreferences();
    EXPECT_EQ(startupSettings.resolutionX, 800u);
}

TEST_F(Startup, ValuesAreNotTakenFromTheLine) {
    ParseCommandLine("-MAP first -MAP -SOUND 0");
    EXPECT_EQ(startupSettings.mapName, "-SOUND");
    EXPECT_EQ(Stored("Sound"), "0");
}

}  // namespace
