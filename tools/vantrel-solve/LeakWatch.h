#pragma once
// Watches the running game for water that leaves the space it can reach, and counts each drop
// once. What fades away is passed over, and of a lump of ice its middle counts: its drops
// don't collide until it thaws.

#include <cstdint>
#include <unordered_set>

#include "LeakSpace.h"
#include "Playing.h"

class LeakWatch {
public:
    /// `of` must outlive this.
    explicit LeakWatch(const LeakSpace& of) : space(of) {}
    /// After each frame: adds what has leaked since the last call.
    void Look(Outcome& outcome);

private:
    void Add(const void* who, Vector2 from, std::size_t drops, Outcome& outcome);

    const LeakSpace& space;
    std::unordered_set<const void*> outside;  ///< drops and lumps, by address
    std::unordered_set<const void*> before;   ///< the same at the last look
};
