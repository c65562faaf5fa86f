// The preference store on a real directory.

#include "engine/PreferenceStore.h"

#include <gtest/gtest.h>

#include "WorkingFolder.h"

namespace fs = std::filesystem;

namespace {

class PreferenceStoreTest : public testing::Test {
protected:
    PreferenceStoreTest() { setenv("XDG_CONFIG_HOME", directory.path.c_str(), 1); }
    ~PreferenceStoreTest() override { unsetenv("XDG_CONFIG_HOME"); }

    // The one values.txt of the test, wherever it lies.
    fs::path ValuesFile() const {
        for (const auto& entry : fs::recursive_directory_iterator(directory.path)) {
            if (entry.path().filename() == "values.txt") {
                return entry.path();
            }
        }
        return {};
    }

    WorkingFolder directory;
};

}  // namespace

TEST_F(PreferenceStoreTest, CreatesKeysOnlyWhenAskedTo) {
    EXPECT_FALSE(PreferenceStore::OpenKey("software/Vantrel").IsOpen());
    EXPECT_TRUE(fs::is_empty(directory.path));
    EXPECT_TRUE(PreferenceStore::OpenOrCreateKey("software/Vantrel/Preferences").IsOpen());
    for (const char* path : {"software\\Vantrel\\Preferences", "/software//vantrel\\preferences/",
                             "SOFTWARE/VANTREL"}) {
        EXPECT_TRUE(PreferenceStore::OpenKey(path).IsOpen()) << path;
    }
    for (const char* path : {"", "//", "software/none", "software/..", "./software"}) {
        EXPECT_FALSE(PreferenceStore::OpenKey(path).IsOpen()) << path;
    }
    EXPECT_FALSE(PreferenceStore::OpenOrCreateKey("../outside").IsOpen());
}

TEST_F(PreferenceStoreTest, KeepsValuesByNameInAnyCase) {
    const PreferenceKey key = PreferenceStore::OpenOrCreateKey("software/test");
    key.SetValue("DetailLevel", "2");
    key.SetValue("Odd=na\\me", "two\nlines\\n \r=");
    key.SetValue("detaillevel", "3");
    key.SetValue("long", std::string(5000, 'x'));
    const PreferenceKey again = PreferenceStore::OpenKey("software/test");
    EXPECT_EQ(again.GetValue("DETAILLEVEL"), "3");
    EXPECT_EQ(again.GetValue("odd=na\\me"), "two\nlines\\n \r=");
    EXPECT_EQ(again.GetValue("Long").size(), 4095u);
    EXPECT_TRUE(again.HasValue("LONG"));
    EXPECT_FALSE(again.HasValue("missing"));
    EXPECT_EQ(again.GetValue("missing"), "");
}

TEST_F(PreferenceStoreTest, ReadsADamagedFileAsValuesNotSetAndLosesNothing) {
    const PreferenceKey key = PreferenceStore::OpenOrCreateKey("software/test");
    key.SetValue("Sound", "true");
    const std::string damage =
        std::string("\0\xFF", 2) + "\nMusic\nBad=\\x\nWide=" + std::string(5000, 'w') + "\nEnd=\\";
    std::ofstream(ValuesFile(), std::ios::app | std::ios::binary) << damage;
    for (const char* name : {"Music", "Bad", "Wide", "End", ""}) {
        EXPECT_EQ(key.GetValue(name), "") << name;
    }
    EXPECT_EQ(key.GetValue("sound"), "true");
    key.SetValue("Sound", "false");
    EXPECT_EQ(key.GetValue("sound"), "false");
    EXPECT_NE(directory.Read(ValuesFile()).find(damage), std::string::npos);
}

TEST_F(PreferenceStoreTest, IsClosedForAUserWithoutAHome) {
    const char* before = getenv("HOME");
    const std::string home = before != nullptr ? before : "";
    unsetenv("HOME");
    unsetenv("XDG_CONFIG_HOME");
    EXPECT_FALSE(PreferenceStore::OpenOrCreateKey("software/test").IsOpen());
    setenv("XDG_CONFIG_HOME", "config", 1);  // only an absolute one counts
    EXPECT_FALSE(PreferenceStore::OpenOrCreateKey("software/test").IsOpen());
    EXPECT_TRUE(fs::is_empty(directory.path));
    setenv("HOME", directory.path.c_str(), 1);
    EXPECT_TRUE(PreferenceStore::OpenOrCreateKey("software/test").IsOpen());
    EXPECT_TRUE(fs::is_directory(directory.path / ".config/vantrel/software/test"));
    setenv("HOME", home.c_str(), 1);
}
