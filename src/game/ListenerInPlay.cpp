#include "game/ListenerInPlay.h"

#include "actors/CheckPointTimesManager.h"
#include "actors/SoundSourceManager.h"
#include "actors/TriggerManager.h"
#include "game/GameSounds.h"
#include "game/LevelProgress.h"
#include "game/World.h"
#include "water/FxParticleManager.h"

namespace {

class Listener : public WorldListener {
public:
    void OnSimulated(const TriggerEvents& events) override {
        SoundSourceManager::Follow(events.sounds);
        for (const Trigger* const checkPoint : events.checkPoints) {
            CheckPointTimesManager::Reached(*checkPoint, LevelProgress::ElapsedMs());
        }
        FxParticleManager::TellOfCrowd();
        TriggerManager::TellOfDropped();
    }
    void OnSounds(const ImpactChances& chances, float dt) override {
        GameSounds::Step(dt, chances);
    }
    void OnRespawn() override { LevelProgress::PlayRespawnSound(); }
    void OnFinishReached() override { LevelProgress::PlayFinishSound(); }
    void OnFinished() override { LevelProgress::ShowEnd(); }
};

}  // namespace

WorldListener& ListenerInPlay() {
    static Listener listener;
    return listener;
}
