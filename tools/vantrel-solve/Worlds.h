#pragma once
// The worlds that a search has reached and goes on from, each with what the move that led there
// came to. A move is played in a copy of the world that it begins in, many moves at once on
// threads.

#include <cstdint>
#include <memory>
#include <vector>

#include "Playing.h"

class Worlds {
public:
    /// A world's number, below `capacity`.
    using Number = std::uint32_t;
    static constexpr Number none = 0xffffffff;
    static constexpr unsigned mostThreads = 64;

    struct PlannedMove {
        Number from = none;
        Move move;
        Number world = none;  ///< that played it; none if it wasn't played
    };

    /// Room for so many worlds of the level in play, where moves are played on so many threads, at
    /// least 1 and at most `mostThreads`.
    Worlds(PlayRules common, Number capacity, unsigned threads);

    /// The first: a copy of the world in play, flown in. None if the flight never ends.
    Number StartFirst();
    /// Plays all of them, those without room excepted; after an interrupt only those that have
    /// begun. What each leads to doesn't depend on the threads.
    void Play(std::vector<PlannedMove>& moves);
    const Outcome& Of(Number world) const { return situations[world]->outcome; }
    void Drop(Number world) { unused.push_back(world); }
    /// How many more worlds there is room for.
    std::size_t Room() const { return unused.size(); }
    const PlayRules& Rules() const { return rules; }

private:
    void PlayOne(Number from, const Move& move, Number to, WorldWorkspace& work);

    const PlayRules rules;
    std::vector<std::unique_ptr<WorldWorkspace>> workspaces;  ///< one for each thread
    /// By number. One that is dropped keeps its memory for the next that gets its number.
    std::vector<std::unique_ptr<Situation>> situations;
    std::vector<Number> unused;
};
