// Reads situations from what a move led to; see StuckPlace.h.

#include "StuckPlace.h"

#include <algorithm>

#include "SituationHash.h"
#include "engine/ConfigFile.h"
#include "level/LevelData.h"

namespace {

// World units.

/// Settled water is told apart finely: a pocket and its rim aren't one place.
constexpr float settledSquare = 24.0f;
constexpr float movingSquare = 40.0f;
constexpr float aheadSquare = 128.0f;
constexpr float regionSquare = 160.0f;
/// On two sides of a thin wall the ways to the finish differ by more than this.
constexpr float perDistance = 200.0f;
/// Drops this near to the last one that is wanted are with it.
constexpr float together = 80.0f;
/// Water that falls out of the level falls on without end; so far out all places are one.
constexpr float margin = 300.0f;

}  // namespace

StuckPlaces::StuckPlaces(const FlowMap& flowMap)
    : map(flowMap), low(LevelData::waterStart), high(LevelData::waterStart) {
    finishShare = ConfigFile("cfg\\game.cfg").GetFloat("finishWaterVolume");
    for (const LevelPolygon& polygon : LevelData::polygons) {
        for (std::size_t i = 0; polygon.solid != 0 && i < polygon.PointCount(); ++i) {
            const Vector2 point = polygon.Point(i);
            low = {std::min(low.x, point.x), std::min(low.y, point.y)};
            high = {std::max(high.x, point.x), std::max(high.y, point.y)};
        }
    }
    low -= {margin, margin};
    high += {margin, margin};
}

Vector2 StuckPlaces::Within(Vector2 place) const {
    return {std::clamp(place.x, low.x, high.x), std::clamp(place.y, low.y, high.y)};
}

/// In the order of their ways to the finish: the last drop that the finish wants, and one a
/// fifth of the water from the front.
void StuckPlaces::FindDrops(const Outcome& outcome, StuckPlace& found, Vector2& ahead) const {
    const std::size_t count = outcome.drops.size();
    std::vector<std::pair<float, std::size_t>> order;
    order.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        order.emplace_back(map.Distance(outcome.drops[i].place, outcome.switches), i);
    }
    std::ranges::sort(order);
    const auto wanted = static_cast<std::size_t>(static_cast<float>(count) * finishShare);
    const auto [distance, last] = order[std::clamp<std::size_t>(wanted, 1, count) - 1];
    const Drop& lastDrop = outcome.drops[last];
    found.place = Within(lastDrop.place);
    found.matter = lastDrop.matter;
    found.distance = distance;
    for (const Drop& drop : outcome.drops) {
        found.near += Distance(drop.place, lastDrop.place) < together ? 1 : 0;
    }
    ahead = Within(outcome.drops[order[count / 5].second].place);
}

StuckPlace StuckPlaces::Read(const Outcome& outcome) const {
    StuckPlace found;
    found.alive = outcome.Alive();
    found.settled = outcome.settled;
    found.fired = outcome.firedTriggers;
    found.elapsedMs = outcome.elapsedMs;
    found.angle = outcome.angle;
    Vector2 ahead;
    if (!outcome.drops.empty()) {
        FindDrops(outcome, found, ahead);
    }
    SituationHash::Mix(found.regionHash, SituationHash::Square(found.place, regionSquare));
    SituationHash::Mix(found.regionHash, static_cast<std::uint64_t>(found.matter));
    SituationHash::Mix(found.regionHash, map.Gates(outcome.switches));
    found.hash = found.regionHash;
    SituationHash::Mix(found.hash, found.settled ? 1 : 0);
    SituationHash::Mix(found.hash, SituationHash::Square(
                                       found.place, found.settled ? settledSquare : movingSquare));
    const bool isSplit = Distance(found.place, ahead) > together;
    SituationHash::Mix(found.hash, isSplit ? SituationHash::Square(ahead, aheadSquare) : 0);
    SituationHash::Mix(found.hash, static_cast<std::uint64_t>(found.distance / perDistance));
    SituationHash::Mix(found.hash, outcome.machines);
    return found;
}
