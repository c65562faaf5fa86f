#pragma once
// Sprite effects: sparks, drips, mist. An effect particle collides with nothing; it flies,
// falls and fades. The manager owns the level's emitters and the particles they throw.
// Particles point into their emitter's textures, so they go whenever emitters go.

#include <cstdint>
#include <string>
#include <vector>

#include "engine/Colour.h"
#include "engine/Random.h"
#include "engine/Vector2.h"
#include "graphics/TextureSet.h"
#include "level/View.h"

struct EffectsState;

/// Where effect particles come from. Values 1 and 2 bound a random choice at a particle's birth.
struct Emitter {
    /// Normalises; (0, 0) gives a direction that is drawn once. What isn't finite counts as 0.
    void SetDirection(float x, float y);
    /// Takes over what a settings file names; other values stay. The textures are the file's.
    void LoadSettings(const std::string& fileName);
    /// Emits `burstSize` particles at once, running or not.
    void Burst(EffectsState& effects, RandomNumbers& random) const;
    void Burst() const;  ///< in the world in play
    /// Throws one particle if there is room. The random draws come in a fixed order.
    void EmitOne(EffectsState& effects, RandomNumbers& random) const;
    void EmitOne() const;  ///< in the world in play

    std::uint32_t id = 0;  ///< what triggers address; not unique
    Vector2 position;
    Vector2 direction{1.0f, 0.0f};  ///< unit
    float frequency = 1.0f;         ///< seconds between two particles, at least 0.001
    float timeSinceEmit = 0.0f;     ///< seconds
    float spread = 0.0f;            ///< radians, width of the cone round `direction`
    std::uint32_t burstSize = 16;   ///< at most 4096
    std::uint8_t running = 1;
    std::uint8_t useAlphaBlending = 1;  ///< otherwise additive
    float velocity1 = 0.0f;             ///< units per second
    float velocity2 = 0.0f;
    float size1 = 0.0f;  ///< full width, world units
    float size2 = 0.0f;
    float liveTime1 = 1.0f;  ///< seconds, at least 0.0001
    float liveTime2 = 1.0f;
    Colour color1 = Colours::white;
    Colour color2 = Colours::white;
    float gravity1 = 0.0f;  ///< factor
    float gravity2 = 0.0f;
    TextureSet textures;  ///< a particle picks one; none: nothing is emitted
};

struct FxParticle {
    std::uint8_t useAlphaBlending = 1;
    Vector2 position;
    Vector2 velocity;  ///< units per second
    Colour color = Colours::white;
    float size = 0.0f;                 ///< full width, world units
    float liveTime = 1.0f;             ///< seconds in all
    float timeLeft = 1.0f;             ///< seconds
    float gravity = 0.0f;              ///< factor
    const Texture* texture = nullptr;  ///< an entry of the emitter's `textures`
};

struct EffectsState {
    std::vector<Emitter> emitters;      ///< in the order of adding
    std::vector<FxParticle> particles;  ///< the oldest first
    bool isCrowded = false;  ///< an emitter had no room to throw in since the level began

    /// False when as many particles fly as may. Emitters throw none then, and draw no random
    /// numbers.
    bool HasRoom();
};

namespace FxParticleManager {

/// One step of any world's effects; `gravity` is that of the water.
void Step(EffectsState& effects, RandomNumbers& random, float gravity, const View& view, float dt);

// The world in play.

extern EffectsState current;
// Parts of `current` by their own names.
inline std::vector<Emitter>& emitters = current.emitters;
inline std::vector<FxParticle>& particles = current.particles;
extern bool drawEmitters;

void Initialise();
void Shutdown();
/// Appends a copy.
void Add(const Emitter& emitter);
void AddParticle(const FxParticle& particle);
/// Level restart: emitters stay.
void ClearParticles();
void Step(const View& view, float dt);
/// Says on the console, once for each level, that too many particles fly.
void TellOfCrowd();
/// All particles (FxParticleManagerDraw.cpp).
void Draw();
/// Debug view: place, direction, cone and id of each emitter (FxParticleManagerDraw.cpp).
void DrawEmitters();

}  // namespace FxParticleManager
