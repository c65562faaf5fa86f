// Looks at all water after a step; see LeakWatch.h.

#include "LeakWatch.h"

#include <algorithm>
#include <utility>

#include "actors/Camera.h"

namespace {

/// No lump goes further in a step, world units.
constexpr float lumpStride = 30.0f;

void Add(Vector2 from, std::size_t drops, Outcome& outcome) {
    Leak& leak = outcome.leaks.emplace_back();
    leak.steps = static_cast<std::uint32_t>(outcome.steps.size());
    leak.drops = static_cast<std::uint32_t>(drops);
    leak.from = from;
}

}  // namespace

void LeakWatch::Look(const World& world, const LeakSpace& space, Outcome& outcome) {
    if (world.camera.state == Camera::OpeningFlight) {
        return;
    }
    ++outcome.watchedSteps;
    const std::vector<Vector2> dropsBefore = std::exchange(drops, {});
    for (const Particle& drop : world.water.particles) {
        if (drop.dying != 0) {
            continue;
        }
        // The way since the step before: neighbours and platforms, then the drop's own move.
        const Vector2* const was = drop.positionHistory;
        if (space.IsOutside(drop.position) || space.LeadsOutside(was[1], was[0]) ||
            space.LeadsOutside(was[0], drop.position)) {
            drops.push_back(was[0]);
            if (std::ranges::find(dropsBefore, was[1]) == dropsBefore.end()) {
                Add(was[2], 1, outcome);
            }
        }
    }
    const std::vector<Vector2> lumpsBefore = std::exchange(lumps, {});
    for (const ParticleGroup& lump : world.water.groups) {
        if (lump.dying == 0 && space.IsOutside(lump.position)) {
            lumps.push_back(lump.position);
            const auto isNear = [&](Vector2 place) {
                return Distance(place, lump.position) < lumpStride;
            };
            if (std::ranges::none_of(lumpsBefore, isNear)) {
                Add(lump.position, lump.particles.size(), outcome);
            }
        }
    }
}
