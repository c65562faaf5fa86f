// Shortest ways over the grid, one field for each set of open gates; see FlowMap.h.

#include "FlowMap.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <queue>

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

}  // namespace

FlowMap::FlowMap() {
    if (!HasFinish()) {
        return;
    }
    FindGates();
    fields.resize(std::size_t{1} << gates.size());
    for (std::size_t open = fields.size(); open-- > 0;) {
        fields[open] = FieldOf(static_cast<std::uint32_t>(open));
    }
}

template <class IsBarred>
void FlowMap::Relax(Field& field, const Sources& sources, IsBarred isBarred, float barPrice) const {
    using Entry = std::pair<float, std::size_t>;
    std::priority_queue<Entry, std::vector<Entry>, std::greater<>> waiting;
    for (const auto& [cell, distance] : sources) {
        field[cell] = std::min(field[cell], distance);
        waiting.emplace(field[cell], cell);
    }
    while (!waiting.empty()) {
        const auto [distance, cell] = waiting.top();
        waiting.pop();
        if (distance > field[cell]) {
            continue;
        }
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
            if (distance + price < field[from]) {
                field[from] = distance + price;
                waiting.emplace(field[from], from);
            }
        }
    }
}

template <class IsBarred>
FlowMap::Field FlowMap::Spread(const Sources& sources, IsBarred isBarred) const {
    Field field(space.CellCount(), unreached);
    Relax(field, sources, isBarred, unreached);
    return field;
}

/// Whether the way to the goal is longer while the switch is off.
bool FlowMap::IsOnTheWay(std::size_t which, const std::vector<std::size_t>& goal) const {
    Sources sources;
    for (const std::size_t cell : goal) {
        sources.emplace_back(cell, 0.0f);
    }
    const auto only = static_cast<FlowSpace::Bar>(which + 1);
    const auto barredAlways = [](FlowSpace::Bar bar, bool isLift) {
        return !isLift && bar == FlowSpace::always;
    };
    const auto barredHere = [only](FlowSpace::Bar bar, bool isLift) {
        return bar == only || (!isLift && bar == FlowSpace::always);
    };
    const std::size_t start = space.CellAt(LevelData::waterStart);
    const float open = Spread(sources, barredAlways)[start];
    const float closed = Spread(sources, barredHere)[start];
    return closed > open + worthwhile;
}

void FlowMap::FindGates() {
    gateBit.assign(Switches::all.size(), 0);
    std::vector<std::vector<std::size_t>> goals{space.Finish()};
    for (std::size_t g = 0; g < goals.size(); ++g) {
        const std::vector<std::size_t> goal = goals[g];
        for (std::size_t i = 0; i < gateBit.size() && gates.size() < mostGates; ++i) {
            if (gateBit[i] == 0 && !space.Openers(i).empty() && IsOnTheWay(i, goal)) {
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
