// Live, recorded and replayed input; see RunRecorder.h.

#include "game/RunRecorder.h"

#include <cinttypes>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <utility>

#include "engine/Console.h"
#include "engine/Random.h"
#include "game/Game.h"
#include "game/LevelProgress.h"
#include "game/Notice.h"
#include "game/RunSettings.h"
#include "game/StateHash.h"
#include "platform/Assert.h"
#include "platform/DataRoot.h"
#include "platform/Paths.h"
#include "platform/WholeFile.h"

namespace RunRecorder {

namespace {

enum class Mode { Live, Recording, Replaying };

Mode mode = Mode::Live;
bool wantsRecording = false;
std::string recordPath;
std::optional<Run> pendingRun;  // to be replayed on the next level
Run run;
std::size_t nextStep = 0;  // of a replayed run
bool isPlayed = false;     // the recorded run holds a step without menu and pause
bool wasReplayed = false;
bool isChecked = false;  // the level's file could be read for the run's checksum
bool isInStep = false;
bool hasFailed = false;
std::uint64_t endState = 0;            // hash of the level's last state
std::uint32_t stateBeforeLoading = 0;  // of the random numbers

std::uint32_t settings = 0;         // the checksum as the run begins
std::vector<std::uint64_t> hashes;  // of the states so far, as a run keeps them
double seconds = 0.0;               // of the run so far
double agreedSeconds = 0.0;         // when a replay was last in the state of its run
bool isCompared = false;            // a replay's states with those of its run
bool hasDiffered = false;

/// Whether a run may give that name to the file.
bool Names(const std::string& name, const std::filesystem::path& file) {
    const auto found = Platform::FindFile(name);
    std::error_code error;
    return found && std::filesystem::equivalent(*found, file, error);
}

/// The name that finds the level on any machine. One that lies where no run may look is named as
/// if it lay where levels lie.
std::string PortableName(const std::string& name) {
    const auto file = Platform::FindFile(name, Platform::NameSource::Person);
    if (!file) {
        return name;
    }
    std::string inFolder = "lev\\" + file->filename().string();
    if (Names(inFolder, *file)) {
        return inFolder;
    }
    std::error_code error;
    for (const auto& root : {std::filesystem::current_path(error), Platform::DataRoot()}) {
        std::string below = std::filesystem::relative(*file, root, error).string();
        if (Names(below, *file)) {
            return below;
        }
    }
    if (!recordPath.empty()) {
        Notice(
            "The recorded level lies outside of the game's directories: the run will look "
            "for it as '" +
            inFolder + "'");
    }
    return inFolder;
}

std::string EndText() {
    char text[32];
    std::snprintf(text, sizeof text, "%016" PRIx64, endState);
    return "; state at its end: " + std::string(text);
}

/// Gives the run what its play showed.
void KeepHashes() {
    run.settings = settings;
    run.hashKind = stateHashKind;
    run.hashes = hashes;
    run.hashes.push_back(endState);
}

void Write() {
    if (!isPlayed || recordPath.empty()) {
        return;
    }
    KeepHashes();
    // Without a checksum it could never be replayed, and isn't worth an older run.
    hasFailed = !isChecked || !WriteRun(recordPath, run);
    if (hasFailed) {
        Notice("Unable to write recorded run '" + recordPath + "'");
    } else {
        Console::Print("\nRecorded run written to '" + recordPath + "'" + EndText());
    }
}

void BackToLive() {
    mode = Mode::Live;
    LevelProgress::CountSteps(false);
}

void BeginHashes(const std::string& level, Platform::NameSource source) {
    settings = SettingsChecksum(level, source);
    hashes.clear();
    seconds = 0.0;
    isCompared = false;
}

void BeginRecording(const std::string& name) {
    mode = Mode::Recording;
    BeginHashes(name, Platform::NameSource::Person);
    run.level = PortableName(name);
    const auto checksum = LevelChecksum(name, Platform::NameSource::Person);
    isChecked = checksum.has_value();
    run.checksum = checksum.value_or(0);
    run.randomState = stateBeforeLoading;
    run.viewWidth = Game::ViewWidth();
    run.viewHeight = Game::ViewHeight();
    run.steps.clear();
    run.hashes.clear();
    isPlayed = false;
}

/// Whether the run has hashes that can be compared; says what is known to be different.
bool BeginComparing() {
    agreedSeconds = 0.0;
    hasDiffered = false;
    if (run.hashes.empty()) {
        return false;
    }
    if (run.settings != settings) {
        Notice("The run was recorded under other settings: it may go another way");
    }
    if (run.hashKind != stateHashKind) {
        Notice("The run's state hashes are of another kind: it is played without comparing");
        return false;
    }
    return true;
}

void BeginReplay() {
    mode = Mode::Replaying;
    run = std::move(*pendingRun);
    nextStep = 0;
    wasReplayed = true;
    BeginHashes(run.level, Platform::NameSource::Data);
    isCompared = BeginComparing();
}

/// With the next hash of the replayed run, which is a later state's if the level ended too early.
void Compare(std::uint64_t state) {
    if (!isCompared || hasDiffered) {
        return;
    }
    if (run.hashes[hashes.size()] == state) {
        agreedSeconds = seconds;
        return;
    }
    hasDiffered = true;
    char text[120];
    std::snprintf(text, sizeof text,
                  "The replay goes another way than the recorded run: they parted between %.1f s "
                  "and %.1f s",
                  agreedSeconds, seconds);
    Notice(text);
}

void TakeHash() {
    const std::uint64_t state = StateHash();
    Compare(state);
    hashes.push_back(state);
}

void EndReplay() {
    endState = StateHash();
    Compare(endState);
    run.steps.resize(nextStep);
    KeepHashes();
    Console::Print("\nReplay is over" + EndText());
}

bool IsPending(const std::string& level) {
    return pendingRun && pendingRun->level == level;
}

}  // namespace

bool Record(const std::string& path) {
    VANTREL_ASSERT(mode != Mode::Recording);
    if (!path.empty() && !Platform::CanWriteFile(path)) {
        return false;
    }
    wantsRecording = true;
    recordPath = path;
    return true;
}

void Replay(Run wanted) {
    VANTREL_ASSERT(wanted.hashes.empty() || wanted.hashes.size() == wanted.HashCount());
    pendingRun = std::move(wanted);
}

void Stop() {
    wantsRecording = false;
    recordPath.clear();
    pendingRun.reset();
    BackToLive();
}

bool IsRecording() {
    return mode == Mode::Recording;
}

bool WantsRecording() {
    return wantsRecording;
}

bool HasFailed() {
    return hasFailed;
}

bool IsReplaying() {
    return mode == Mode::Replaying && nextStep < run.steps.size();
}

bool HasDiffered() {
    return hasDiffered;
}

bool WasReplayed() {
    return wasReplayed;
}

const Run& Current() {
    return run;
}

void LevelLoads(const std::string& name) {
    if (IsPending(name)) {
        Random::state = pendingRun->randomState;
    }
    stateBeforeLoading = Random::state;
    if (mode == Mode::Recording) {
        endState = StateHash();
    }
}

void LevelBegins(const std::string& name) {
    if (mode == Mode::Recording) {
        Write();
    }
    mode = Mode::Live;
    wasReplayed = false;
    if (IsPending(name)) {
        BeginReplay();
    } else if (wantsRecording) {
        BeginRecording(name);
    }
    pendingRun.reset();
    LevelProgress::CountSteps(mode != Mode::Live);
}

void GiveUp() {
    wasReplayed = false;
    BackToLive();
}

const RunStep& NextStep() {
    VANTREL_ASSERT(IsReplaying());
    return run.steps[nextStep];
}

void StepBegins(const RunStep& step) {
    VANTREL_ASSERT(!isInStep);
    VANTREL_ASSERT(mode != Mode::Recording || step.dt <= RunStep::longest);
    isInStep = true;
    seconds += double{step.dt};
    if (mode == Mode::Recording) {
        run.steps.push_back(step);
        isPlayed = isPlayed || (step.flags & (RunStep::Menu | RunStep::Paused)) == 0;
    } else if (mode == Mode::Replaying) {
        ++nextStep;
    }
}

void StepEnds(bool isFinished) {
    VANTREL_ASSERT(isInStep);
    isInStep = false;
    const std::size_t steps = mode == Mode::Recording ? run.steps.size() : nextStep;
    if (mode != Mode::Live && steps % Run::stepsPerHash == 0) {
        TakeHash();
    }
    if (mode == Mode::Recording && isFinished) {
        LevelEnds();
        wantsRecording = false;
    } else if (mode == Mode::Replaying && (isFinished || nextStep >= run.steps.size())) {
        EndReplay();
        BackToLive();
    }
}

void LevelEnds() {
    if (mode == Mode::Recording) {
        endState = StateHash();
        Write();
    }
    BackToLive();
}

bool HoldsView() {
    return isInStep && mode != Mode::Live;
}

}  // namespace RunRecorder
