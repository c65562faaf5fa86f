#pragma once
// Moves are planned and judged in batches, so that the order in which processes finish makes no
// difference; and the interrupt that ends a search between them.

#include <csignal>
#include <cstddef>
#include <vector>

#include "Copies.h"

namespace MoveBatch {

constexpr std::size_t movesPerBatch = 24;

struct PlannedMove {
    Copies::Number from = Copies::none;
    Move move;
    Copies::Number copy = Copies::none;  ///< that played it; none if it wasn't played
};

/// Plays all of them, so many at the same time; after an interrupt only those that have begun.
void Play(Copies& copies, std::vector<PlannedMove>& moves, unsigned processes);

/// The first interrupt (SIGINT, SIGTERM) ends the search, for as long as this lives.
class InterruptEndsSearch {
public:
    InterruptEndsSearch();
    ~InterruptEndsSearch();
    InterruptEndsSearch(const InterruptEndsSearch&) = delete;
    InterruptEndsSearch& operator=(const InterruptEndsSearch&) = delete;

private:
    struct sigaction beforeInt {};
    struct sigaction beforeTerm {};
};

bool IsInterrupted();

}  // namespace MoveBatch
