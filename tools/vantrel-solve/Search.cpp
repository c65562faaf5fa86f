// Rounds of moves on copies of the game; see Search.h.

#include "Search.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>

#include "Archive.h"
#include "ProgressLine.h"
#include "game/RunRecorder.h"

namespace {

volatile std::sig_atomic_t interrupted = 0;

/// The first interrupt ends the search, for as long as this lives.
class InterruptEndsSearch {
public:
    InterruptEndsSearch() {
        struct sigaction action {};
        action.sa_handler = [](int) { interrupted = 1; };
        interrupted = 0;
        sigaction(SIGINT, &action, &beforeInt);
        sigaction(SIGTERM, &action, &beforeTerm);
    }
    ~InterruptEndsSearch() {
        sigaction(SIGINT, &beforeInt, nullptr);
        sigaction(SIGTERM, &beforeTerm, nullptr);
    }
    InterruptEndsSearch(const InterruptEndsSearch&) = delete;
    InterruptEndsSearch& operator=(const InterruptEndsSearch&) = delete;

private:
    struct sigaction beforeInt {};
    struct sigaction beforeTerm {};
};

/// Moves are planned and judged in rounds of this many, so that the order in which processes
/// finish makes no difference.
constexpr std::size_t movesPerRound = 24;

struct Try {
    Copies::Number from = Copies::none;
    std::uint64_t kind = 0;  ///< of the situation that it goes on from
    std::shared_ptr<const Leg> way;
    Move move;
    Copies::Number copy = Copies::none;
};

class Searcher {
public:
    Searcher(const SearchSettings& chosen, HeadlessGame& game, SearchResult& into)
        : settings(chosen),
          result(into),
          copies(chosen.room, chosen.leastWater),
          dice(chosen.seed),
          line(chosen.seconds) {
        first = copies.StartFirst(game);
    }

    bool IsReady() const { return first != Copies::none; }
    /// Made after the first copy, which it isn't copied into.
    void Run(const FlowMap& map);

private:
    std::shared_ptr<const Leg> LegOf(const Outcome& outcome,
                                     std::shared_ptr<const Leg> before) const;
    Move ChooseMove(const Found& from);
    void PlayRound(Archive& archive);
    void PlayAll(std::vector<Try>& tries);
    void Judge(Archive& archive, Try& played);
    void KeepIfBest(const Outcome& outcome, float distance, std::shared_ptr<const Leg> way);
    std::string Describe(const Archive& archive) const;
    std::vector<RunStep> StepsOf(const Leg* leg) const;

    const SearchSettings& settings;
    SearchResult& result;
    Copies copies;
    Dice dice;
    ProgressLine line;
    Copies::Number first = Copies::none;
    std::shared_ptr<const Leg> bestWay;
};

std::shared_ptr<const Leg> Searcher::LegOf(const Outcome& outcome,
                                           std::shared_ptr<const Leg> before) const {
    Leg leg{std::move(before), {}};
    leg.steps.assign(outcome.steps.begin(), outcome.steps.begin() + outcome.stepCount);
    return std::make_shared<const Leg>(std::move(leg));
}

std::vector<RunStep> Searcher::StepsOf(const Leg* leg) const {
    std::vector<const Leg*> legs;
    for (; leg != nullptr; leg = leg->before.get()) {
        legs.push_back(leg);
    }
    std::vector<RunStep> steps;
    for (auto it = legs.rbegin(); it != legs.rend(); ++it) {
        steps.insert(steps.end(), (*it)->steps.begin(), (*it)->steps.end());
    }
    return steps;
}

Move Searcher::ChooseMove(const Found& from) {
    // Beyond 60 degrees the view stops: a key held down. Full tilts are the commonest.
    constexpr std::array<float, 12> angles{-66, -66, -45, -30, -16, -7, 0, 7, 16, 30, 45, 66};
    constexpr std::array<std::uint32_t, 6> lengths{16, 30, 45, 45, 75, 125};
    Move move;
    const std::uint32_t pick = dice.Below(angles.size() + 4);
    if (pick < angles.size()) {
        move.angle = angles[pick];
    } else {
        move.angle = pick < angles.size() + 2 ? from.angle : 66.0f * (pick % 2 == 0 ? 1.0f : -1.0f);
    }
    move.frames = lengths[dice.Below(lengths.size())];
    return move;
}

void Searcher::PlayAll(std::vector<Try>& tries) {
    std::size_t next = 0;
    std::size_t running = 0;
    while ((next < tries.size() && interrupted == 0) || running > 0) {
        while (next < tries.size() && running < settings.processes && interrupted == 0) {
            Try& attempt = tries[next++];
            attempt.copy = copies.Start(attempt.from, attempt.move);
            running += attempt.copy != Copies::none ? 1 : 0;
        }
        if (running > 0 && copies.Wait() != Copies::none) {
            --running;
        }
    }
}

void Searcher::KeepIfBest(const Outcome& outcome, float distance, std::shared_ptr<const Leg> way) {
    bool better = false;
    if (outcome.finished) {
        better = !result.wins || outcome.alive > result.water ||
                 (outcome.alive == result.water && outcome.elapsedMs < result.elapsedMs);
    } else {
        better = !result.wins && (bestWay == nullptr || distance < result.distance);
    }
    if (better) {
        result.wins = outcome.finished;
        result.water = outcome.alive;
        result.elapsedMs = outcome.elapsedMs;
        result.distance = distance;
        bestWay = std::move(way);
    }
}

void Searcher::Judge(Archive& archive, Try& played) {
    if (played.copy == Copies::none) {
        return;
    }
    ++result.moves;
    const Outcome& outcome = copies.Of(played.copy);
    if (outcome.lost) {
        archive.NoteLoss(played.kind);
        copies.Drop(played.copy);
        return;
    }
    std::shared_ptr<const Leg> way = LegOf(outcome, played.way);
    KeepIfBest(outcome, archive.Describe(played.copy).distance, way);
    const bool late = result.wins && outcome.elapsedMs >= result.elapsedMs;
    if (outcome.finished || late) {
        copies.Drop(played.copy);
    } else {
        archive.Take(played.copy, std::move(way));
    }
}

void Searcher::PlayRound(Archive& archive) {
    archive.MakeRoom(movesPerRound);
    std::vector<Try> tries;
    for (std::size_t i = 0; i < movesPerRound; ++i) {
        const Found& from = archive.Pick(dice);
        tries.push_back({from.copy, from.kind, from.way, ChooseMove(from)});
    }
    PlayAll(tries);
    for (Try& played : tries) {
        Judge(archive, played);
    }
}

std::string Searcher::Describe(const Archive& archive) const {
    char text[120];
    if (result.wins) {
        std::snprintf(text, sizeof(text), "won with %u in %.1f s; %llu moves", result.water,
                      result.elapsedMs * 0.001, static_cast<unsigned long long>(result.moves));
    } else {
        std::snprintf(text, sizeof(text), "%.0f to go; %zu places, %llu moves",
                      static_cast<double>(archive.Nearest()), archive.Count(),
                      static_cast<unsigned long long>(result.moves));
    }
    return text;
}

void Searcher::Run(const FlowMap& map) {
    const InterruptEndsSearch guard;
    Archive archive(copies, map, settings.leastWater);
    std::shared_ptr<const Leg> opening = LegOf(copies.Of(first), nullptr);
    bestWay = opening;
    result.distance = archive.Describe(first).distance;
    archive.Take(first, std::move(opening));
    while (interrupted == 0 && line.Seconds() < settings.seconds && !archive.IsEmpty() &&
           (!result.wins || settings.improve)) {
        PlayRound(archive);
        if (result.wins) {
            archive.DropLaterThan(result.elapsedMs);
        }
        line.Show(Describe(archive));
    }
    result.run.steps = StepsOf(bestWay.get());
    result.seconds = line.Seconds();
}

}  // namespace

SearchResult Search(const SearchSettings& settings) {
    SearchResult result;
    HeadlessGame game(settings.windowWidth, settings.windowHeight);
    RunRecorder::Record("");
    if (!game.Start(settings.level)) {
        result.failure =
            "cannot load level '" + settings.level + "': " + HeadlessGame::LastReason();
        return result;
    }
    result.run = RunRecorder::Current();
    Switches::Collect();
    Searcher searcher(settings, game, result);
    if (!searcher.IsReady()) {
        result.failure = "cannot start copies of the game";
        return result;
    }
    const FlowMap map;
    if (!map.HasFinish()) {
        result.failure = "level '" + settings.level + "' has no finish that water can reach";
        return result;
    }
    searcher.Run(map);
    return result;
}
