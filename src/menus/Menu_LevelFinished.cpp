// The end of a level; see Menu_LevelFinished.h.

#include "menus/Menu_LevelFinished.h"

#include <algorithm>

#include "engine/Page.h"
#include "menus/GuiLevelTimeDisplay.h"
#include "menus/GuiScoreLabel.h"
#include "menus/GuiWaterLevel.h"
#include "menus/LogicalSpace.h"
#include "menus/MenuAction.h"
#include "menus/MenuBuilder.h"
#include "menus/MenuHost.h"

namespace {

// Since the level was finished; a second press while the first is served does nothing.
bool scoreSubmitted = false;

void SubmitAndGoOn(GuiAnimatedButton& button) {
    if (scoreSubmitted) {
        return;
    }
    // Typing a name paints this screen, and must not find a second press on it.
    button.owner->FlushPending();
    MenuHost::Current().EnterScore(button.owner);
    MenuHost::Current().RequestRestart();
    scoreSubmitted = true;
    // The table shows, with the main menu as its way back.
    MenuManager::Show(MenuManager::Main);
    MenuManager::Show(MenuManager::HighScores);
}

/// One of the numbers of the level's result.
template <std::uint32_t LevelResult::*number>
std::uint32_t Result() {
    return MenuHost::Current().Result().*number;
}

GuiScoreLabel& AddCounter(GuiScreen& screen, const MenuBuilder& builder, const std::string& name,
                          GuiScoreLabel::ValueSource valueSource, const std::string& soundKey) {
    auto& counter = screen.Add<GuiScoreLabel>();
    builder.StyleText(counter);
    counter.SetFontSize(builder.Own().GetFloat("labelFontSizes"));
    builder.Place(counter, name);
    counter.valueSource = valueSource;
    counter.SetSound(builder.Own().GetString(soundKey));
    return counter;
}

}  // namespace

Menu_LevelFinished::Menu_LevelFinished() {
    MenuBuilder builder(*this, "cfg\\menu_levelFinished.cfg");
    clearBackground = true;
    waterRampTime = std::max(builder.Own().GetFloat("waterRampUpTime"), 0.0001f);
    AddPictures(builder);
    AddCounters(builder);
    GuiAnimatedButton& next = builder.AddButton("continueButton");
    MenuAction::Bind<SubmitAndGoOn>(next);
    SetDefaultFocus(&next);
}

/// The picture lies over the water and lets it be seen where it is transparent.
void Menu_LevelFinished::AddPictures(MenuBuilder& builder) {
    waterLevel = &Add<GuiWaterLevel>();
    builder.Place(*waterLevel, "waterLevel");
    builder.Size(*waterLevel, "waterLevel");
    waterLevel->enabled = false;

    auto& background = Add<GuiImage>();
    const ConfigFile& own = builder.Own();
    background.SetImage(own.GetString("backgroundImage"));
    background.SetPosition(0, 0);
    background.SetSize(static_cast<int>(Page::width), static_cast<int>(Page::height));
    background.SetSourceRect(own.GetFloat("backgroundImage_x"), own.GetFloat("backgroundImage_y"),
                             own.GetFloat("backgroundImage_w"), own.GetFloat("backgroundImage_h"));
    background.enabled = false;
}

/// Water first; then the time and its score; then the total.
void Menu_LevelFinished::AddCounters(MenuBuilder& builder) {
    const float timeRamp = builder.Own().GetFloat("timeRampUpTime");

    builder.AddLabel("waterScoreLabel", "Water score:");
    waterScoreCount = &AddCounter(*this, builder, "waterScoreCount",
                                  Result<&LevelResult::waterScore>, "waterRampUpSound");

    auto& time = Add<GuiLevelTimeDisplay>();
    builder.StyleText(time);
    time.SetFontSize(builder.General().GetFloat("timeDisplay_fontSize"));
    builder.Place(time, "timeDisplay");
    builder.Size(time, "timeDisplay");
    time.SetRampTime(timeRamp);
    time.predecessor = waterScoreCount;

    builder.AddLabel("timeScoreLabel", "Time  score:");
    GuiScoreLabel& timeScore = AddCounter(*this, builder, "timeScoreCount",
                                          Result<&LevelResult::timeScore>, "timeRampUpSound");
    timeScore.SetRampTime(timeRamp);
    timeScore.predecessor = waterScoreCount;

    builder.AddLabel("totalScoreLabel", "Total score:");
    GuiScoreLabel& totalScore = AddCounter(*this, builder, "totalScoreCount",
                                           Result<&LevelResult::totalScore>, "totalRampUpSound");
    totalScore.SetRampTime(builder.Own().GetFloat("totalRampUpTime"));
    totalScore.predecessor = &timeScore;
}

void Menu_LevelFinished::Reset() {
    scoreSubmitted = false;
    const float share = MenuHost::Current().Result().WaterShare();
    waterScoreCount->SetRampTime(waterRampTime * share);
    waterLevel->SetRampTime(waterRampTime * share);
    GuiScreen::Reset();
}
