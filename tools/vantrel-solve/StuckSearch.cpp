// Exploring and judging by moves in worlds; see StuckSearch.h.

#include "StuckSearch.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <unordered_map>

#include "Dice.h"
#include "Interrupt.h"
#include "ProgressLine.h"
#include "SearchSetup.h"
#include "StuckGraph.h"
#include "StuckPlace.h"
#include "Worlds.h"

namespace {

using Index = StuckGraph::Index;
using Node = StuckGraph::Node;

/// Planned and judged together, so that the order in which they are done makes no difference.
constexpr std::size_t movesPerBatch = 24;
/// Of the time, for exploring.
constexpr double shareOfExploring = 0.4;
/// After so many moves without a new place of rest, and two more for each situation, there is
/// nothing left to explore.
constexpr std::uint64_t movesWithoutNews = 120;
/// Moves in vain for a place before it is reported.
constexpr std::uint32_t wantedForPlace = 120;
/// More moves at a time for each of its situations.
constexpr std::uint32_t wantedMore = 8;
/// Of the picks: towards the finish, among those that nothing leads there from.
constexpr double shareTowards = 0.4;
/// What a try costs a situation in the race to the finish, world units.
constexpr float perTry = 8.0f;
/// Frames in which water comes to rest, if it ever does.
constexpr std::uint32_t settleFrames = 320;

/// Long enough for a lift to come and go.
constexpr std::array<std::uint32_t, 3> waits{375, 500, 750};

/// What a move goes on from.
struct Origin {
    Index node = StuckGraph::none;
    Path path;
};

class Hunter {
public:
    Hunter(const SearchSettings& chosen, PlayRules rules, StuckResult& into)
        : settings(chosen),
          result(into),
          worlds(std::move(rules), chosen.room, chosen.jobs),
          first(worlds.StartFirst()),
          dice(chosen.seed),
          line(chosen.seconds),
          graph(worlds) {}

    bool IsReady() const { return first != Worlds::none; }
    void Run(const FlowMap& map);

private:
    Index Keep(const StuckPlaces& places, Index from, Worlds::Number world, Path path);
    void FollowScript(const StuckPlaces& places);
    void Explore(const StuckPlaces& places);
    void Judge(const StuckPlaces& places);
    void PlayHardBatch(const StuckPlaces& places);
    bool WantMore();
    void TakeNearestForFinish();
    Index PickTowards();
    Index PickRare();
    Index PickToExplore();
    Index PickToJudge() const;
    Move ChooseMove();
    Move ChooseHardMove(const Node& from);
    void Plan(Index from, const Move& move);
    void PlayBatch(const StuckPlaces& places);
    bool HasTime(double share) const {
        return !IsInterrupted() && line.Seconds() < settings.seconds * share;
    }
    void ShowProgress(const std::string& text);

    const SearchSettings& settings;
    StuckResult& result;
    Worlds worlds;
    const Worlds::Number first;
    Dice dice;
    ProgressLine line;
    StuckGraph graph;
    std::unordered_map<std::uint64_t, std::uint32_t> triesInRegion;
    std::vector<Origin> origins;  ///< of the batch's moves
    std::vector<Worlds::PlannedMove> moves;
    std::uint64_t lastNews = 0;  ///< how many moves had been played then
};

Index Hunter::PickTowards() {
    Index best = StuckGraph::none;
    float least = 0.0f;
    for (Index i = 0; i < graph.nodes.size(); ++i) {
        const Node& node = graph.nodes[i];
        const float blur = static_cast<float>(-std::log(1.0 - dice.Unit())) * 25.0f;
        const float standing = node.at.distance + perTry * static_cast<float>(node.tries) + blur;
        const bool inDoubt = node.world != Worlds::none && !node.good;
        if (inDoubt && (best == StuckGraph::none || standing < least)) {
            best = i;
            least = standing;
        }
    }
    return best;
}

/// By chance, in inverse proportion to the tries.
Index Hunter::PickRare() {
    Index best = StuckGraph::none;
    double least = 0.0;
    for (Index i = 0; i < graph.nodes.size(); ++i) {
        const Node& node = graph.nodes[i];
        if (node.world == Worlds::none) {
            continue;
        }
        // The smallest of these is drawn in proportion to its weight.
        const double draw = -std::log(1.0 - dice.Unit()) * (1.0 + node.tries) *
                            (1.0 + triesInRegion[node.at.regionHash]);
        if (best == StuckGraph::none || draw < least) {
            best = i;
            least = draw;
        }
    }
    return best;
}

Index Hunter::PickToExplore() {
    const Index pick = dice.Unit() < shareTowards ? PickTowards() : StuckGraph::none;
    return pick != StuckGraph::none ? pick : PickRare();
}

/// The one of those that lead nowhere that was tried least, for its kind; none when all were
/// tried enough. Places that nothing leaves come first: there a pocket may be.
Index Hunter::PickToJudge() const {
    const auto order = [](const Node& node) {
        return (node.leaves ? 1000000u : 0u) + node.hard * (node.at.settled ? 1u : 5u);
    };
    Index best = StuckGraph::none;
    for (Index i = 0; i < graph.nodes.size(); ++i) {
        const Node& node = graph.nodes[i];
        const bool inDoubt = node.world != Worlds::none && !node.good && !node.IsJudged();
        if (inDoubt && (best == StuckGraph::none || order(node) < order(graph.nodes[best]))) {
            best = i;
        }
    }
    return best;
}

Move Hunter::ChooseMove() {
    Move move;
    move.angle = SearchSetup::angles[dice.Below(SearchSetup::angles.size())];
    move.frames = SearchSetup::lengths[dice.Below(SearchSetup::lengths.size())];
    move.settle = dice.Below(3) != 0 ? settleFrames : 0;
    if (dice.Below(16) == 0) {
        move.frames = waits[dice.Below(waits.size())];
        move.settle = 0;
    }
    return move;
}

/// First what is likeliest to help: wait for it, tilt fully, let go, and all that for long.
Move Hunter::ChooseHardMove(const Node& from) {
    constexpr std::array<Move, 6> firstOfAll{{{66, 60, settleFrames},
                                              {-66, 60, settleFrames},
                                              {0, 60, settleFrames},
                                              {66, 500, 0},
                                              {-66, 500, 0},
                                              {0, 750, 0}}};
    if (!from.at.settled) {
        return from.hard == 0 ? Move{from.at.angle, 16, settleFrames} : ChooseMove();
    }
    if (from.hard < firstOfAll.size()) {
        return firstOfAll[from.hard];
    }
    Move move = ChooseMove();
    if (dice.Below(6) == 0) {
        move.frames = waits[dice.Below(waits.size())];
        move.settle = 0;
    }
    return move;
}

Index Hunter::Keep(const StuckPlaces& places, Index from, Worlds::Number world, Path path) {
    const Outcome& outcome = worlds.Of(world);
    if (outcome.finished) {
        result.report.finishReached = true;
        graph.MarkGood(from);
    }
    if (outcome.finished || outcome.drops.empty()) {
        worlds.Drop(world);
        return StuckGraph::none;
    }
    const std::size_t before = graph.nodes.size();
    const StuckPlace at = places.Read(outcome);
    const Index index = graph.Take(from, world, at, std::move(path), dice.Below(3) == 0);
    if (graph.nodes.size() > before && at.settled) {
        lastNews = result.report.moves;
    }
    return index;
}

/// Follows the script from the start, if there is one, and keeps the situations on its path.
void Hunter::FollowScript(const StuckPlaces& places) {
    constexpr std::uint32_t framesApart = 45;
    Path path = Extend(nullptr, worlds.Of(first));
    auto step = static_cast<std::uint32_t>(worlds.Of(first).steps.size());
    Index from = StuckGraph::none;
    Worlds::Number world = first;
    while (world != Worlds::none) {
        std::vector<Worlds::PlannedMove> next;
        const Outcome& outcome = worlds.Of(world);
        if (step < worlds.Rules().script.size() && !outcome.finished) {
            next.push_back({world, {0.0f, framesApart, 0, step}});
            worlds.Play(next);
            ++result.report.moves;
        }
        const Index kept = Keep(places, from, world, path);
        from = kept != StuckGraph::none ? kept : from;
        world = next.empty() ? Worlds::none : next.front().world;
        if (world != Worlds::none) {
            step += static_cast<std::uint32_t>(worlds.Of(world).steps.size());
            path = Extend(std::move(path), worlds.Of(world));
        }
    }
}

void Hunter::Plan(Index from, const Move& move) {
    Node& node = graph.nodes[from];
    ++node.tries;
    ++triesInRegion[node.at.regionHash];
    origins.push_back({from, node.worldPath});
    moves.push_back({node.world, move});
}

/// Plays what was planned.
void Hunter::PlayBatch(const StuckPlaces& places) {
    worlds.Play(moves);
    for (std::size_t i = 0; i < moves.size(); ++i) {
        const Worlds::Number world = moves[i].world;
        if (world != Worlds::none) {
            ++result.report.moves;
            Keep(places, origins[i].node, world, Extend(origins[i].path, worlds.Of(world)));
        }
    }
    origins.clear();
    moves.clear();
}

void Hunter::Explore(const StuckPlaces& places) {
    while (HasTime(shareOfExploring) &&
           result.report.moves - lastNews < movesWithoutNews + 2 * graph.nodes.size()) {
        graph.MakeRoom(movesPerBatch);
        for (std::size_t i = 0; i < movesPerBatch; ++i) {
            const Index from = PickToExplore();
            Plan(from, ChooseMove());
        }
        PlayBatch(places);
        ShowProgress("exploring: " + std::to_string(graph.nodes.size()) + " situations");
    }
}

void Hunter::TakeNearestForFinish() {
    Index nearest = 0;
    for (Index i = 0; i < graph.nodes.size(); ++i) {
        nearest = graph.nodes[i].at.distance < graph.nodes[nearest].at.distance ? i : nearest;
    }
    result.report.nearest = graph.nodes[nearest].at.place;
    graph.MarkGood(nearest);
}

void Hunter::Judge(const StuckPlaces& places) {
    bool goesOn = true;
    while (goesOn) {
        while (HasTime(1.0) && PickToJudge() != StuckGraph::none) {
            PlayHardBatch(places);
        }
        goesOn = HasTime(1.0) && WantMore();
    }
}

void Hunter::PlayHardBatch(const StuckPlaces& places) {
    graph.MakeRoom(movesPerBatch);
    graph.NoteLeaving();
    while (moves.size() < movesPerBatch) {
        const Index next = PickToJudge();
        if (next == StuckGraph::none) {
            break;
        }
        // A path on from near the finish is one for all that lead there.
        const bool towards = graph.nodes[next].leaves && dice.Unit() < shareTowards;
        const Index from = towards ? PickTowards() : next;
        const Move move = ChooseHardMove(graph.nodes[from]);
        ++graph.nodes[from].hard;
        Plan(from, move);
    }
    PlayBatch(places);
    std::size_t inDoubt = 0;
    std::size_t leaving = 0;
    for (const Node& node : graph.nodes) {
        inDoubt += !node.good && node.at.settled ? 1 : 0;
        leaving += !node.good && node.leaves ? 1 : 0;
    }
    ShowProgress("judging: " + std::to_string(inDoubt - leaving) + " lead nowhere, " +
                 std::to_string(leaving) + " not to the finish");
}

/// Has places of few situations tried more; false if all were tried enough.
bool Hunter::WantMore() {
    bool wantsMore = false;
    for (const StuckFinding& finding : FindStuck(graph)) {
        for (const Index index : finding.nodes) {
            Node& node = graph.nodes[index];
            if (finding.movesInVain < wantedForPlace && node.world != Worlds::none) {
                node.wanted = node.hard + wantedMore;
                wantsMore = true;
            }
        }
    }
    return wantsMore;
}

void Hunter::ShowProgress(const std::string& text) {
    line.Show(text + ", " + std::to_string(result.report.moves) + " moves" +
              (result.report.finishReached ? "" : ", no finish yet"));
}

void Hunter::Run(const FlowMap& map) {
    const InterruptEndsSearch guard;
    const StuckPlaces places(map);
    line.Restart();  // The map of a large level takes seconds.
    FollowScript(places);
    Explore(places);
    if (!result.report.finishReached) {
        TakeNearestForFinish();
    }
    Judge(places);
    ReadGraph(graph, result.report);
    const std::vector<StuckFinding>& found = result.report.found;
    for (const StuckFinding& finding : found) {
        result.runs.push_back(worlds.Rules().start);
        result.runs.back().steps = StepsOf(graph.nodes[finding.nodes.front()].path);
    }
    result.seconds = line.Seconds();
}

}  // namespace

StuckResult HuntStuck(const SearchSettings& settings, std::vector<RunStep> script) {
    StuckResult result;
    result.failure =
        SearchSetup::RunOnLevel<Hunter>(settings, PlayRules{.script = std::move(script)}, result);
    return result;
}
