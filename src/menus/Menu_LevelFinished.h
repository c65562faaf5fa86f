#pragma once
// What a finished level was worth, counted up part by part, then the way on: a name for the
// table if the score ranks, the table itself, and the main menu behind it. Hides the level.

#include "menus/GuiScreen.h"

class GuiScoreLabel;
class GuiWaterLevel;
class MenuBuilder;

class Menu_LevelFinished : public GuiScreen {
public:
    Menu_LevelFinished();
    /// Also fits the water's run to the water there is: counter and column rise at one pace
    /// whatever was saved.
    void Reset() override;

private:
    void AddPictures(MenuBuilder& builder);
    void AddCounters(MenuBuilder& builder);

    float waterRampTime = 0.0f;  ///< seconds for a full body of water
    GuiScoreLabel* waterScoreCount = nullptr;
    GuiWaterLevel* waterLevel = nullptr;
};
