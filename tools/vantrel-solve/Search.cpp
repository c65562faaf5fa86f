// Batches of moves in worlds; see Search.h.

#include "Search.h"

#include <algorithm>
#include <cstdio>

#include "Archive.h"
#include "Interrupt.h"
#include "ProgressLine.h"
#include "SearchSetup.h"
#include "Worlds.h"

namespace {

/// Moves are planned and judged in batches, so that the order in which they are done makes no
/// difference. Small ones know more of what came before; threads beyond this many have nothing to
/// do.
constexpr std::size_t movesPerBatch = 8;

/// What a move goes on from.
struct Origin {
    std::uint64_t hash = 0;
    Path path;
};

class Searcher {
public:
    Searcher(const SearchSettings& chosen, PlayRules rules, SearchResult& into)
        : settings(chosen),
          result(into),
          line(chosen.seconds),
          worlds(std::move(rules), chosen.room, chosen.jobs),
          first(worlds.StartFirst()),
          dice(chosen.seed) {}

    bool IsReady() const { return first != Worlds::none; }
    void Run(const FlowMap& map);

private:
    Move ChooseMove(const Found& from);
    void PlayBatch(Archive& archive);
    void Judge(Archive& archive, Worlds::Number world, const Origin& from);
    void KeepIfBest(const Outcome& outcome, float distance, Path path);
    std::string Describe(const Archive& archive) const;

    const SearchSettings& settings;
    SearchResult& result;
    ProgressLine line;
    Worlds worlds;
    const Worlds::Number first;
    Dice dice;
    Path bestPath;
};

Move Searcher::ChooseMove(const Found& from) {
    using SearchSetup::angles;
    using SearchSetup::lengths;
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

void Searcher::KeepIfBest(const Outcome& outcome, float distance, Path path) {
    bool better = false;
    if (outcome.finished) {
        better = !result.wins || outcome.Alive() > result.water ||
                 (outcome.Alive() == result.water && outcome.elapsedMs < result.elapsedMs);
    } else {
        better = !result.wins && (bestPath == nullptr || distance < result.distance);
    }
    if (better) {
        result.wins = outcome.finished;
        result.water = outcome.Alive();
        result.elapsedMs = outcome.elapsedMs;
        result.distance = distance;
        bestPath = std::move(path);
    }
}

void Searcher::Judge(Archive& archive, Worlds::Number world, const Origin& from) {
    if (world == Worlds::none) {
        return;
    }
    ++result.moves;
    const Outcome& outcome = worlds.Of(world);
    if (outcome.lost) {
        archive.NoteLoss(from.hash);
        worlds.Drop(world);
        return;
    }
    Path path = Extend(from.path, outcome);
    KeepIfBest(outcome, archive.Describe(world).distance, path);
    const bool late = result.wins && outcome.elapsedMs >= result.elapsedMs;
    if (outcome.finished || late) {
        worlds.Drop(world);
    } else {
        archive.Take(world, std::move(path));
    }
}

void Searcher::PlayBatch(Archive& archive) {
    archive.MakeRoom(movesPerBatch);
    std::vector<Worlds::PlannedMove> moves;
    std::vector<Origin> origins;
    for (std::size_t i = 0; i < movesPerBatch; ++i) {
        const Found& from = archive.Pick(dice);
        moves.push_back({from.world, ChooseMove(from)});
        origins.push_back({from.hash, from.path});
    }
    worlds.Play(moves);
    for (std::size_t i = 0; i < moves.size(); ++i) {
        Judge(archive, moves[i].world, origins[i]);
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
    Archive archive(worlds, map, settings.leastWater);
    Path opening = Extend(nullptr, worlds.Of(first));
    bestPath = opening;
    result.distance = archive.Describe(first).distance;
    archive.Take(first, std::move(opening));
    while (!IsInterrupted() && line.Seconds() < settings.seconds && !archive.IsEmpty() &&
           (!result.wins || settings.improve)) {
        PlayBatch(archive);
        if (result.wins) {
            archive.DropLaterThan(result.elapsedMs);
        }
        line.Show(Describe(archive));
    }
    result.run = worlds.Rules().start;
    result.run.steps = StepsOf(bestPath);
    result.seconds = line.Seconds();
}

}  // namespace

SearchResult Search(const SearchSettings& settings) {
    SearchResult result;
    result.failure = SearchSetup::RunOnLevel<Searcher>(
        settings, PlayRules{.leastWater = settings.leastWater}, result);
    return result;
}
