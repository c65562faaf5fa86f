#pragma once
// The search for a winning run: again and again it goes on from some situation in the archive
// with some tilt, and keeps what is worth keeping.

#include <cstdint>
#include <optional>
#include <string>

#include "game/RunFile.h"

struct SearchSettings {
    std::string level;       ///< name as the game loads it
    int windowWidth = 1280;  ///< what lies outside of the view stands still or is lost
    int windowHeight = 720;
    double seconds = 540.0;
    std::uint32_t leastWater = 90;  ///< particles that a win must bring home
    std::uint32_t seed = 1;
    unsigned jobs = 2;          ///< threads that play moves
    std::uint32_t room = 2500;  ///< worlds that are kept
    bool improve = false;       ///< goes on after the first win until the time is up
};

struct SearchResult {
    std::string failure;  ///< why there was no search; empty otherwise
    bool wins = false;
    Run run;  ///< the winning run, or the one that came nearest
    std::uint32_t water = 0;
    std::uint32_t elapsedMs = 0;
    float distance = 0.0f;  ///< still to go, if it doesn't win
    std::uint64_t moves = 0;
    double seconds = 0.0;
};

/// Searches until the first win, the end of time, or an interrupt (SIGINT, SIGTERM). For
/// a given seed the same moves are tried in the same order, whatever the number of threads.
SearchResult Search(const SearchSettings& settings);
