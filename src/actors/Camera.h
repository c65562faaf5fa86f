#pragma once
// The camera is the game's steering wheel: the player's input turns it, and gravity turns
// with it. It also follows the water, flies to it at a start, zooms and shakes. `Look` is what all
// others see of it.

#include <optional>

#include "engine/Page.h"
#include "engine/Vector2.h"
#include "level/View.h"

namespace Camera {

extern Vector2 position;  ///< world point at the centre of the view
extern Vector2 shakeOffset;
extern float angle;  ///< degrees; above 0 turns gravity towards -x
extern float zoom;   ///< world units per view unit, 1 to 2.5

enum State { OpeningFlight = 0, Following = 1, ZoomingOut = 2, Holding = 3, ZoomingIn = 4 };
extern int state;

/// Reads cfg\camera.cfg and resets the camera to its start values.
void ReadConfig();
/// Ignored outside of 0..4.
void SetState(int value);
/// Flying to the water; the simulation stands still.
bool IsOpeningFlight();
/// The turning speed that keys and mouse ask for now, degrees per second. Takes the mouse's way
/// since the last call.
float WantedTurn();
/// Once per module step, with the uncapped `dt`. `turn` is what the player asks for; without it
/// the camera keeps its angle.
void Step(std::optional<float> turn, float dt);
/// What a picture of that size shows, units at zoom 1.
View Look(float width = Page::width, float height = Page::height);
/// Loads the world transform of the view (CameraDraw.cpp).
void ApplyView(const View& view);
void Zoom();
void Shake();
}  // namespace Camera
