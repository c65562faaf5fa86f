#pragma once
// The one place where a module step's input comes from: the player, who may be recorded, or a
// recorded run. A run spans a level's life from its loading; loading it again begins a new one.
// While a run is recorded or replayed, play depends on nothing but its steps: the simulation
// sees the run's view whatever shape the window takes, and the level's time is the steps' sum.

#include <cstdint>
#include <string>

#include "game/RunFile.h"

namespace RunRecorder {

/// Records every level that begins from now on, until one is finished, and keeps the last that
/// was played in the file; an empty path keeps it in memory only. Call before the level begins.
/// False, and nothing is recorded, if no such file could be written.
bool Record(const std::string& path);
/// Replays the run on the next level that begins, if it is the run's.
void Replay(Run run);
/// Back to plain play, with nothing written.
void Stop();

/// Steps are recorded, so none may be longer than a run holds.
bool IsRecording();
/// A level that begins now is recorded.
bool WantsRecording();
/// Whether a recording was lost, since its file couldn't be written.
bool HasFailed();
/// A recorded step is next.
bool IsReplaying();
/// Whether the last replay came to another state than its run. Standard error and the console said
/// so at once, with the times between which the two part.
bool HasDiffered();
/// Any of the level's time came from a recorded run.
bool WasReplayed();
/// The run being recorded or replayed, or the last one. One that was replayed to its end has the
/// settings and hashes of this play, and no steps after a finish.
const Run& Current();

// What the game tells and asks.

/// Before the level is read, which may draw random numbers.
void LevelLoads(const std::string& name);
/// The level was read; before its water is made.
void LevelBegins(const std::string& name);
/// The level begins again: what was recorded or replayed of it is given up.
void GiveUp();
/// Of the replayed run.
const RunStep& NextStep();
/// Before the step is taken.
void StepBegins(const RunStep& step);
/// `isFinished`: the level was finished in it, and with it the run.
void StepEnds(bool isFinished);
/// The level goes: what was played of it is written.
void LevelEnds();

/// Whether the simulation sees the run's view now, and not the window's.
bool HoldsView();

}  // namespace RunRecorder
