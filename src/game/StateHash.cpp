// See StateHash.h.

#include "game/StateHash.h"

#include <bit>

#include "actors/Camera.h"
#include "actors/MoverManager.h"
#include "actors/TriggerManager.h"
#include "engine/Random.h"
#include "game/LevelProgress.h"
#include "water/FxParticleManager.h"
#include "water/WaterCheck.h"

namespace {

/// FNV-1a over words.
class WordHash {
public:
    void Add(std::uint64_t word) { value = (value ^ word) * 0x100000001B3u; }
    void Add(float number) { Add(std::uint64_t{std::bit_cast<std::uint32_t>(number)}); }
    void Add(Vector2 v) {
        Add(v.x);
        Add(v.y);
    }
    std::uint64_t Value() const { return value; }

private:
    std::uint64_t value = 0xCBF29CE484222325u;
};

void AddCamera(WordHash& hash) {
    hash.Add(Camera::position);
    hash.Add(Camera::shakeOffset);
    hash.Add(Camera::angle);
    hash.Add(Camera::zoom);
    hash.Add(static_cast<std::uint64_t>(Camera::state));
}

void AddActors(WordHash& hash) {
    for (const Mover& mover : MoverManager::movers) {
        hash.Add(mover.distance);
        hash.Add(static_cast<std::uint64_t>(mover.state));
    }
    for (const Trigger& trigger : TriggerManager::triggers) {
        hash.Add(std::uint64_t{trigger.fireCount});
    }
    for (const FxParticle& particle : FxParticleManager::particles) {
        hash.Add(particle.position);
        hash.Add(particle.timeLeft);
    }
}

void AddProgress(WordHash& hash) {
    hash.Add(std::uint64_t{LevelProgress::ElapsedMs()});
    hash.Add(std::uint64_t{LevelProgress::IsFinished()});
    hash.Add(LevelProgress::respawnX);
    hash.Add(LevelProgress::respawnY);
    hash.Add(std::uint64_t{LevelProgress::respawnAmount});
}

}  // namespace

std::uint64_t StateHash() {
    WordHash hash;
    hash.Add(WaterCheck::Hash());
    hash.Add(std::uint64_t{Random::state});
    AddCamera(hash);
    AddActors(hash);
    AddProgress(hash);
    return hash.Value();
}
