#pragma once
// What the hunt for stuck water found, joined to places and put in words.

#include <cstddef>
#include <string>
#include <vector>

#include "StuckGraph.h"

struct StuckFinding {
    std::vector<StuckGraph::Index> nodes;  ///< its situations, the most visited first
    std::uint32_t movesInVain = 0;
};

struct StuckReport {
    std::vector<StuckFinding> found;  ///< most moves in vain first
    std::vector<std::string> lines;   ///< one for each
    std::size_t situations = 0;
    /// Situations that lead nowhere yet and were tried too little.
    std::size_t unjudged = 0;
    /// Those that lead well away, but not to the finish yet.
    std::size_t unfinished = 0;
    std::uint64_t moves = 0;
    bool finishReached = false;
    Vector2 nearest;  ///< if it wasn't: the place nearest to it, which was taken for it
};

/// The places that the graph has so far.
std::vector<StuckFinding> FindStuck(const StuckGraph& graph);
/// Fills in what the graph says.
void ReadGraph(const StuckGraph& graph, StuckReport& report);
/// All of the report, lines ended by '\n'.
std::string Text(const StuckReport& report);
