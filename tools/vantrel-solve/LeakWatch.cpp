// Looks at all water after a frame; see LeakWatch.h.

#include "LeakWatch.h"

#include <utility>

#include "actors/Camera.h"
#include "game/RunRecorder.h"
#include "water/GroupedParticleMover.h"
#include "water/ParticleManager.h"

void LeakWatch::Look(Outcome& outcome) {
    if (Camera::IsOpeningFlight()) {
        return;
    }
    ++outcome.watchedFrames;
    std::swap(before, outside);
    outside.clear();
    for (const Particle& drop : ParticleManager::particles) {
        if (drop.dying != 0) {
            continue;
        }
        // The way since the step before: neighbours and platforms, then the drop's own move.
        const Vector2* const was = drop.positionHistory;
        const bool isOutside = space.IsOutside(drop.position);
        const bool wentThrough =
            space.LeadsOutside(was[1], was[0]) || space.LeadsOutside(was[0], drop.position);
        if (isOutside || wentThrough) {
            Add(&drop, was[2], 1, outcome);
        }
    }
    for (const ParticleGroup& lump : GroupedParticleMover::groups) {
        if (lump.dying == 0 && space.IsOutside(lump.position)) {
            Add(&lump, lump.position, lump.particles.size(), outcome);
        }
    }
}

void LeakWatch::Add(const void* who, Vector2 from, std::size_t drops, Outcome& outcome) {
    outside.insert(who);
    if (before.contains(who)) {
        return;
    }
    if (outcome.leakCount == Outcome::mostLeaks) {
        outcome.leaks.back().drops += static_cast<std::uint32_t>(drops);
    } else {
        Leak& leak = outcome.leaks[outcome.leakCount++];
        leak.steps = static_cast<std::uint32_t>(RunRecorder::Current().steps.size());
        leak.drops = static_cast<std::uint32_t>(drops);
        leak.from = from;
    }
}
