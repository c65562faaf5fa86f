#pragma once
// Values found by ids that are never reused: the id of a removed value finds nothing.

#include <cstdint>
#include <optional>
#include <vector>

namespace Platform {

template <class T>
class Slots {
public:
    /// The new value's id; never 0.
    std::uint64_t Add(T value) {
        if (freeSlots.empty()) {
            slots.emplace_back();
            freeSlots.push_back(static_cast<std::uint32_t>(slots.size()));
        }
        const std::uint32_t number = freeSlots.back();
        freeSlots.pop_back();
        Slot& slot = slots[number - 1];
        slot.value = std::move(value);
        return std::uint64_t{slot.generation} << 32 | number;
    }
    void Remove(std::uint64_t id) {
        if (Find(id) == nullptr) {
            return;
        }
        const auto number = static_cast<std::uint32_t>(id);
        slots[number - 1].value.reset();
        ++slots[number - 1].generation;
        freeSlots.push_back(number);
    }
    T* Find(std::uint64_t id) {
        const auto number = static_cast<std::uint32_t>(id);
        if (number == 0 || number > slots.size()) {
            return nullptr;
        }
        Slot& slot = slots[number - 1];
        return slot.value && slot.generation == id >> 32 ? &*slot.value : nullptr;
    }
    template <class Visit>
    void ForEach(Visit visit) {
        for (Slot& slot : slots) {
            if (slot.value) {
                visit(*slot.value);
            }
        }
    }
    void Clear() {
        for (std::uint32_t i = 0; i < slots.size(); ++i) {
            Remove(std::uint64_t{slots[i].generation} << 32 | (i + 1));
        }
    }

private:
    struct Slot {
        std::optional<T> value;
        std::uint32_t generation = 0;
    };
    std::vector<Slot> slots;
    std::vector<std::uint32_t> freeSlots;  // numbers, from 1
};

}  // namespace Platform
