#pragma once
// Finds the things of one list that bear an id. Ids in a level aren't unique, and any number of
// movers and triggers may name the same one: they share one list per id, so that binding costs
// neither time nor memory for each pair. Things are named by their place in the list, which may
// only grow at its end between two Clears.

#include <cstdint>
#include <unordered_map>
#include <vector>

#include "platform/Assert.h"

/// Places of the things of an id that were there when this was bound; later ones aren't part of
/// it. Valid until the index is cleared.
class BoundTargets {
public:
    BoundTargets() = default;
    explicit BoundTargets(const std::vector<std::uint32_t>& places)
        : all(&places), bound(places.size()) {}

    auto begin() const { return Front(); }
    auto end() const { return Front() + bound; }
    std::size_t size() const { return bound; }

private:
    const std::uint32_t* Front() const { return all != nullptr ? all->data() : nullptr; }

    const std::vector<std::uint32_t>* all = nullptr;
    std::size_t bound = 0;
};

class IdIndex {
public:
    /// Takes in what was appended to `list` since the last call, then gives the things of `id`
    /// in list order.
    template <class List>
    BoundTargets Bind(const List& list, std::uint32_t id) {
        VANTREL_ASSERT(list.size() >= indexed);
        for (; indexed < list.size(); ++indexed) {
            places[list[indexed].id].push_back(static_cast<std::uint32_t>(indexed));
        }
        return BoundTargets(places[id]);
    }
    void Clear() {
        places.clear();
        indexed = 0;
    }

private:
    std::unordered_map<std::uint32_t, std::vector<std::uint32_t>> places;
    std::size_t indexed = 0;
};
