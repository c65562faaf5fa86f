// Shortest ways over the grid, one field for each set of open gates; see FlowMap.h.

#include "FlowMap.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <utility>

#include "ParallelFor.h"
#include "level/LevelData.h"

namespace {

constexpr float unreached = std::numeric_limits<float>::infinity();

// Each gate doubles the number of fields.
constexpr std::size_t mostGates = 7;
/// A switch that saves less than this isn't worth a gate, world units.
constexpr float worthwhile = 60.0f;
/// Price of ten units through what bars the way, where the rest of the level can't be reached
/// otherwise: shapes too fine for the grid still give a direction.
constexpr float throughWall = 300.0f;
constexpr float throughOpener = 20.0f;
/// No switch's bar.
constexpr FlowSpace::Bar noSwitch = FlowSpace::always - 1;

/// Cells that are still to be looked at, by their distance. Those of a bucket come in any order: no
/// step is cheaper than a bucket is wide, so that none leads to another cell of it.
class Waiting {
public:
    void Add(std::size_t cell, float distance) {
        const std::size_t bucket = BucketOf(distance);
        if (bucket >= buckets.size()) {
            buckets.resize(bucket + 1);
        }
        buckets[bucket].push_back(cell);
    }
    /// Calls `look` with each cell of the field, the nearest bucket first; it may add farther ones.
    template <class Look>
    void ForAll(const std::vector<float>& field, Look look) {
        for (std::size_t bucket = 0; bucket < buckets.size(); ++bucket) {
            const std::vector<std::size_t> cells = std::move(buckets[bucket]);
            for (const std::size_t cell : cells) {
                // Else a shorter way was found since.
                if (BucketOf(field[cell]) == bucket) {
                    look(cell);
                }
            }
        }
    }

private:
    static std::size_t BucketOf(float distance) {
        return static_cast<std::size_t>(distance / FlowSpace::leastPrice);
    }
    std::vector<std::vector<std::size_t>> buckets;
};

}  // namespace

FlowMap::FlowMap(unsigned threads) {
    if (!HasFinish()) {
        return;
    }
    FindGates();
    fields.resize(std::size_t{1} << gates.size());
    // Each field needs those of one more open gate.
    for (std::size_t count = gates.size() + 1; count-- > 0;) {
        std::vector<std::uint32_t> sets;
        for (std::uint32_t open = 0; open < fields.size(); ++open) {
            if (static_cast<std::size_t>(std::popcount(open)) == count) {
                sets.push_back(open);
            }
        }
        ParallelFor(sets.size(), threads,
                    [&](std::size_t i, unsigned) { fields[sets[i]] = FieldOf(sets[i]); });
    }
}

template <class IsBarred>
void FlowMap::Relax(Field& field, const Sources& sources, IsBarred isBarred, float barPrice) const {
    Waiting waiting;
    const auto reach = [&](std::size_t cell, float distance) {
        if (distance < field[cell]) {
            field[cell] = distance;
            waiting.Add(cell, distance);
        }
    };
    for (const auto& [cell, distance] : sources) {
        reach(cell, distance);
    }
    waiting.ForAll(field, [&](std::size_t cell) {
        // Backwards: from the neighbour into this cell.
        for (int direction = 0; direction < FlowSpace::directions; ++direction) {
            const int back = (direction + 4) % FlowSpace::directions;
            const std::size_t from = space.Neighbour(cell, back);
            if (from == space.CellCount()) {
                continue;
            }
            const bool carried =
                space.LiftAt(from) != FlowSpace::nothing && !isBarred(space.LiftAt(from), true);
            float price = space.Price(from, direction, carried);
            if (isBarred(space.BarOf(from, direction), false)) {
                price = barPrice;
            }
            reach(from, field[cell] + price);
        }
    });
}

template <class IsBarred>
FlowMap::Field FlowMap::Spread(const Sources& sources, IsBarred isBarred) const {
    Field field(space.CellCount(), unreached);
    Relax(field, sources, isBarred, unreached);
    return field;
}

float FlowMap::WayTo(const std::vector<std::size_t>& goal, FlowSpace::Bar off) const {
    Sources sources;
    for (const std::size_t cell : goal) {
        sources.emplace_back(cell, 0.0f);
    }
    const auto isBarred = [off](FlowSpace::Bar bar, bool isLift) {
        return bar == off || (!isLift && bar == FlowSpace::always);
    };
    return Spread(sources, isBarred)[space.CellAt(LevelData::waterStart)];
}

void FlowMap::FindGates() {
    gateBit.assign(Switches::all.size(), 0);
    std::vector<std::vector<std::size_t>> goals{space.Finish()};
    for (std::size_t g = 0; g < goals.size(); ++g) {
        const std::vector<std::size_t> goal = goals[g];
        const float open = WayTo(goal, noSwitch);
        for (std::size_t i = 0; i < gateBit.size() && gates.size() < mostGates; ++i) {
            if (gateBit[i] == 0 && !space.Openers(i).empty() &&
                WayTo(goal, static_cast<FlowSpace::Bar>(i + 1)) > open + worthwhile) {
                gateBit[i] = 1u << gates.size();
                gates.push_back(i);
                goals.push_back(space.Openers(i));
            }
        }
    }
}

FlowMap::Field FlowMap::FieldOf(std::uint32_t open) const {
    Sources sources;
    for (const std::size_t cell : space.Finish()) {
        sources.emplace_back(cell, 0.0f);
    }
    for (const std::size_t i : gates) {
        if ((open & gateBit[i]) == 0) {
            for (const std::size_t cell : space.Openers(i)) {
                const float onwards = std::fabs(fields[open | gateBit[i]][cell]);
                sources.emplace_back(cell, onwards + throughOpener);
            }
        }
    }
    const auto isBarred = [&](FlowSpace::Bar bar, bool isLift) {
        if (bar == FlowSpace::nothing || bar == FlowSpace::always) {
            return !isLift && bar == FlowSpace::always;
        }
        const std::uint32_t bit = gateBit[bar - 1u];
        return bit != 0 && (open & bit) == 0;
    };
    Field field = Spread(sources, isBarred);
    Sources reached;
    for (std::size_t cell = 0; cell < field.size(); ++cell) {
        if (field[cell] != unreached) {
            reached.emplace_back(cell, field[cell]);
        }
    }
    const auto barredNowhere = [](FlowSpace::Bar bar, bool isLift) {
        return !isLift && bar != FlowSpace::nothing;
    };
    Field guessed(field.size(), unreached);
    Relax(guessed, reached, barredNowhere, throughWall);
    for (std::size_t cell = 0; cell < field.size(); ++cell) {
        field[cell] = field[cell] != unreached ? field[cell] : -guessed[cell];
    }
    return field;
}

std::uint32_t FlowMap::Gates(std::uint64_t state) const {
    std::uint32_t open = 0;
    for (const std::size_t i : gates) {
        open |= (state >> i & 1u) != 0 ? gateBit[i] : 0;
    }
    return open;
}

float FlowMap::Distance(Vector2 place, std::uint64_t state) const {
    const Field& field = fields[Gates(state)];
    const std::size_t cell = space.CellAt(place);
    if (field[cell] >= 0.0f) {
        return field[cell];
    }
    // The middle of the cell lies in a wall: the neighbour on this side of it counts.
    float distance = -field[cell];
    float least = unreached;
    for (int direction = 0; direction < FlowSpace::directions; ++direction) {
        const std::size_t neighbour = space.Neighbour(cell, direction);
        if (neighbour != space.CellCount() && field[neighbour] >= 0.0f) {
            const float away = DistanceSquared(space.Centre(neighbour), place);
            distance = away < least ? field[neighbour] : distance;
            least = std::min(least, away);
        }
    }
    return distance;
}
