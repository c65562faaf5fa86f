// Copies worlds and plays moves in them on threads; see Worlds.h.

#include "Worlds.h"

#include <algorithm>
#include <functional>
#include <numeric>
#include <utility>

#include "Interrupt.h"
#include "ParallelFor.h"
#include "platform/Assert.h"

Worlds::Worlds(PlayRules common, Number capacity, unsigned threads)
    : rules(std::move(common)), situations(capacity) {
    VANTREL_ASSERT(threads >= 1 && threads <= mostThreads);
    for (unsigned i = 0; i < threads; ++i) {
        workspaces.push_back(std::make_unique<WorldWorkspace>());
    }
    for (Number i = capacity; i-- > 0;) {
        unused.push_back(i);
    }
}

Worlds::Number Worlds::StartFirst() {
    VANTREL_ASSERT(!unused.empty());
    const Number first = unused.back();
    situations[first] = std::make_unique<Situation>(Situation{CopyWorldInPlay(), {}, {}});
    if (!Playing::FlyIn(*situations[first], rules, *workspaces.front())) {
        return none;
    }
    unused.pop_back();
    return first;
}

void Worlds::PlayOne(Number from, const Move& move, Number to, WorldWorkspace& work) {
    std::unique_ptr<Situation>& situation = situations[to];
    if (situation == nullptr) {
        situation = std::make_unique<Situation>();
    }
    situation->world = situations[from]->world;
    situation->leaks = situations[from]->leaks;
    Playing::Play(*situation, move, rules, work);
}

void Worlds::Play(std::vector<PlannedMove>& moves) {
    // Numbers are given out here, in order, so that they don't depend on the threads.
    std::vector<Number> numbers;
    while (numbers.size() < moves.size() && !unused.empty()) {
        numbers.push_back(unused.back());
        unused.pop_back();
    }
    // The longest first: threads that have nothing left to do wait for a short one.
    std::vector<std::size_t> order(numbers.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::sort(order, std::greater<>(), [&](std::size_t i) { return moves[i].move.frames; });
    ParallelFor(order.size(), static_cast<unsigned>(workspaces.size()),
                [&](std::size_t place, unsigned thread) {
                    const std::size_t i = order[place];
                    if (!IsInterrupted()) {
                        PlayOne(moves[i].from, moves[i].move, numbers[i], *workspaces[thread]);
                        moves[i].world = numbers[i];
                    }
                });
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        if (moves[i].world == none) {
            Drop(numbers[i]);
        }
    }
}
