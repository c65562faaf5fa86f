// Which situations are kept, and which are tried next; see Archive.h.

#include "Archive.h"

#include <algorithm>
#include <cmath>

#include "SituationHash.h"
#include "engine/FullBody.h"

namespace {

// Weights, in world units of distance.
constexpr float perLostDrop = 5.0f;
/// Of drops that are lost earlier than the way so far excuses.
constexpr float perEarlyLoss = 25.0f;
constexpr float perSecond = 3.0f;
/// What a try costs a situation's standing: so much farther back is as good as untried.
constexpr float perTry = 16.0f;
/// Loss upon loss says that the water is beyond saving, however near it is.
constexpr float perLoss = 40.0f;
constexpr float perTryInRegion = 0.25f;
/// Worlds that are better by less than this aren't worth the exchange.
constexpr float worthExchange = 2.0f;

constexpr float cell = 40.0f;
constexpr float region = 160.0f;
constexpr double shareOfRare = 0.3;

/// Mostly water, steam or ice.
std::uint64_t MostMatter(const Outcome& outcome) {
    const std::uint32_t all = std::max(outcome.Alive(), 1u);
    return (outcome.steam * 2 > all ? 1u : 0u) + (outcome.ice * 2 > all ? 2u : 0u);
}

}  // namespace

/// Mean over the water, and more for water that is torn apart: a part that runs ahead is no
/// progress if the rest doesn't follow.
float Archive::DistanceOf(const Outcome& outcome) const {
    // Below a half, so that every drop that gets ahead is some progress.
    constexpr float perDeviation = 0.45f;
    const auto count = static_cast<float>(std::max(outcome.Alive(), 1u));
    std::vector<float> distances;
    distances.reserve(outcome.Alive());
    float sum = 0.0f;
    for (const Drop& drop : outcome.drops) {
        distances.push_back(map.Distance(drop.place, outcome.switches));
        sum += distances.back();
    }
    const float mean = sum / count;
    float deviation = 0.0f;
    for (const float distance : distances) {
        deviation += std::fabs(distance - mean);
    }
    return mean + perDeviation * deviation / count;
}

Found Archive::Describe(Worlds::Number world) const {
    const Outcome& outcome = worlds.Of(world);
    Found found;
    found.world = world;
    found.distance = DistanceOf(outcome);
    found.alive = outcome.Alive();
    found.elapsedMs = outcome.elapsedMs;
    found.angle = outcome.angle;
    SituationHash::Mix(found.regionHash, SituationHash::Square(outcome.centre, region));
    SituationHash::Mix(found.regionHash, outcome.fired);
    SituationHash::Mix(found.regionHash, map.Gates(outcome.switches));
    SituationHash::Mix(found.regionHash, MostMatter(outcome));
    found.hash = found.regionHash;
    SituationHash::Mix(found.hash, SituationHash::Square(outcome.centre, cell));
    SituationHash::Mix(found.hash, outcome.movers);
    SituationHash::Mix(found.hash, outcome.Alive() / 12);
    SituationHash::Mix(found.hash, static_cast<std::uint64_t>(outcome.angle + 90.0f) / 60);
    return found;
}

bool Archive::Take(Worlds::Number world, Path path) {
    Found found = Describe(world);
    farthest = std::max(farthest, founds.empty() ? found.distance : 0.0f);
    found.path = std::move(path);
    const auto [place, isNew] = byHash.try_emplace(found.hash, founds.size());
    if (isNew) {
        founds.push_back(found);
    } else {
        Found& there = founds[place->second];
        if (Cost(found) > Cost(there) - worthExchange) {
            worlds.Drop(world);
            return false;
        }
        worlds.Drop(there.world);
        found.tries = there.tries / 2;
        found.losses = there.losses / 2;
        there = found;
    }
    nearest = std::min(nearest, found.distance);
    return true;
}

/// Cost of a situation, however often it was tried. What may be lost is to last for the whole
/// way: losses count for more the nearer to the start they happened.
float Archive::Cost(const Found& found) const {
    const float progress = std::max(1.0f - found.distance / std::max(farthest, 1.0f), 0.0f);
    const float lost = static_cast<float>(fullBody) - static_cast<float>(found.alive);
    const float excused =
        progress * (static_cast<float>(fullBody) - static_cast<float>(leastWater));
    return found.distance + perLostDrop * lost + perEarlyLoss * std::max(lost - excused, 0.0f) +
           perSecond * static_cast<float>(found.elapsedMs) * 0.001f;
}

float Archive::Standing(const Found& found) const {
    return Cost(found) + perTry * static_cast<float>(found.tries) +
           perLoss * static_cast<float>(found.losses);
}

void Archive::NoteLoss(std::uint64_t hash) {
    const auto there = byHash.find(hash);
    if (there != byHash.end()) {
        ++founds[there->second].losses;
    }
}

Found& Archive::PickPromising(Dice& dice) {
    Found* best = nullptr;
    float least = 0.0f;
    for (Found& found : founds) {
        const float blur = static_cast<float>(-std::log(1.0 - dice.Unit())) * 25.0f;
        const float standing =
            Standing(found) + perTryInRegion * static_cast<float>(triesInRegion[found.regionHash]) +
            blur;
        if (best == nullptr || standing < least) {
            best = &found;
            least = standing;
        }
    }
    return *best;
}

Found& Archive::PickRare(Dice& dice) {
    Found* best = nullptr;
    double most = 0.0;
    for (Found& found : founds) {
        const double weight = 1.0 / ((1.0 + found.tries + 2.0 * found.losses) *
                                     (1.0 + triesInRegion[found.regionHash]));
        // The largest of these is drawn in proportion to its weight.
        const double draw = std::pow(std::max(dice.Unit(), 1.0e-9), 1.0 / (weight * 1000.0));
        if (best == nullptr || draw > most) {
            best = &found;
            most = draw;
        }
    }
    return *best;
}

Found& Archive::Pick(Dice& dice) {
    Found& found = dice.Unit() < shareOfRare ? PickRare(dice) : PickPromising(dice);
    ++found.tries;
    ++triesInRegion[found.regionHash];
    return found;
}

void Archive::Remove(std::size_t index) {
    worlds.Drop(founds[index].world);
    byHash.erase(founds[index].hash);
    if (index + 1 != founds.size()) {
        founds[index] = std::move(founds.back());
        byHash[founds[index].hash] = index;
    }
    founds.pop_back();
}

void Archive::MakeRoom(std::size_t wanted) {
    while (!founds.empty() && worlds.Room() < wanted) {
        std::size_t worst = 0;
        float most = -1.0f;
        for (std::size_t i = 0; i < founds.size(); ++i) {
            const float standing = Standing(founds[i]);
            if (standing > most) {
                most = standing;
                worst = i;
            }
        }
        Remove(worst);
    }
}

void Archive::DropLaterThan(std::uint32_t elapsedMs) {
    for (std::size_t i = founds.size(); i-- > 0;) {
        if (founds[i].elapsedMs >= elapsedMs) {
            Remove(i);
        }
    }
}
