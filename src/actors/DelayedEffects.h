#pragma once
// Effects of triggers that wait for their delay. A repeating trigger fires for all the water in
// it, in every step; what it fires in one step is kept in two entries at most: the first firing,
// and the last with the number of all that followed the first. That is all that the order of
// effects comes to: what a repeating effect sets, its last call in a step sets again; what it
// begins, its first call begins; and what it counts, it counts.

#include <cstddef>
#include <cstdint>
#include <map>
#include <span>
#include <vector>

#include "engine/StateFold.h"

class DelayedEffects {
public:
    /// Firings of one trigger in a row.
    struct Firing {
        std::uint32_t trigger;  ///< its place among the level's
        std::uint32_t order;    ///< among the firings of the step
        std::uint32_t times;
    };
    /// Firings whose time has come.
    struct Due {
        std::uint64_t step;
        float dt;  ///< of the step of firing, seconds
        Firing firing;
    };

    /// Ages what waits by a step of `dt` seconds, and puts that whose time has come into `due`, in
    /// the order of its firing.
    void Age(float dt, std::vector<Due>& due);
    /// Takes in what a trigger fired in a step of `dt` seconds; in ascending order. Beyond the
    /// limit of waiting effects firings are dropped.
    void Add(const Firing& firing, float delay, float dt);
    void Clear();
    /// Entries that wait: two at most for a trigger and a step.
    std::size_t Count() const { return waiting; }
    /// Firings were dropped since the last Clear.
    bool HasDropped() const { return hasDropped; }
    void AddTo(StateFold& fold) const;

private:
    /// A queue that keeps its storage.
    template <class T>
    class Fifo {
    public:
        bool IsEmpty() const { return head == items.size(); }
        T& Front() { return items[head]; }
        T& Back() { return items.back(); }
        std::span<T> All() { return std::span(items).subspan(head); }
        std::span<const T> All() const { return std::span(items).subspan(head); }
        void Push(const T& item) { items.push_back(item); }
        void Pop() {
            if (++head * 2 > items.size()) {
                items.erase(items.begin(), items.begin() + static_cast<std::ptrdiff_t>(head));
                head = 0;
            }
        }

    private:
        std::vector<T> items;
        std::size_t head = 0;
    };
    /// What fired in one step with one delay.
    struct Batch {
        std::uint64_t step;
        float dt;  // of that step, seconds
        std::uint32_t size;
    };
    /// All that waits for one delay: what fired earlier never has more time left.
    struct Line {
        Fifo<float> timeLeft;  // seconds, per batch
        Fifo<Batch> batches;
        Fifo<Firing> firings;
    };
    static void TakeDue(Line& line, std::vector<Due>& due);

    std::map<float, Line> lines;  // by delay
    std::uint64_t step = 0;
    std::size_t waiting = 0;
    bool hasDropped = false;
};
