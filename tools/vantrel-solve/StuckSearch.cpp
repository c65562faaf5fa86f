// Exploring and judging on copies of the game; see StuckSearch.h.

#include "StuckSearch.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <unordered_map>

#include "Dice.h"
#include "MoveBatch.h"
#include "ProgressLine.h"
#include "SearchSetup.h"
#include "StuckGraph.h"
#include "StuckPlace.h"
#include "game/RunRecorder.h"

namespace {

using Index = StuckGraph::Index;
using Node = StuckGraph::Node;

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
    Hunter(const SearchSettings& chosen, HeadlessGame& game, StuckResult& into)
        : settings(chosen),
          result(into),
          copies(chosen.room, 0),
          dice(chosen.seed),
          line(chosen.seconds),
          graph(copies) {
        first = copies.StartFirst(game);
    }

    bool IsReady() const { return first != Copies::none; }
    /// Made after the first copy, which it isn't copied into.
    void Run(const FlowMap& map);

private:
    Index Keep(const StuckPlaces& places, Index from, Copies::Number copy, Path path);
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
        return !MoveBatch::IsInterrupted() && line.Seconds() < settings.seconds * share;
    }
    void ShowProgress(const std::string& text);

    const SearchSettings& settings;
    const ::Run start = RunRecorder::Current();
    StuckResult& result;
    Copies copies;
    Dice dice;
    ProgressLine line;
    StuckGraph graph;
    Copies::Number first = Copies::none;
    std::unordered_map<std::uint64_t, std::uint32_t> triesInRegion;
    std::vector<Origin> origins;  ///< of the batch's moves
    std::vector<MoveBatch::PlannedMove> moves;
    std::uint64_t lastNews = 0;  ///< how many moves had been played then
};

Index Hunter::PickTowards() {
    Index best = StuckGraph::none;
    float least = 0.0f;
    for (Index i = 0; i < graph.nodes.size(); ++i) {
        const Node& node = graph.nodes[i];
        const float blur = static_cast<float>(-std::log(1.0 - dice.Unit())) * 25.0f;
        const float standing = node.at.distance + perTry * static_cast<float>(node.tries) + blur;
        const bool inDoubt = node.copy != Copies::none && !node.good;
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
        if (node.copy == Copies::none) {
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
        const bool inDoubt = node.copy != Copies::none && !node.good && !node.IsJudged();
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

Index Hunter::Keep(const StuckPlaces& places, Index from, Copies::Number copy, Path path) {
    const Outcome& outcome = copies.Of(copy);
    if (outcome.finished) {
        result.report.finishReached = true;
        graph.MarkGood(from);
    }
    if (outcome.finished || outcome.lost || outcome.placeCount == 0) {
        copies.Drop(copy);
        return StuckGraph::none;
    }
    const std::size_t before = graph.nodes.size();
    const StuckPlace at = places.Read(outcome);
    const Index index = graph.Take(from, copy, at, std::move(path), dice.Below(3) == 0);
    if (graph.nodes.size() > before && at.settled) {
        lastNews = result.report.moves;
    }
    return index;
}

/// Follows the script from the start, if there is one, and keeps the situations on its path.
void Hunter::FollowScript(const StuckPlaces& places) {
    constexpr std::uint32_t framesApart = 45;
    Path path = Extend(nullptr, copies.Of(first));
    std::uint32_t step = copies.Of(first).stepCount;
    Index from = StuckGraph::none;
    Copies::Number copy = first;
    while (copy != Copies::none) {
        std::vector<MoveBatch::PlannedMove> next;
        const Outcome& outcome = copies.Of(copy);
        if (step < Playing::script.size() && !outcome.finished && !outcome.lost) {
            next.push_back({copy, {0.0f, framesApart, 0, step}});
            MoveBatch::Play(copies, next, 1);
            ++result.report.moves;
        }
        const Index kept = Keep(places, from, copy, path);
        from = kept != StuckGraph::none ? kept : from;
        copy = next.empty() ? Copies::none : next.front().copy;
        if (copy != Copies::none) {
            step += copies.Of(copy).stepCount;
            path = Extend(std::move(path), copies.Of(copy));
        }
    }
}

void Hunter::Plan(Index from, const Move& move) {
    Node& node = graph.nodes[from];
    ++node.tries;
    ++triesInRegion[node.at.regionHash];
    origins.push_back({from, node.copyPath});
    moves.push_back({node.copy, move});
}

/// Plays what was planned.
void Hunter::PlayBatch(const StuckPlaces& places) {
    MoveBatch::Play(copies, moves, settings.processes);
    for (std::size_t i = 0; i < moves.size(); ++i) {
        const Copies::Number copy = moves[i].copy;
        if (copy != Copies::none) {
            ++result.report.moves;
            Keep(places, origins[i].node, copy, Extend(origins[i].path, copies.Of(copy)));
        }
    }
    origins.clear();
    moves.clear();
}

void Hunter::Explore(const StuckPlaces& places) {
    while (HasTime(shareOfExploring) &&
           result.report.moves - lastNews < movesWithoutNews + 2 * graph.nodes.size()) {
        graph.MakeRoom(MoveBatch::movesPerBatch);
        for (std::size_t i = 0; i < MoveBatch::movesPerBatch; ++i) {
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
    graph.MakeRoom(MoveBatch::movesPerBatch);
    graph.NoteLeaving();
    while (moves.size() < MoveBatch::movesPerBatch) {
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
            if (finding.movesInVain < wantedForPlace && node.copy != Copies::none) {
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
    const MoveBatch::InterruptEndsSearch guard;
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
        result.runs.push_back(start);
        result.runs.back().steps = StepsOf(graph.nodes[finding.nodes.front()].path);
    }
    result.seconds = line.Seconds();
}

}  // namespace

StuckResult HuntStuck(const SearchSettings& settings, std::vector<RunStep> script) {
    StuckResult result;
    Playing::script = std::move(script);
    result.failure = SearchSetup::RunOnLevel<Hunter>(settings, result);
    return result;
}
