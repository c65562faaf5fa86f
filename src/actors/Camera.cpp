// Follow, zoom, shake and turn; see Camera.h.

#include "actors/Camera.h"

#include <algorithm>
#include <cmath>

#include "engine/ConfigFile.h"
#include "engine/Random.h"
#include "graphics/GLWindow.h"
#include "graphics/GLWindowCursor.h"
#include "platform/VirtualKeys.h"
#include "water/GroupedParticleMover.h"
#include "water/ParticleManager.h"

namespace Camera {

CameraState current;

namespace {

constexpr float widestZoom = 2.5f;
constexpr float playZoom = 1.0f;

/// Values of cfg\camera.cfg. "Share" values are what is left after one second.
struct Settings {
    float rotationSmooth = 0.0f;            // share of the angular velocity
    float movementInterpolateSpeed = 0.0f;  // share of the distance to the water
    float maxAngle = 0.0f;                  // degrees
    float keyboardTurnSpeed = 0.0f;         // degrees per second
    float mouseTurnSpeed = 0.0f;            // degrees per second and pixel
    float zoomSpeed = 0.0f;                 // zoom units per second
    float zoomWait = 0.0f;                  // seconds
    float waypointInterpolateSpeed = 0.0f;  // share of the distance, in the opening flight
    float waypointInterpolateDistance = 0.0f;
    float waypointWaitTime = 0.0f;  // kept for level data; nothing hangs on it
    float shakeTime = 0.0f;         // seconds
    float shakeStrenght = 0.0f;     // world units
    float shakeSpeed = 0.0f;        // units per second
} settings;

void ReadSettings() {
    const ConfigFile file("cfg\\camera.cfg");
    const auto share = [&file](const char* key, float limit) {
        return std::clamp(file.GetFloat(key), 0.0f, limit);
    };
    const auto magnitude = [&file](const char* key) { return std::fabs(file.GetFloat(key)); };
    settings.rotationSmooth = share("rotationSmooth", 1.0f);
    settings.movementInterpolateSpeed = share("movementInterpolateSpeed", 1.0f);
    settings.maxAngle = std::min(magnitude("maxAngle"), 180.0f);
    settings.keyboardTurnSpeed = magnitude("keyboardTurnSpeed");
    settings.mouseTurnSpeed = magnitude("mouseTurnSpeed");
    settings.zoomSpeed = magnitude("zoomSpeed");
    settings.zoomWait = magnitude("zoomWait");
    settings.waypointInterpolateSpeed = std::min(magnitude("waypointInterpolateSpeed"), 0.99f);
    settings.waypointInterpolateDistance = magnitude("waypointInterpolateDistance");
    settings.waypointWaitTime = magnitude("waypointWaitTime");
    settings.shakeTime = magnitude("shakeTime");
    settings.shakeStrenght = magnitude("shakeStrenght");
    settings.shakeSpeed = magnitude("shakeSpeed");
}

/// Mean place of all water, near water weighing more, so that the camera stays with the main
/// body when some of it runs off. (0, 0) without water.
Vector2 WaterCentre() {
    float weight = 0.0f;
    Vector2 sum;
    for (const Particle& particle : ParticleManager::particles) {
        const float w = 1.0f / (1.0f + Distance(particle.position, position));
        weight += w;
        sum += particle.position * w;
    }
    for (const ParticleGroup& group : GroupedParticleMover::groups) {
        const float w = (1.0f / (1.0f + Distance(group.position, position))) *
                        static_cast<float>(group.particles.size());
        weight += w;
        sum += group.position * w;
    }
    return weight != 0.0f ? sum / weight : Vector2{};
}

/// A loss can come while the view is wide; nothing else would bring it back then.
void EndFlight() {
    state = zoom > playZoom ? ZoomingIn : Following;
}

/// What the sums behind the water's centre can be off by, units.
float RoundingOf(Vector2 centre) {
    return 1e-5f * (std::fabs(centre.x) + std::fabs(centre.y));
}

void Follow(float dt) {
    const Vector2 centre = WaterCentre();
    const bool flying = state == OpeningFlight;
    const float k = std::pow(
        flying ? settings.waypointInterpolateSpeed : settings.movementInterpolateSpeed, dt);
    const Vector2 before = position;
    const Vector2 gap = centre - before;
    position = before * k + centre * (1.0f - k);
    // The centre depends on the position, and the last bits of both may go to and fro for ever,
    // or a part of the gap be lost in rounding: then the flight can't come nearer.
    if (flying &&
        (Length(gap) <= std::max(settings.waypointInterpolateDistance, RoundingOf(centre)) ||
         position == before)) {
        EndFlight();
    }
}

void StepZoom(float dt) {
    switch (state) {
        case ZoomingOut:
            zoom += settings.zoomSpeed * dt;
            if (zoom >= widestZoom) {
                zoom = widestZoom;
                state = Holding;
                current.zoomTimer = settings.zoomWait;
            }
            break;
        case Holding:
            current.zoomTimer -= dt;
            if (current.zoomTimer <= 0.0f) {
                current.zoomTimer = 0.0f;
                state = ZoomingIn;
            }
            break;
        case ZoomingIn:
            zoom -= settings.zoomSpeed * dt;
            if (zoom <= playZoom) {
                zoom = playZoom;
                state = Following;
            }
            break;
        default:
            break;
    }
}

void PickShakeTarget() {
    const float x = Random::Unit() - 0.5f;
    const float y = Random::Unit() - 0.5f;
    Vector2 direction{x, y};
    Normalise(direction);
    current.shakeTarget = direction * settings.shakeStrenght;
}

/// Moves `shakeOffset` against `gap` by `reach` units.
void MoveShakeOffset(Vector2 gap, float reach) {
    Normalise(gap);
    shakeOffset -= gap * reach;
}

void StepShake(float dt) {
    const float reach = dt * settings.shakeSpeed;
    if (current.shaking) {
        current.shakeTimer -= dt;
        if (current.shakeTimer <= 0.0f) {
            current.shakeTimer = 0.0f;
            current.shaking = false;
        }
        const Vector2 gap = shakeOffset - current.shakeTarget;
        if (reach >= Length(gap)) {
            shakeOffset = current.shakeTarget;
            PickShakeTarget();
        } else {
            MoveShakeOffset(gap, reach);
        }
    } else if (reach > Length(shakeOffset)) {
        shakeOffset = {};
    } else {
        MoveShakeOffset(shakeOffset, reach);
    }
}

void Turn(float wanted, float dt) {
    const float k = std::pow(settings.rotationSmooth, dt);
    current.angularVelocity = current.angularVelocity * k + wanted * (1.0f - k);
    angle += current.angularVelocity * dt;
    if (angle < -settings.maxAngle || angle > settings.maxAngle) {
        angle = std::clamp(angle, -settings.maxAngle, settings.maxAngle);
        current.angularVelocity = 0.0f;
    }
}

}  // namespace

void ReadConfig() {
    ReadSettings();
    current = {};
}

void SetState(int value) {
    if (value >= OpeningFlight && value <= ZoomingIn) {
        state = value;
    }
}

bool IsOpeningFlight() {
    return state == OpeningFlight;
}

float WantedTurn() {
    float wanted = 0.0f;
    if (GLWindow::IsKeyDown(VirtualKey::left)) {
        wanted += settings.keyboardTurnSpeed;
    }
    if (GLWindow::IsKeyDown(VirtualKey::right)) {
        wanted -= settings.keyboardTurnSpeed;
    }
    if (GLWindow::IsForeground() && GLWindow::IsCursorInClient()) {
        const int dx = GLWindow::CursorScreenX() - GLWindow::ClientCentreScreenX();
        wanted -= static_cast<float>(dx) * settings.mouseTurnSpeed;
        GLWindow::WarpCursorToCentre();
    }
    return wanted;
}

void Step(std::optional<float> turn, float dt) {
    Follow(dt);
    StepZoom(dt);
    StepShake(dt);
    if (turn) {
        Turn(*turn, dt);
    }
}

void Zoom() {
    switch (state) {
        case Following:
        case ZoomingIn:
            state = ZoomingOut;
            break;
        case Holding:
            current.zoomTimer = settings.zoomWait;
            break;
        default:
            break;
    }
}

void Shake() {
    current.shakeTimer = settings.shakeTime;
    if (!current.shaking) {
        current.shaking = true;
        PickShakeTarget();
    }
}

View Look(float width, float height) {
    return {position + shakeOffset, angle, zoom, width, height};
}

}  // namespace Camera
