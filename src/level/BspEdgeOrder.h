#pragma once
// The order in which trees of boxes hold their edges: what is near in place is near in the list.

#include <cstddef>
#include <span>

#include "level/BspEdgeReach.h"

namespace BspEdgeOrder {

struct Item {
    BspEdgeReach reach;
    std::size_t number = 0;
};

/// Sorts by halving along the longer side of each part, down to parts of `leafSize`. Of each
/// part the first half is filled first; `room` is how many items it has place for, a power of
/// two times `leafSize` and no less than there are.
void Sort(std::span<Item> items, std::size_t room, std::size_t leafSize);

}  // namespace BspEdgeOrder
