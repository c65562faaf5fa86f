#pragma once
// Situations and the moves between them, and from which of them the finish can be reached. A
// situation is settled, and then all that look like it count as one; or it is on the move, and
// then it is a stage of the one move that led there.

#include <cstdint>
#include <unordered_map>
#include <vector>

#include "Path.h"
#include "StuckPlace.h"
#include "Worlds.h"

class StuckGraph {
public:
    using Index = std::uint32_t;
    static constexpr Index none = 0xffffffff;

    struct Node {
        bool IsJudged() const { return hard >= wanted; }

        StuckPlace at;
        Worlds::Number world = Worlds::none;
        Path path;                 ///< to `at`, when it was first seen
        Path worldPath;            ///< to the world, which may have come later
        bool good = false;         ///< moves lead from here to a good end
        bool leaves = false;       ///< moves lead from here to rest well away from here
        std::uint32_t tries = 0;   ///< moves that began here
        std::uint32_t hard = 0;    ///< of these, moves of the second part of the hunt
        std::uint32_t wanted = 0;  ///< hard moves in vain after which it is judged
        std::uint32_t visits = 0;  ///< moves that ended here
        std::vector<Index> before;
        std::vector<Index> after;
    };

    explicit StuckGraph(Worlds& where) : worlds(where) {}

    /// A move led from `from` (none: the start) to the world's situation, in all on this path. The
    /// world is kept if the situation is new, or, if it is in doubt, by `wantsLater`, which meets
    /// what goes to and fro at other moments; else it is dropped. The situation, or none if that
    /// is on the move and only looks like another one.
    Index Take(Index from, Worlds::Number world, const StuckPlace& at, Path path, bool wantsLater);
    /// Moves lead from here to a good end, and so they do from wherever it is reached.
    void MarkGood(Index which);
    /// Brings `leaves` up to date.
    void NoteLeaving();
    /// Drops worlds until there is room for so many more: of good situations first, those that
    /// were tried most.
    void MakeRoom(std::size_t wanted);

    std::vector<Node> nodes;

private:
    void Link(Index from, Index to);
    bool Leaves(Index from) const;

    Worlds& worlds;
    std::unordered_map<std::uint64_t, Index> byHash;
};
