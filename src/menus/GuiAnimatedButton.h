#pragma once
// The button that all menus are made of: three sets of frames, one per state, and two sounds.
// The widget's rectangle serves for the hit test; the picture has its own size and is centred
// on it.
//
// The idle frames run in a loop. The focus frames play forward while the pointer stays, hold
// on the last, and run backward into the idle loop when it leaves. A press shows the clicked
// frames on all buttons of the screen, so that none can be pressed again until the screen is
// reset.

#include <memory>
#include <string>
#include <vector>

#include "engine/Timer.h"
#include "graphics/Texture.h"
#include "menus/GuiShadow.h"
#include "menus/GuiWidget.h"

class Sound;

class GuiAnimatedButton : public GuiWidget, public GuiShadow {
public:
    enum State : int { OutOfFocus = 0, InFocus = 1, Clicked = 2 };

    GuiAnimatedButton();
    ~GuiAnimatedButton() override;

    // Each replaces the sound, or the set of frames (see LoadFrames in graphics/Texture.h).

    void SetOverSound(const std::string& file);
    void SetClickSound(const std::string& file);
    void SetFramesOutOfFocus(const std::string& name);
    void SetFramesInFocus(const std::string& name);
    void SetFramesClicked(const std::string& name);

    /// The picture of the present state; null if there is none.
    const Texture* CurrentFrame() const;
    /// Goes to a state, at the start of its animation.
    void SetState(State newState);

    void OnMouseDown(int mouseX, int mouseY, int button) override;
    /// Space and return press the button.
    static bool IsPressedBy(int virtualKey);
    void OnKeyDown(int virtualKey) override;
    void OnPaint() override;
    void OnGainFocus() override;
    void Reset() override;

    std::vector<Texture> framesOutOfFocus;
    std::vector<Texture> framesInFocus;
    std::vector<Texture> framesClicked;
    std::unique_ptr<Sound> overSound;  ///< may be null
    std::unique_ptr<Sound> clickSound;
    unsigned frame = 0;            ///< index in the set of the present state
    float frameTime = 0.0f;        ///< seconds since the last change of the frame
    float animationSpeed = 10.0f;  ///< frames per second; 0 or below stands still
    State state = OutOfFocus;
    Timer timer;

private:
    const std::vector<Texture>& CurrentFrames() const;
    void Press();
    void StepFrame(float dt);
    void NextFrameHeld();
};
