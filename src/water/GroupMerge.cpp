#include "water/GroupMerge.h"

#include <algorithm>
#include <bit>
#include <cmath>

#include "water/GroupMembers.h"

namespace {

constexpr float mergeMargin = 2.0f;
constexpr std::uint32_t noEntry = 0xFFFFFFFFu;
constexpr int levelCount = 24;  // target radii up to 2^24

/// Greatest target radius of the groups on a level.
float LevelRadius(int level) {
    return static_cast<float>(2u << level);
}

int LevelOf(float targetRadius) {
    const auto width = static_cast<int>(std::bit_width(static_cast<std::uint64_t>(targetRadius)));
    return std::clamp(width - 1, 0, levelCount - 1);
}

double InverseCellSize(int level) {
    return 0.5 / static_cast<double>(LevelRadius(level));
}

struct CellRange {
    std::int64_t first;
    std::int64_t last;
};

/// Cells that hold all that lies within `reach` of the coordinate. Where floats are further
/// apart than any reach, that is the coordinate's own cell.
CellRange CellsWithin(float coordinate, double reach, double inverseSize) {
    if (!(std::fabs(coordinate) + reach < 0x1p40)) {
        const std::int64_t own = CellOf(coordinate, inverseSize);
        return {own, own};
    }
    return {static_cast<std::int64_t>(std::floor((coordinate - reach) * inverseSize)),
            static_cast<std::int64_t>(std::floor((coordinate + reach) * inverseSize))};
}

CellTable::Key KeyOf(std::int64_t x, std::int64_t y, int level) {
    return {x, y + (static_cast<std::int64_t>(level) << 56)};
}

}  // namespace

void GroupMerge::Run(GroupList& groups) {
    if (groups.size() < 2) {
        return;
    }
    items.clear();
    entries.clear();
    cellHeads.clear();
    usedLevels = 0;
    table.Reset(groups.size());
    for (ParticleGroup& group : groups) {
        items.push_back({&group, group.position, group.targetRadius, LevelOf(group.targetRadius)});
        Enter(static_cast<std::uint32_t>(items.size() - 1));
    }
    for (std::uint32_t a = 0; a < items.size(); ++a) {
        MergeFirst(a);
    }
}

bool GroupMerge::Touch(const Item& a, const Item& b) {
    return a.targetRadius + b.targetRadius + mergeMargin > Distance(a.position, b.position);
}

void GroupMerge::MoveMembers(Item& from, Item& to) {
    ParticleGroup& target = *to.group;
    ParticleList& members = from.group->particles;
    target.particles.insert(target.particles.end(), members.begin(), members.end());
    members.clear();
    target.targetRadius = to.targetRadius = TargetRadius(target.particles.size());
}

/// Puts the group into its cell on its level.
void GroupMerge::Enter(std::uint32_t group) {
    const Item& item = items[group];
    const double inverseSize = InverseCellSize(item.level);
    const std::uint32_t cell = table.FindOrAdd(KeyOf(
        CellOf(item.position.x, inverseSize), CellOf(item.position.y, inverseSize), item.level));
    if (cell == cellHeads.size()) {
        cellHeads.push_back(noEntry);
    }
    entries.push_back({group, cellHeads[cell]});
    cellHeads[cell] = static_cast<std::uint32_t>(entries.size() - 1);
    usedLevels |= 1u << item.level;
}

/// All pairs that have `a` as the first of the two.
void GroupMerge::MergeFirst(std::uint32_t a) {
    Item& first = items[a];
    std::uint32_t from = a + 1;
    bool isGrown = true;
    while (isGrown) {
        isGrown = false;
        const float searchedRadius = first.targetRadius;
        FindPartners(a, from);
        for (const std::uint32_t b : partners) {
            Item& second = items[b];
            if (!Touch(first, second)) {
                continue;
            }
            if (second.targetRadius >= first.targetRadius) {
                MoveMembers(first, second);
                Raise(b);
                continue;
            }
            MoveMembers(second, first);
            if (first.targetRadius > searchedRadius) {
                // It reaches further now: look again, behind this one.
                from = b + 1;
                isGrown = true;
                break;
            }
        }
    }
}

/// Brings a group that has outgrown its level to the right one. It stays on the old one too.
void GroupMerge::Raise(std::uint32_t group) {
    const int level = LevelOf(items[group].targetRadius);
    if (level > items[group].level) {
        items[group].level = level;
        Enter(group);
    }
}

/// The groups from place `from` on that touch `a`, in list order.
void GroupMerge::FindPartners(std::uint32_t a, std::uint32_t from) {
    partners.clear();
    for (int level = 0; level < levelCount; ++level) {
        if ((usedLevels & (1u << level)) != 0) {
            FindPartnersOnLevel(a, from, level);
        }
    }
    std::sort(partners.begin(), partners.end());
    partners.erase(std::unique(partners.begin(), partners.end()), partners.end());
}

void GroupMerge::FindPartnersOnLevel(std::uint32_t a, std::uint32_t from, int level) {
    const Item& first = items[a];
    // A little more than exact, so that distances that round down are in.
    const double reach =
        1.001 * (static_cast<double>(first.targetRadius) + LevelRadius(level) + mergeMargin);
    const double inverseSize = InverseCellSize(level);
    const CellRange columns = CellsWithin(first.position.x, reach, inverseSize);
    const CellRange rows = CellsWithin(first.position.y, reach, inverseSize);
    for (std::int64_t y = rows.first; y <= rows.last; ++y) {
        for (std::int64_t x = columns.first; x <= columns.last; ++x) {
            const std::uint32_t cell = table.Find(KeyOf(x, y, level));
            std::uint32_t entry = cell == CellTable::none ? noEntry : cellHeads[cell];
            for (; entry != noEntry; entry = entries[entry].nextInCell) {
                const std::uint32_t b = entries[entry].group;
                if (b >= from && Touch(first, items[b])) {
                    partners.push_back(b);
                }
            }
        }
    }
}
