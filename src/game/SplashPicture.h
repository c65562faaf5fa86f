#pragma once
// What the loading splash shows: a background that fills the window and an animation on it.

#include <cstdint>

#include "actors/LevelObjectsManager.h"
#include "graphics/Texture.h"

class SplashPicture {
public:
    /// Reads "cfg\splashScreen.cfg" and loads the images.
    SplashPicture();

    /// Time goes by: the next frame of the animation is shown once the last one was there for
    /// its time. No frame is left out.
    void Step(float dt);
    /// Into the current GL context, of a client area of this size (SplashPictureDraw.cpp).
    void Draw(int clientWidth, int clientHeight) const;

private:
    Texture background;
    /// The part of the background that is shown, from its middle outwards: half of its share
    /// of the image.
    float halfU = 0.0f;
    float halfV = 0.0f;
    LevelObject animation;  ///< at its place on the page
    float frameSeconds = 0.0f;
    float elapsed = 0.0f;  ///< seconds that the current frame has been shown
};
