// Copies worlds and plays moves in them on threads; see Worlds.h.

#include "Worlds.h"

#include <algorithm>
#include <atomic>
#include <functional>
#include <thread>
#include <utility>

#include "Interrupt.h"
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

void Worlds::PlayOne(const PlannedMove& planned, WorldWorkspace& work) {
    Situation& situation = *situations[planned.world];
    situation.world = situations[planned.from]->world;
    situation.leaks = situations[planned.from]->leaks;
    Playing::Play(situation, planned.move, rules, work);
}

void Worlds::Play(std::vector<PlannedMove>& moves) {
    for (PlannedMove& planned : moves) {
        if (unused.empty()) {
            break;
        }
        planned.world = unused.back();
        unused.pop_back();
        if (situations[planned.world] == nullptr) {
            situations[planned.world] = std::make_unique<Situation>();
        }
    }
    std::atomic<std::size_t> next{0};
    const auto playMoves = [&](WorldWorkspace& work) {
        while (!IsInterrupted()) {
            const std::size_t index = next++;
            if (index >= moves.size() || moves[index].world == none) {
                break;
            }
            PlayOne(moves[index], work);
        }
    };
    {
        std::vector<std::jthread> threads;
        for (std::size_t i = 1; i < std::min(workspaces.size(), moves.size()); ++i) {
            threads.emplace_back(playMoves, std::ref(*workspaces[i]));
        }
        playMoves(*workspaces.front());
    }
    // Moves begin in their order.
    for (std::size_t i = next; i < moves.size(); ++i) {
        if (moves[i].world != none) {
            Drop(std::exchange(moves[i].world, none));
        }
    }
}
