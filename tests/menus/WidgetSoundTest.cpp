// The sounds of widgets, rendered.

#include "audio/RenderedAudio.h"
#include "menus/GuiAnimatedButton.h"
#include "menus/GuiOptionChooser.h"
#include "menus/GuiScoreLabel.h"
#include "menus/GuiScreen.h"
#include "platform/Clock.h"
#include "platform/VirtualKeys.h"

namespace {

constexpr double low = 440.0;
constexpr double high = 1760.0;

class WidgetSoundTest : public RenderedAudio {
protected:
    WidgetSoundTest() {
        Platform::UseClock(&clock);
        Write("low.wav", Signal::SineWav(low, 1.0));
        Write("high.wav", Signal::SineWav(high, 1.0));
    }
    ~WidgetSoundTest() override { Platform::UseClock(nullptr); }

    template <class Painted>
    void PaintAfter(Painted& painted, std::uint32_t milliseconds) {
        clock.Advance(milliseconds);
        painted.OnPaint();
    }
    void ExpectSilence() { EXPECT_LT(LoudnessOf(0.1), 0.001); }
    /// Something with that pitch is heard, and nothing else.
    void ExpectTone(double hertz) {
        const std::vector<float> heard = Render(0.1);
        EXPECT_GT(Signal::Loudness(heard), 0.1);
        EXPECT_NEAR(Signal::Pitch(heard), hertz, 20.0);
    }
    /// Lets what still plays come to its end.
    void LetEnd() { Render(1.5); }

    Platform::ScriptedClock clock;
};

TEST_F(WidgetSoundTest, LetsButtonsBeHeardWhenReachedAndWhenPressedOnce) {
    GuiScreen screen;
    auto& first = screen.Add<GuiAnimatedButton>();
    auto& second = screen.Add<GuiAnimatedButton>();
    for (GuiAnimatedButton* button : {&first, &second}) {
        button->SetOverSound("low.wav");
        button->SetClickSound("high.wav");
    }
    ExpectSilence();
    screen.SetFocus(&first);
    ExpectTone(low);
    LetEnd();
    screen.OnKeyDown(VirtualKey::enter);
    ExpectTone(high);
    LetEnd();
    // The screen is on its way out: nothing more is heard until it is shown anew.
    screen.OnKeyDown(VirtualKey::enter);
    screen.SetFocus(&second);
    screen.OnKeyDown(VirtualKey::enter);
    ExpectSilence();
    screen.Reset();
    screen.SetFocus(&second);
    ExpectTone(low);
}

TEST_F(WidgetSoundTest, LetsAChoiceBeHeardOnlyWhenTheMouseChangesIt) {
    GuiOptionChooser chooser;
    chooser.AddOption("off");
    chooser.AddOption("on");
    chooser.SetClickSound("high.wav");
    chooser.OnMouseDown(0, 0, MouseButton::left);
    ExpectSilence();
    chooser.OnKeyDown(VirtualKey::right);
    ExpectSilence();
    chooser.OnMouseDown(0, 0, MouseButton::left);
    ExpectTone(high);
}

TEST_F(WidgetSoundTest, SoundsWhileAScoreCountsUp) {
    Write("run.wav", Signal::SineWav(low, 30.0));
    GuiScoreLabel label;
    label.SetSound("run.wav");
    label.SetRampTime(2.0f);
    for (const std::uint32_t counting : {500u, 2500u}) {  // cut short by a new showing, or not
        label.Reset();
        ExpectSilence();
        PaintAfter(label, 10);
        ExpectTone(low);
        PaintAfter(label, counting);
    }
    PaintAfter(label, 10);
    ExpectSilence();
}

}  // namespace
