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
    EXPECT_EQ(Stored("ResolutionX"), "") << "no window has had it yet";
    KeepResolution();
    EXPECT_EQ(Stored("ResolutionX") + "x" + Stored("ResolutionY"), "1024x768");
    EXPECT_EQ(Stored("Fullscreen") + Stored("Sound") + Stored("Music"), "010");

    startupSettings = {};
    LoadPreferences();
    EXPECT_EQ(startupSettings.detailLevel, 5);
    EXPECT_EQ(startupSettings.resolutionY, 768u);
    EXPECT_FALSE(startupSettings.fullscreen);
}

TEST_F(Startup, TellsWhatItIgnores) {
    const auto complaints = ParseCommandLine(
        "-DETAIL 1.5 nonsense -FULLSCREEN -RESOLUTION 1024 -RESOLUTION -5 -5 -MUSIC");
    EXPECT_EQ(complaints, (std::vector<std::string>{
                              "Ignored '-DETAIL 1.5': -DETAIL takes a number from 0 to 5",
                              "Ignored 'nonsense': no such switch; see --help",
                              "Ignored '-FULLSCREEN -RESOLUTION': -FULLSCREEN takes 0 or 1",
                              "Ignored '-RESOLUTION 1024 -RESOLUTION': -RESOLUTION takes width "
                              "and height in pixels",
                              "Ignored '-RESOLUTION -5 -5': -RESOLUTION takes width and height "
                              "in pixels",
                              "Ignored '-MUSIC': -MUSIC takes 0 or 1"}));
    EXPECT_EQ(startupSettings.detailLevel, 2);
    EXPECT_EQ(startupSettings.resolutionX, 800u);
    EXPECT_TRUE(startupSettings.fullscreen);
    EXPECT_TRUE(ParseCommandLine("-DETAIL -1").empty());
    EXPECT_EQ(startupSettings.detailLevel, 0);

    Store("ResolutionX", "640");
    Store("ResolutionY", "abc");
    LoadPreferences();
    EXPECT_EQ(startupSettings.resolutionX, 800u) << "one bad value spoils the pair";
}

TEST_F(Startup, ZeroResolutionHoldsForOneStart) {
    ParseCommandLine("-RESOLUTION 0 0");
    EXPECT_EQ(startupSettings.resolutionX, 1u);
    KeepResolution();
    EXPECT_EQ(Stored("ResolutionX") + "x" + Stored("ResolutionY"), "1x1");
    startupSettings = {};
    LoadPreferences();
    EXPECT_EQ(startupSettings.resolutionX, 800u);
}

TEST_F(Startup, ASizeThatCannotBeHadGivesWayToTheOneBefore) {
    Store("ResolutionX", "640");
    Store("ResolutionY", "480");
    LoadPreferences();
    ParseCommandLine("-RESOLUTION 9000 9000");
    EXPECT_TRUE(FallBackResolution());
    EXPECT_EQ(startupSettings.resolutionX, 640u);
    EXPECT_TRUE(FallBackResolution());
    EXPECT_EQ(startupSettings.resolutionY, 600u);
    EXPECT_FALSE(FallBackResolution());
    KeepResolution();
    EXPECT_EQ(Stored("ResolutionX"), "640");
}

TEST_F(Startup, ValuesAreNotTakenFromTheLine) {
    EXPECT_TRUE(ParseCommandLine("-MAP first -MAP -SOUND 0").empty());
    EXPECT_EQ(startupSettings.mapName, "-SOUND");
    EXPECT_EQ(Stored("Sound"), "0");
}

TEST_F(Startup, NamesKeepTheBlanksOfTheirArgument) {
    const std::vector<std::string> arguments = {"-replay", "a -SOUND 0.run", "-DETAIL 3 -MAP",
                                                "lev\\my level.swah", "-RECORD b.run c"};
    EXPECT_EQ(ParseCommandLine(arguments).size(), 1u) << "c is nothing";
    EXPECT_EQ(startupSettings.replayFile, "a -SOUND 0.run");
    EXPECT_EQ(Stored("Sound"), "");
    EXPECT_EQ(startupSettings.detailLevel, 3);
    EXPECT_EQ(startupSettings.mapName, "lev\\my level.swah");
    EXPECT_EQ(startupSettings.recordFile, "b.run");
}

}  // namespace
