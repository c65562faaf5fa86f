#pragma once
// The camera is the game's steering wheel: the player's input turns it, and gravity turns
// with it. It also follows the water, flies to it at a start, zooms and shakes. Readers take
// position + shakeOffset wherever the view's centre is meant.

#include <optional>

#include "engine/Vector2.h"

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
/// Loads the world transform (CameraDraw.cpp).
void ApplyView();
void Zoom();
void Shake();
/// (0, 1) turned by `angle`: where down is.
Vector2 GravityDirection();

/// The corners and inward normals of the view in world coordinates.
struct ViewRectangle {
    Vector2 corner[4];
    Vector2 normal[4];
    /// Whether the point is more than `margin` outside of any side.
    bool IsOutside(Vector2 point, float margin) const {
        for (int i = 0; i < 4; ++i) {
            if (Dot(point - corner[i], normal[i]) < -margin) {
                return true;
            }
        }
        return false;
    }
};
ViewRectangle View();

}  // namespace Camera
