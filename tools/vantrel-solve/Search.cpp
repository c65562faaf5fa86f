// Rounds of moves on copies of the game; see Search.h.

#include "Search.h"

#include <algorithm>
#include <cstdio>

#include "Archive.h"
#include "Opening.h"
#include "ProgressLine.h"
#include "Rounds.h"
#include "game/RunRecorder.h"

namespace {

/// What a move goes on from.
struct Origin {
    std::uint64_t kind = 0;
    Way way;
};

class Searcher {
public:
    Searcher(const SearchSettings& chosen, HeadlessGame& game, SearchResult& into)
        : settings(chosen),
          result(into),
          copies(chosen.room, chosen.leastWater),
          dice(chosen.seed),
          line(chosen.seconds) {
        result.run = RunRecorder::Current();
        first = copies.StartFirst(game);
    }

    bool IsReady() const { return first != Copies::none; }
    /// Made after the first copy, which it isn't copied into.
    void Run(const FlowMap& map);

private:
    Move ChooseMove(const Found& from);
    void PlayRound(Archive& archive);
    void Judge(Archive& archive, Copies::Number copy, const Origin& from);
    void KeepIfBest(const Outcome& outcome, float distance, Way way);
    std::string Describe(const Archive& archive) const;

    const SearchSettings& settings;
    SearchResult& result;
    Copies copies;
    Dice dice;
    ProgressLine line;
    Copies::Number first = Copies::none;
    Way bestWay;
};

Move Searcher::ChooseMove(const Found& from) {
    using Opening::angles;
    using Opening::lengths;
    Move move;
    // Full tilts are the commonest.
    const std::uint32_t pick = dice.Below(angles.size() + 4);
    if (pick < angles.size()) {
        move.angle = angles[pick];
    } else {
        move.angle = pick < angles.size() + 2 ? from.angle : 66.0f * (pick % 2 == 0 ? 1.0f : -1.0f);
    }
    move.frames = lengths[dice.Below(lengths.size())];
    return move;
}

void Searcher::KeepIfBest(const Outcome& outcome, float distance, Way way) {
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

void Searcher::Judge(Archive& archive, Copies::Number copy, const Origin& from) {
    if (copy == Copies::none) {
        return;
    }
    ++result.moves;
    const Outcome& outcome = copies.Of(copy);
    if (outcome.lost) {
        archive.NoteLoss(from.kind);
        copies.Drop(copy);
        return;
    }
    Way way = Extend(from.way, outcome);
    KeepIfBest(outcome, archive.Describe(copy).distance, way);
    const bool late = result.wins && outcome.elapsedMs >= result.elapsedMs;
    if (outcome.finished || late) {
        copies.Drop(copy);
    } else {
        archive.Take(copy, std::move(way));
    }
}

void Searcher::PlayRound(Archive& archive) {
    archive.MakeRoom(Rounds::movesPerRound);
    std::vector<Rounds::Planned> moves;
    std::vector<Origin> origins;
    for (std::size_t i = 0; i < Rounds::movesPerRound; ++i) {
        const Found& from = archive.Pick(dice);
        moves.push_back({from.copy, ChooseMove(from)});
        origins.push_back({from.kind, from.way});
    }
    Rounds::Play(copies, moves, settings.processes);
    for (std::size_t i = 0; i < moves.size(); ++i) {
        Judge(archive, moves[i].copy, origins[i]);
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
    const Rounds::InterruptEndsSearch guard;
    Archive archive(copies, map, settings.leastWater);
    Way opening = Extend(nullptr, copies.Of(first));
    bestWay = opening;
    result.distance = archive.Describe(first).distance;
    archive.Take(first, std::move(opening));
    while (!Rounds::IsInterrupted() && line.Seconds() < settings.seconds && !archive.IsEmpty() &&
           (!result.wins || settings.improve)) {
        PlayRound(archive);
        if (result.wins) {
            archive.DropLaterThan(result.elapsedMs);
        }
        line.Show(Describe(archive));
    }
    result.run.steps = StepsOf(bestWay);
    result.seconds = line.Seconds();
}

}  // namespace

SearchResult Search(const SearchSettings& settings) {
    SearchResult result;
    result.failure = Opening::RunOnLevel<Searcher>(settings, result);
    return result;
}
