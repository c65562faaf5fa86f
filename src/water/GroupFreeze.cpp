#include "water/GroupFreeze.h"

#include <algorithm>

#include "water/GroupMembers.h"
#include "water/ParticleMover.h"

namespace {

constexpr float reachSquared = GroupFreeze::reach * GroupFreeze::reach;
constexpr std::uint32_t noEntry = 0xFFFFFFFFu;

// A little wider than the reach, so that what rounds down to it is still in the next cell.
constexpr double inverseCellSize = 1.0 / 12.5;

CellTable::Key KeyOf(Vector2 position) {
    return {CellOf(position.x, inverseCellSize), CellOf(position.y, inverseCellSize)};
}

}  // namespace

void GroupFreeze::Run(ParticleList& particles, GroupList& groups) {
    for (auto it = particles.begin(); it != particles.end();) {
        const auto particle = it++;
        if (particle->temperature <= freezingPoint) {
            ParticleMover::GridRemove(*particle);
            frozen.splice(frozen.end(), particles, particle);
        }
    }
    if (frozen.empty()) {
        return;
    }
    free = &particles;
    entries.clear();
    cellHeads.clear();
    table.Reset(frozen.size() + particles.size());
    const std::size_t seeds = frozen.size();
    AddEntries(frozen, true);
    AddEntries(particles, false);
    for (std::uint32_t seed = 0; seed < seeds; ++seed) {
        if (!entries[seed].isTaken) {
            MakeGroup(groups.emplace_front(), seed);
        }
    }
}

void GroupFreeze::AddEntries(ParticleList& list, bool isFrozen) {
    for (auto it = list.begin(); it != list.end(); ++it) {
        const std::uint32_t cell = table.FindOrAdd(KeyOf(it->position));
        if (cell == cellHeads.size()) {
            cellHeads.push_back(noEntry);
        }
        entries.push_back({it, cellHeads[cell], isFrozen, false});
        cellHeads[cell] = static_cast<std::uint32_t>(entries.size() - 1);
    }
}

void GroupFreeze::MakeGroup(ParticleGroup& group, std::uint32_t seed) {
    const Particle& first = *entries[seed].particle;
    group.radius = group.targetRadius = Particle::radius;
    group.position = first.position;
    group.velocity = first.velocity;
    group.pushVelocity = first.pushVelocity;
    group.temperature = first.temperature;
    entries[seed].particle->speed = 0.0f;
    Take(group, seed);

    work.assign(1, seed);
    while (!work.empty()) {
        const Vector2 centre = entries[work.back()].particle->position;
        work.pop_back();
        FindReached(centre);
        for (const std::uint32_t entry : reached) {
            Take(group, entry);
        }
        // The first one reached comes next, and all that it reaches before the second one.
        work.insert(work.end(), reached.rbegin(), reached.rend());
    }
    group.targetRadius = TargetRadius(group.particles.size());
}

void GroupFreeze::Take(ParticleGroup& group, std::uint32_t entry) {
    Entry& taken = entries[entry];
    taken.isTaken = true;
    ParticleMover::GridRemove(*taken.particle);
    group.particles.splice(group.particles.begin(), taken.isFrozen ? frozen : *free,
                           taken.particle);
    GivePlace(*taken.particle);
}

void GroupFreeze::FindReached(Vector2 centre) {
    reached.clear();
    const CellTable::Key key = KeyOf(centre);
    for (std::int64_t y = key.y - 1; y <= key.y + 1; ++y) {
        for (std::int64_t x = key.x - 1; x <= key.x + 1; ++x) {
            const std::uint32_t cell = table.Find({x, y});
            if (cell != CellTable::none) {
                FindReachedInCell(cell, centre);
            }
        }
    }
    std::sort(reached.begin(), reached.end());
}

/// Also unlinks what has been taken, so that no walk meets it twice.
void GroupFreeze::FindReachedInCell(std::uint32_t cell, Vector2 centre) {
    std::uint32_t* link = &cellHeads[cell];
    while (*link != noEntry) {
        Entry& entry = entries[*link];
        const bool isReached =
            !entry.isTaken && DistanceSquared(entry.particle->position, centre) <= reachSquared;
        if (isReached) {
            reached.push_back(*link);
        }
        if (isReached || entry.isTaken) {
            *link = entry.nextInCell;
        } else {
            link = &entry.nextInCell;
        }
    }
}
