#include "water/GroupFreeze.h"

#include <algorithm>

#include "water/GroupMembers.h"

namespace {

constexpr float reachSquared = GroupFreeze::reach * GroupFreeze::reach;
constexpr std::uint32_t noEntry = 0xFFFFFFFFu;

// A little wider than the reach, so that what rounds down to it is still in the next cell.
constexpr double inverseCellSize = 1.0 / 12.5;

CellTable::Key KeyOf(Vector2 position) {
    return {CellOf(position.x, inverseCellSize), CellOf(position.y, inverseCellSize)};
}

}  // namespace

void GroupFreeze::Run(ParticleList& particles, GroupList& groups, RandomNumbers& random) {
    const auto isFrozen = [](const Particle& particle) {
        return particle.temperature <= freezingPoint;
    };
    const auto seeds = static_cast<std::size_t>(std::ranges::count_if(particles, isFrozen));
    if (seeds == 0) {
        return;
    }
    entries.clear();
    cellHeads.clear();
    allTaken.clear();
    table.Reset(particles.size());
    AddEntries(particles, true);
    AddEntries(particles, false);
    const auto firstOld = static_cast<std::ptrdiff_t>(groups.size());
    for (std::uint32_t seed = 0; seed < seeds; ++seed) {
        if (!entries[seed].isTaken) {
            TakeWhatIsReached(particles, seed);
            groups.push_back(MakeGroup(particles, random));
        }
    }
    // The newest stands in front.
    std::reverse(groups.begin() + firstOld, groups.end());
    std::rotate(groups.begin(), groups.begin() + firstOld, groups.end());
    std::ranges::sort(allTaken);
    EraseAt(particles, allTaken);
}

void GroupFreeze::AddEntries(const ParticleList& particles, bool areFrozen) {
    for (std::uint32_t i = 0; i < particles.size(); ++i) {
        if ((particles[i].temperature <= freezingPoint) != areFrozen) {
            continue;
        }
        const std::uint32_t cell = table.FindOrAdd(KeyOf(particles[i].position));
        if (cell == cellHeads.size()) {
            cellHeads.push_back(noEntry);
        }
        entries.push_back({i, cellHeads[cell], false});
        cellHeads[cell] = static_cast<std::uint32_t>(entries.size() - 1);
    }
}

void GroupFreeze::TakeWhatIsReached(const ParticleList& particles, std::uint32_t seed) {
    taken.clear();
    Take(seed);
    work.assign(1, seed);
    while (!work.empty()) {
        const Vector2 centre = particles[entries[work.back()].particle].position;
        work.pop_back();
        FindReached(particles, centre);
        for (const std::uint32_t entry : reached) {
            Take(entry);
        }
        // The first one reached comes next, and all that it reaches before the second one.
        work.insert(work.end(), reached.rbegin(), reached.rend());
    }
}

ParticleList GroupFreeze::SpareList() {
    if (spare.empty()) {
        return {};
    }
    ParticleList list = std::move(spare.back());
    spare.pop_back();
    return list;
}

/// Of what was taken, the last one in front.
ParticleGroup GroupFreeze::MakeGroup(const ParticleList& particles, RandomNumbers& random) {
    const Particle& seed = particles[taken.front()];
    ParticleGroup group;
    group.particles = SpareList();
    group.radius = Particle::radius;
    group.targetRadius = TargetRadius(taken.size());
    group.position = seed.position;
    group.velocity = seed.velocity;
    group.pushVelocity = seed.pushVelocity;
    group.temperature = seed.temperature;
    group.particles.resize(taken.size());
    auto member = group.particles.rbegin();
    for (const std::uint32_t place : taken) {
        *member = particles[place];
        GivePlace(*member++, random);
    }
    group.particles.back().speed = 0.0f;
    return group;
}

void GroupFreeze::Take(std::uint32_t entry) {
    entries[entry].isTaken = true;
    taken.push_back(entries[entry].particle);
    allTaken.push_back(entries[entry].particle);
}

void GroupFreeze::FindReached(const ParticleList& particles, Vector2 centre) {
    reached.clear();
    const CellTable::Key key = KeyOf(centre);
    for (std::int64_t y = key.y - 1; y <= key.y + 1; ++y) {
        for (std::int64_t x = key.x - 1; x <= key.x + 1; ++x) {
            const std::uint32_t cell = table.Find({x, y});
            if (cell != CellTable::none) {
                FindReachedInCell(particles, cell, centre);
            }
        }
    }
    std::sort(reached.begin(), reached.end());
}

/// Also unlinks what has been taken, so that no walk meets it twice.
void GroupFreeze::FindReachedInCell(const ParticleList& particles, std::uint32_t cell,
                                    Vector2 centre) {
    std::uint32_t* link = &cellHeads[cell];
    while (*link != noEntry) {
        Entry& entry = entries[*link];
        const bool isReached = !entry.isTaken && DistanceSquared(particles[entry.particle].position,
                                                                 centre) <= reachSquared;
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
