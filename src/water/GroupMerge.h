#pragma once
// Fuses groups that touch. Comparing all pairs is quadratic. Here groups lie in cells, on one
// level per power of two of their target radius, so that a group looks only at the cells that its
// own radius and the level's greatest reach.

#include <cstdint>
#include <vector>

#include "water/CellTable.h"
#include "water/Particle.h"

class GroupMerge {
public:
    /// For each pair of groups (a, b), a nearer the list's front: if their target radii and 2 more
    /// exceed their distance, the members of the smaller one go to the back of the other's; in a
    /// tie, to b. Radii change on the way. A group so emptied stays in the list, keeps its target
    /// radius and takes part in the rest of the pairs; the next step erases it.
    void Run(GroupList& groups);

private:
    struct Entry {
        std::uint32_t group;
        std::uint32_t nextInCell;
    };
    /// A group, with copies of what the search reads.
    struct Item {
        ParticleGroup* group;
        Vector2 position;
        float targetRadius;
        int level;  ///< `targetRadius` isn't greater than this level's
    };

    static bool Touch(const Item& a, const Item& b);
    static void MoveMembers(Item& from, Item& to);
    void Enter(std::uint32_t group);
    void MergeFirst(std::uint32_t a);
    void Raise(std::uint32_t group);
    void FindPartners(std::uint32_t a, std::uint32_t from);
    void FindPartnersOnLevel(std::uint32_t a, std::uint32_t from, int level);

    std::vector<Item> items;  ///< by place in the list
    CellTable table;
    std::vector<Entry> entries;
    std::vector<std::uint32_t> cellHeads;
    std::uint32_t usedLevels = 0;  ///< one bit per level
    std::vector<std::uint32_t> partners;
};
