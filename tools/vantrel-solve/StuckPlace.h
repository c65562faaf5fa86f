#pragma once
// Where water is, as the hunt for stuck water tells situations apart: by the drop that must
// still come for the level to end, by a drop well ahead, and by what may have shut for good.

#include <cstdint>
#include <vector>

#include "FlowMap.h"
#include "Outcome.h"

struct StuckPlace {
    Vector2 place;                  ///< of the last drop that the finish wants
    Matter matter = Matter::Water;  ///< of that drop
    std::uint32_t near = 0;         ///< drops that are with it
    std::uint32_t alive = 0;        ///< of so many
    float distance = 0.0f;          ///< FlowMap's, of that drop
    bool settled = false;           ///< Outcome's
    std::uint64_t hash = 0;         ///< SituationHash of what makes it a situation of its own
    std::uint64_t regionHash = 0;   ///< the same, much coarser
    std::vector<std::uint32_t> fired;
    std::uint32_t elapsedMs = 0;
    float angle = 0.0f;
};

class StuckPlaces {
public:
    /// Reads the loaded level and the settings. `flowMap` outlives this.
    explicit StuckPlaces(const FlowMap& flowMap);

    StuckPlace Read(const Outcome& outcome) const;

private:
    void FindDrops(const Outcome& outcome, StuckPlace& found, Vector2& ahead) const;
    Vector2 Within(Vector2 place) const;

    const FlowMap& map;
    float finishShare = 0.0f;  ///< of the drops that are alive
    Vector2 low;               ///< the level's bounds, and some way round them
    Vector2 high;
};
