#pragma once
// The camera is the game's steering wheel: the player's input turns it, and gravity turns
// with it. It also follows the water, flies to it at a start, zooms and shakes. `Look` is what all
// others see of it.

#include <optional>

#include "engine/Page.h"
#include "engine/Random.h"
#include "engine/Vector2.h"
#include "level/View.h"
#include "water/WaterState.h"

/// All that changes about the camera while a level is played.
struct CameraState {
    Vector2 position{-1000.0f, 0.0f};  ///< world point at the centre of the view
    Vector2 shakeOffset;               ///< added to it, world units
    float angle = 0.0f;                ///< degrees; above 0 turns gravity towards -x
    float zoom = 1.0f;                 ///< world units per view unit, 1 to 2.5
    int state = 0;                     ///< a Camera::State
    float angularVelocity = 0.0f;      ///< degrees per second
    float zoomTimer = 0.0f;            ///< seconds left at the widest zoom
    bool shaking = false;
    float shakeTimer = 0.0f;  ///< seconds left of the shake
    Vector2 shakeTarget;      ///< where `shakeOffset` is going
};

namespace Camera {

enum State { OpeningFlight = 0, Following = 1, ZoomingOut = 2, Holding = 3, ZoomingIn = 4 };

// Of any world.

/// Once per module step, with the uncapped `dt`. `turn` is what the player asks for, degrees per
/// second; without it the camera keeps its angle.
void Step(CameraState& camera, const WaterState& water, RandomNumbers& random,
          std::optional<float> turn, float dt);
/// What a picture of that size shows, units at zoom 1.
View Look(const CameraState& camera, float width = Page::width, float height = Page::height);
void Zoom(CameraState& camera);
void Shake(CameraState& camera, RandomNumbers& random);
/// The turning speed that these arrow keys ask for while they are held, degrees per second.
float TurnOfKeys(bool left, bool right);

// The world in play.

extern CameraState current;
// Parts of `current` by their own names.
inline Vector2& position = current.position;
inline Vector2& shakeOffset = current.shakeOffset;
inline float& angle = current.angle;
inline float& zoom = current.zoom;
inline int& state = current.state;

/// Reads cfg\camera.cfg and resets the camera to its start values.
void ReadConfig();
/// Ignored outside of 0..4.
void SetState(int value);
/// Flying to the water; the simulation stands still.
bool IsOpeningFlight();
/// The turning speed that keys and mouse ask for now, degrees per second. Takes the mouse's way
/// since the last call.
float WantedTurn();
void Step(std::optional<float> turn, float dt);
View Look(float width = Page::width, float height = Page::height);
/// Loads the world transform of the view (CameraDraw.cpp).
void ApplyView(const View& view);
void Zoom();
void Shake();
}  // namespace Camera
