// Follow, zoom, shake and turn; see Camera.h.

#include "actors/Camera.h"

#include <algorithm>
#include <cmath>

#include "engine/ConfigFile.h"
#include "graphics/GLWindow.h"
#include "graphics/GLWindowCursor.h"
#include "platform/VirtualKeys.h"
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
Vector2 WaterCentre(const WaterState& water, Vector2 seenFrom) {
    float weight = 0.0f;
    Vector2 sum;
    for (const Particle& particle : water.particles) {
        const float w = 1.0f / (1.0f + Distance(particle.position, seenFrom));
        weight += w;
        sum += particle.position * w;
    }
    for (const ParticleGroup& group : water.groups) {
        const float w = (1.0f / (1.0f + Distance(group.position, seenFrom))) *
                        static_cast<float>(group.particles.size());
        weight += w;
        sum += group.position * w;
    }
    return weight != 0.0f ? sum / weight : Vector2{};
}

/// A loss can come while the view is wide; nothing else would bring it back then.
void EndFlight(CameraState& camera) {
    camera.state = camera.zoom > playZoom ? ZoomingIn : Following;
}

/// What the sums behind the water's centre can be off by, units.
float RoundingOf(Vector2 centre) {
    return 1e-5f * (std::fabs(centre.x) + std::fabs(centre.y));
}

void Follow(CameraState& camera, const WaterState& water, float dt) {
    const Vector2 centre = WaterCentre(water, camera.position);
    const bool flying = camera.state == OpeningFlight;
    const float k = std::pow(
        flying ? settings.waypointInterpolateSpeed : settings.movementInterpolateSpeed, dt);
    const Vector2 before = camera.position;
    const Vector2 gap = centre - before;
    camera.position = before * k + centre * (1.0f - k);
    // The centre depends on the position, and the last bits of both may go to and fro for ever,
    // or a part of the gap be lost in rounding: then the flight can't come nearer.
    if (flying &&
        (Length(gap) <= std::max(settings.waypointInterpolateDistance, RoundingOf(centre)) ||
         camera.position == before)) {
        EndFlight(camera);
    }
}

void StepZoom(CameraState& camera, float dt) {
    switch (camera.state) {
        case ZoomingOut:
            camera.zoom += settings.zoomSpeed * dt;
            if (camera.zoom >= widestZoom) {
                camera.zoom = widestZoom;
                camera.state = Holding;
                camera.zoomTimer = settings.zoomWait;
            }
            break;
        case Holding:
            camera.zoomTimer -= dt;
            if (camera.zoomTimer <= 0.0f) {
                camera.zoomTimer = 0.0f;
                camera.state = ZoomingIn;
            }
            break;
        case ZoomingIn:
            camera.zoom -= settings.zoomSpeed * dt;
            if (camera.zoom <= playZoom) {
                camera.zoom = playZoom;
                camera.state = Following;
            }
            break;
        default:
            break;
    }
}

void PickShakeTarget(CameraState& camera, RandomNumbers& random) {
    const float x = random.Unit() - 0.5f;
    const float y = random.Unit() - 0.5f;
    Vector2 direction{x, y};
    Normalise(direction);
    camera.shakeTarget = direction * settings.shakeStrenght;
}

/// Moves the shake against `gap` by `reach` units.
void MoveShakeOffset(CameraState& camera, Vector2 gap, float reach) {
    Normalise(gap);
    camera.shakeOffset -= gap * reach;
}

void StepShake(CameraState& camera, RandomNumbers& random, float dt) {
    const float reach = dt * settings.shakeSpeed;
    if (camera.shaking) {
        camera.shakeTimer -= dt;
        if (camera.shakeTimer <= 0.0f) {
            camera.shakeTimer = 0.0f;
            camera.shaking = false;
        }
        const Vector2 gap = camera.shakeOffset - camera.shakeTarget;
        if (reach >= Length(gap)) {
            camera.shakeOffset = camera.shakeTarget;
            PickShakeTarget(camera, random);
        } else {
            MoveShakeOffset(camera, gap, reach);
        }
    } else if (reach > Length(camera.shakeOffset)) {
        camera.shakeOffset = {};
    } else {
        MoveShakeOffset(camera, camera.shakeOffset, reach);
    }
}

void Turn(CameraState& camera, float wanted, float dt) {
    const float k = std::pow(settings.rotationSmooth, dt);
    camera.angularVelocity = camera.angularVelocity * k + wanted * (1.0f - k);
    camera.angle += camera.angularVelocity * dt;
    if (camera.angle < -settings.maxAngle || camera.angle > settings.maxAngle) {
        camera.angle = std::clamp(camera.angle, -settings.maxAngle, settings.maxAngle);
        camera.angularVelocity = 0.0f;
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

float TurnOfKeys(bool left, bool right) {
    float wanted = 0.0f;
    if (left) {
        wanted += settings.keyboardTurnSpeed;
    }
    if (right) {
        wanted -= settings.keyboardTurnSpeed;
    }
    return wanted;
}

float WantedTurn() {
    float wanted =
        TurnOfKeys(GLWindow::IsKeyDown(VirtualKey::left), GLWindow::IsKeyDown(VirtualKey::right));
    if (GLWindow::IsForeground() && GLWindow::IsCursorInClient()) {
        const int dx = GLWindow::CursorScreenX() - GLWindow::ClientCentreScreenX();
        wanted -= static_cast<float>(dx) * settings.mouseTurnSpeed;
        GLWindow::WarpCursorToCentre();
    }
    return wanted;
}

void Step(CameraState& camera, const WaterState& water, RandomNumbers& random,
          std::optional<float> turn, float dt) {
    Follow(camera, water, dt);
    StepZoom(camera, dt);
    StepShake(camera, random, dt);
    if (turn) {
        Turn(camera, *turn, dt);
    }
}

void Step(std::optional<float> turn, float dt) {
    Step(current, ParticleManager::current, Random::current, turn, dt);
}

void Zoom(CameraState& camera) {
    switch (camera.state) {
        case Following:
        case ZoomingIn:
            camera.state = ZoomingOut;
            break;
        case Holding:
            camera.zoomTimer = settings.zoomWait;
            break;
        default:
            break;
    }
}

void Zoom() {
    Zoom(current);
}

void Shake(CameraState& camera, RandomNumbers& random) {
    camera.shakeTimer = settings.shakeTime;
    if (!camera.shaking) {
        camera.shaking = true;
        PickShakeTarget(camera, random);
    }
}

void Shake() {
    Shake(current, Random::current);
}

View Look(const CameraState& camera, float width, float height) {
    return {camera.position + camera.shakeOffset, camera.angle, camera.zoom, width, height};
}

View Look(float width, float height) {
    return Look(current, width, height);
}

}  // namespace Camera
