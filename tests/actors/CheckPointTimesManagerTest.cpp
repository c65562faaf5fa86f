#include "actors/CheckPointTimesManager.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "actors/Trigger.h"
#include "platform/Paths.h"
#include "support/TemporaryDirectory.h"

namespace {

using namespace CheckPointTimesManager;

class CheckPointTimes : public testing::Test {
protected:
    CheckPointTimes() { Start("fadeTime 2"); }
    ~CheckPointTimes() override {
        Shutdown();
        Platform::ForgetListings();
    }
    void Start(const std::string& fadeTime) {
        directory.Write("cfg/checkPoints.cfg",
                        "font f.png fontSize 20 y_position 50 fontColor_r 1 fontColor_a 0.5 "
                        "slowerFontColor_g 1 slowerFontColor_a 1 fasterFontColor_b 1 "
                        "fasterFontColor_a 1 " +
                            fadeTime);
        Platform::ForgetListings();
        Initialise();
    }
    static std::string Text() {
        const auto display = Current(levelTime);
        return display ? display->text.data() : "nothing";
    }

    TemporaryDirectory directory;
    WorkingDirectoryGuard inDirectory{directory.path};
    static constexpr std::uint32_t levelTime = 0;
    Trigger trigger;
    Trigger other;
};

TEST_F(CheckPointTimes, ShowTheDifferenceToThePassBefore) {
    struct Case {
        std::uint32_t time;
        const char* text;
        float green, blue;  // slower, faster
    };
    Reached(trigger, 60000);
    Reached(other, 5);
    EXPECT_EQ(state, State::FadingInTime);
    for (const Case& c :
         {Case{60750, "+ 00:00:75", 1.0f, 0.0f}, Case{60750, "+ 00:00:00", 1.0f, 0.0f},
          Case{60000, "- 00:00:75", 0.0f, 1.0f},
          Case{60000 + 3600000 + 754321, "+ 12:34:32", 1.0f, 0.0f}}) {
        Reached(trigger, c.time);
        EXPECT_EQ(state, State::FadingInDifference);
        EXPECT_EQ(Text(), c.text);
        EXPECT_EQ(Current(levelTime)->colour.g, c.green) << c.text;
        EXPECT_EQ(Current(levelTime)->colour.b, c.blue) << c.text;
    }
    AdvanceFade(2.0f);
    EXPECT_EQ(state, State::FadingOutDifference);
    Initialise();
    Reached(trigger, 1);
    EXPECT_EQ(state, State::FadingInTime) << "a load forgets all times";
}

TEST_F(CheckPointTimes, HoldFadesAboveAHundredth) {
    for (const char* tooShort : {"fadeTime 0", "fadeTime -3", "fadeTime x", ""}) {
        Start(*tooShort ? tooShort : "y 0");
        Reached(trigger, 1);
        AdvanceFade(0.005f);
        EXPECT_EQ(state, State::FadingInTime) << tooShort;
        EXPECT_TRUE(std::isfinite(Current(levelTime)->colour.a)) << tooShort;
        AdvanceFade(0.006f);
        EXPECT_EQ(state, State::FadingOutTime) << tooShort;
        AdvanceFade(60.0f);
        EXPECT_FALSE(Current(levelTime)) << tooShort;
    }
}

}  // namespace
