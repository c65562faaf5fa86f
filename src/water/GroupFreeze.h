#pragma once
// Spreads frost from one particle to all within reach of it, and from those on. The rule is a
// recursion: each particle in turn first takes all the free ones near it, frozen ones before
// others and each kind in list order, and then the same goes on from each of those it took.
// Here that is an explicit work list, and a table of cells finds the near ones.

#include <cstdint>
#include <utility>
#include <vector>

#include "engine/Random.h"
#include "water/CellTable.h"
#include "water/Particle.h"

class GroupFreeze {
public:
    /// Frost leaps this far, world units: three times the distance at which water touches.
    static constexpr float reach = 12.0f;

    /// Takes all particles at or below 0 degrees, and all that these reach, out of `particles`
    /// and into new groups at the front of `groups`.
    void Run(ParticleList& particles, GroupList& groups, RandomNumbers& random);
    /// Keeps a group's storage for one to come.
    void Recycle(ParticleGroup& group) { spare.push_back(std::move(group.particles)); }

private:
    /// A particle that could be taken. Its number in `entries` is its rank.
    struct Entry {
        std::uint32_t particle;  ///< its place in the list
        std::uint32_t nextInCell;
        bool isTaken;
    };

    void AddEntries(const ParticleList& particles, bool areFrozen);
    void TakeWhatIsReached(const ParticleList& particles, std::uint32_t seed);
    ParticleGroup MakeGroup(const ParticleList& particles, RandomNumbers& random);
    ParticleList SpareList();
    void Take(std::uint32_t entry);
    void FindReached(const ParticleList& particles, Vector2 centre);
    void FindReachedInCell(const ParticleList& particles, std::uint32_t cell, Vector2 centre);

    CellTable table;
    std::vector<Entry> entries;
    std::vector<std::uint32_t> cellHeads;
    std::vector<std::uint32_t> reached;  ///< by the current particle, in order of rank
    std::vector<std::uint32_t> work;     ///< taken but not yet spread from; the last is next
    std::vector<std::uint32_t> taken;    ///< places of a group's members, in the order of taking
    std::vector<std::uint32_t> allTaken;
    std::vector<ParticleList> spare;  ///< of groups that are gone
};
