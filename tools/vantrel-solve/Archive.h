#pragma once
// What the search has reached: for each situation the best copy of the game that got
// there. Situations are kept apart by place, state of matter, water left and what was set off,
// so that the search spreads instead of crowding at one obstacle.

#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

#include "Copies.h"
#include "Dice.h"
#include "FlowMap.h"
#include "Path.h"

/// One situation and its copy.
struct Found {
    Copies::Number copy = Copies::none;
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
    Archive(Copies& where, const FlowMap& flowMap, std::uint32_t least)
        : copies(where), map(flowMap), leastWater(least) {}

    /// Keeps the copy if its situation is new or it is better than the one that was there;
    /// drops whichever isn't kept. True if kept.
    bool Take(Copies::Number copy, Path path);
    /// The next to go on from; there must be one. Counts the try.
    Found& Pick(Dice& dice);
    /// A move from the situation of this hash lost too much water.
    void NoteLoss(std::uint64_t hash);
    /// Makes room for so many more copies by dropping the least promising.
    void MakeRoom(std::size_t wanted);
    /// Drops what can't beat a run of this length any more.
    void DropLaterThan(std::uint32_t elapsedMs);

    bool IsEmpty() const { return founds.empty(); }
    std::size_t Count() const { return founds.size(); }
    /// Least distance so far.
    float Nearest() const { return nearest; }
    Found Describe(Copies::Number copy) const;

private:
    float Cost(const Found& found) const;
    float Standing(const Found& found) const;
    float DistanceOf(const Outcome& outcome) const;
    Found& PickPromising(Dice& dice);
    Found& PickRare(Dice& dice);
    void Remove(std::size_t index);

    Copies& copies;
    const FlowMap& map;
    std::vector<Found> founds;
    std::unordered_map<std::uint64_t, std::size_t> byHash;
    std::unordered_map<std::uint64_t, std::uint32_t> triesInRegion;
    std::uint32_t leastWater;
    float nearest = 1.0e9f;
    float farthest = 0.0f;  ///< distance of the first situation
};
