// States, frames and sounds of a button; see GuiAnimatedButton.h.

#include "menus/GuiAnimatedButton.h"

#include "audio/Sound.h"
#include "menus/GuiScreen.h"
#include "menus/WidgetSound.h"
#include "platform/VirtualKeys.h"

GuiAnimatedButton::GuiAnimatedButton() = default;
GuiAnimatedButton::~GuiAnimatedButton() = default;

void GuiAnimatedButton::SetOverSound(const std::string& file) {
    overSound = MakeWidgetSound(file);
}

void GuiAnimatedButton::SetClickSound(const std::string& file) {
    clickSound = MakeWidgetSound(file);
}

void GuiAnimatedButton::SetFramesOutOfFocus(const std::string& name) {
    framesOutOfFocus = LoadFrames(name);
}

void GuiAnimatedButton::SetFramesInFocus(const std::string& name) {
    framesInFocus = LoadFrames(name);
}

void GuiAnimatedButton::SetFramesClicked(const std::string& name) {
    framesClicked = LoadFrames(name);
}

const std::vector<Texture>& GuiAnimatedButton::CurrentFrames() const {
    switch (state) {
        case InFocus:
            return framesInFocus;
        case Clicked:
            return framesClicked;
        default:
            return framesOutOfFocus;
    }
}

const Texture* GuiAnimatedButton::CurrentFrame() const {
    const std::vector<Texture>& frames = CurrentFrames();
    return frame < frames.size() ? &frames[frame] : nullptr;
}

void GuiAnimatedButton::SetState(State newState) {
    state = newState;
    frame = 0;
    frameTime = 0.0f;
}

void GuiAnimatedButton::OnGainFocus() {
    // In any other state the pointer has come back: the animation turns forward by itself.
    if (state != OutOfFocus) {
        return;
    }
    SetState(InFocus);
    if (overSound && !overSound->IsPlaying()) {
        PlayWidgetSound(overSound.get());
    }
}

void GuiAnimatedButton::OnMouseDown(int /*mouseX*/, int /*mouseY*/, int /*button*/) {
    if (state != Clicked) {
        Press();
    }
}

bool GuiAnimatedButton::IsPressedBy(int virtualKey) {
    return virtualKey == VirtualKey::space || virtualKey == VirtualKey::enter;
}

void GuiAnimatedButton::OnKeyDown(int virtualKey) {
    if (state != Clicked && IsPressedBy(virtualKey)) {
        Press();
    }
}

void GuiAnimatedButton::Reset() {
    SetState(OutOfFocus);
}

void GuiAnimatedButton::Press() {
    SetState(Clicked);
    PlayWidgetSound(clickSound.get());
    if (!owner) {
        return;
    }
    for (const auto& widget : owner->widgets) {
        auto* other = dynamic_cast<GuiAnimatedButton*>(widget.get());
        if (other && other->state != Clicked) {
            other->SetState(Clicked);
        }
    }
}

void GuiAnimatedButton::NextFrameHeld() {
    if (frame + 1 < CurrentFrames().size()) {
        ++frame;
    }
}

void GuiAnimatedButton::StepFrame(float dt) {
    if (!(animationSpeed > 0.0f)) {
        return;
    }
    frameTime += dt;
    if (frameTime < 1.0f / animationSpeed) {
        return;
    }
    frameTime = 0.0f;
    if (state == OutOfFocus) {
        frame = frame + 1 < CurrentFrames().size() ? frame + 1 : 0;
    } else if (state == Clicked || hasFocus) {
        NextFrameHeld();
    } else if (frame > 0) {
        --frame;
    } else {
        state = OutOfFocus;
    }
}

void GuiAnimatedButton::OnPaint() {
    timer.Tick();
    StepFrame(timer.deltaSeconds);
    const Texture* picture = CurrentFrame();
    if (!picture) {
        return;
    }
    const auto w = static_cast<float>(picture->width);
    const auto h = static_cast<float>(picture->height);
    const float left = static_cast<float>(x) + static_cast<float>(width) / 2.0f - w / 2.0f;
    const float top = static_cast<float>(y) + static_cast<float>(height) / 2.0f - h / 2.0f;
    GuiPainter& painter = GuiPainter::Current();
    if (dropShadow) {
        const float shadowLeft = left + shadowOffsetX;
        const float shadowTop = top + shadowOffsetY;
        painter.DrawImage(*picture, {shadowLeft, shadowTop, shadowLeft + w, shadowTop + h},
                          wholeImage, shadowColour);
    }
    painter.DrawImage(*picture, {left, top, left + w, top + h}, wholeImage, colour);
}
