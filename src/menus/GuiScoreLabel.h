#pragma once
// A number that counts up from 0 to its final value, with a sound while it does. With a
// predecessor it stays at 0 until that one is done.

#include <cstdint>
#include <memory>
#include <string>

#include "menus/GuiRamp.h"
#include "menus/GuiTextWidget.h"

class Sound;

class GuiScoreLabel : public GuiTextWidget {
public:
    using ValueSource = std::uint32_t (*)();

    GuiScoreLabel();
    ~GuiScoreLabel() override;

    /// At least 0.01 seconds; the whole way is to go again.
    void SetRampTime(float seconds);
    /// What is heard while the number counts up.
    void SetSound(const std::string& file);
    void OnPaint() override;
    /// Starts the run again, silent until the next paint.
    void Reset() override;

    GuiRamp ramp{4.0f};
    ValueSource valueSource = nullptr;     ///< the final value, asked at each paint
    GuiScoreLabel* predecessor = nullptr;  ///< not owned; of the same screen
    std::unique_ptr<Sound> sound;          ///< never null

private:
    std::uint32_t AdvanceValue();
};
