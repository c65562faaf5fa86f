#pragma once
// Finds the things of one list that bear an id. Ids in a level aren't unique, and any number of
// movers and triggers may name the same one: they share one list per id, so that binding costs
// neither time nor memory for each pair. Lists may only grow at their end between two Clears.

#include <cstdint>
#include <iterator>
#include <unordered_map>
#include <vector>

#include "platform/Assert.h"

/// The things of an id that were there when this was bound; later ones aren't part of it.
/// Valid until the index is cleared.
template <class T>
class BoundTargets {
public:
    BoundTargets() = default;
    explicit BoundTargets(const std::vector<T*>& things) : all(&things), bound(things.size()) {}

    auto begin() const { return Front(); }
    auto end() const { return Front() + bound; }
    std::size_t size() const { return bound; }

private:
    T* const* Front() const { return all != nullptr ? all->data() : nullptr; }

    const std::vector<T*>* all = nullptr;
    std::size_t bound = 0;
};

template <class T>
class IdIndex {
public:
    /// Takes in what was appended to `list` since the last call, then gives the things of `id`
    /// in list order.
    template <class List>
    BoundTargets<T> Bind(List& list, std::uint32_t id) {
        VANTREL_ASSERT(list.size() >= indexed);
        if (list.size() > indexed) {
            const auto fresh = static_cast<std::ptrdiff_t>(list.size() - indexed);
            for (auto it = std::prev(list.end(), fresh); it != list.end(); ++it) {
                things[it->id].push_back(&*it);
            }
            indexed = list.size();
        }
        return BoundTargets<T>(things[id]);
    }
    void Clear() {
        things.clear();
        indexed = 0;
    }

private:
    std::unordered_map<std::uint32_t, std::vector<T*>> things;
    std::size_t indexed = 0;
};
