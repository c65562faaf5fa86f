// The splash's settings and time.

#include "game/SplashPicture.h"

#include "engine/ConfigFile.h"

namespace {

/// Half the share of an image's side that `shown` pixels are.
float HalfShare(float shown, std::uint32_t side) {
    return side > 0 ? shown / static_cast<float>(side) * 0.5f : 0.0f;
}

}  // namespace

SplashPicture::SplashPicture() {
    const ConfigFile file("cfg\\splashScreen.cfg");
    background = Texture(file.GetString("splashBackground"), "DEFAULT_TEXTURE");
    halfU = HalfShare(file.GetFloat("splashBackgroundW"), background.width);
    halfV = HalfShare(file.GetFloat("splashBackgroundH"), background.height);
    if (const std::string name = file.GetString("splashAnimation"); !name.empty()) {
        animation.SetTexture(name);
    }
    animation.position = {file.GetFloat("splashAnimationX"), file.GetFloat("splashAnimationY")};
    float speed = file.GetFloat("splashAnimationSpeed");
    if (!(speed > 0.0f)) {
        speed = 0.000001f;
    }
    frameSeconds = 1.0f / speed;
}

void SplashPicture::Step(float dt) {
    elapsed += dt;
    if (!(elapsed > frameSeconds)) {
        return;
    }
    elapsed = 0.0f;
    if (++animation.frame >= animation.frames.size()) {
        animation.frame = 0;
    }
}
