#pragma once
// Triggers with a delay, plainly: one entry for each firing, run in a list.

#include <vector>

#include "actors/TriggerManager.h"
#include "water/ParticleManager.h"

namespace Plain {

/// Like the manager's step, but for all triggers, near the camera or not, and without groups.
class Triggers {
public:
    void Step(float dt) {
        for (Entry& entry : entries) {
            entry.timeLeft -= dt;
            if (entry.timeLeft <= 0.0f) {
                entry.trigger->effect({*entry.trigger, {}, entry.dt, Actors::Parts(), events});
            }
        }
        std::erase_if(entries, [](const Entry& entry) { return entry.timeLeft <= 0.0f; });
        for (Particle& particle : ParticleManager::particles) {
            for (const Trigger& trigger : TriggerManager::triggers) {
                const std::uint32_t fired = TriggerManager::StateOf(trigger).fireCount;
                if (!trigger.IsSpent(fired) && trigger.Contains(particle.position)) {
                    Fire(trigger, particle, dt);
                }
            }
        }
    }

private:
    struct Entry {
        const Trigger* trigger;
        float dt;
        float timeLeft;
    };

    void Fire(const Trigger& trigger, Particle& particle, float dt) {
        ++TriggerManager::StateOf(trigger).fireCount;
        if (trigger.delay > 0.0f) {
            entries.push_back({&trigger, dt, trigger.delay});
        } else {
            trigger.effect({trigger, {&particle}, dt, Actors::Parts(), events});
        }
    }

    std::vector<Entry> entries;
    TriggerEvents events;
};

}  // namespace Plain
