#pragma once
// The interrupt that ends a search between its moves.

#include <csignal>

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

/// On any thread.
bool IsInterrupted();
