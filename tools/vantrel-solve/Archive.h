#pragma once
// What the search has reached: for each situation the best world that got there. Situations are
// kept apart by place, state of matter, water left and what was set off, so that the search spreads
// instead of crowding at one obstacle.

#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

#include "Dice.h"
#include "FlowMap.h"
#include "Path.h"
#include "Worlds.h"

/// One situation and its world.
struct Found {
    Worlds::Number world = Worlds::none;
    Path path;
    float distance = 0.0f;  ///< FlowMap's, over all the water
    std::uint32_t alive = 0;
    std::uint32_t elapsedMs = 0;
    float angle = 0.0f;
    std::uint64_t hash = 0;        ///< SituationHash of what makes it a situation of its own
    std::uint64_t regionHash = 0;  ///< the same, much coarser
    std::uint32_t tries = 0;       ///< moves that began here
    std::uint32_t losses = 0;      ///< of these, moves that lost water for good
};

class Archive {
public:
    /// `least`: with less water than this nothing is kept.
    Archive(Worlds& where, const FlowMap& flowMap, std::uint32_t least)
        : worlds(where), map(flowMap), leastWater(least) {}

    /// Keeps the world if its situation is new or it is better than the one that was there;
    /// drops whichever isn't kept. True if kept.
    bool Take(Worlds::Number world, Path path);
    /// The next to go on from; there must be one. Counts the try.
    Found& Pick(Dice& dice);
    /// A move from the situation of this hash lost too much water.
    void NoteLoss(std::uint64_t hash);
    /// Makes room for so many more worlds by dropping the least promising.
    void MakeRoom(std::size_t wanted);
    /// Drops what can't beat a run of this length any more.
    void DropLaterThan(std::uint32_t elapsedMs);

    bool IsEmpty() const { return founds.empty(); }
    std::size_t Count() const { return founds.size(); }
    /// Least distance so far.
    float Nearest() const { return nearest; }
    Found Describe(Worlds::Number world) const;

private:
    float Cost(const Found& found) const;
    float Standing(const Found& found) const;
    float DistanceOf(const Outcome& outcome) const;
    Found& PickPromising(Dice& dice);
    Found& PickRare(Dice& dice);
    void Remove(std::size_t index);

    Worlds& worlds;
    const FlowMap& map;
    std::vector<Found> founds;
    std::unordered_map<std::uint64_t, std::size_t> byHash;
    std::unordered_map<std::uint64_t, std::uint32_t> triesInRegion;
    std::uint32_t leastWater;
    float nearest = 1.0e9f;
    float farthest = 0.0f;  ///< distance of the first situation
};
