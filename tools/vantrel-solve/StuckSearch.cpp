// Exploring and judging on copies of the game; see StuckSearch.h.

#include "StuckSearch.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <unordered_map>

#include "Dice.h"
#include "ProgressLine.h"
#include "Rounds.h"
#include "StuckGraph.h"
#include "StuckPlace.h"
#include "game/RunRecorder.h"

namespace {

using Index = StuckGraph::Index;
using Node = StuckGraph::Node;

/// Of the time, for exploring.
constexpr double shareOfExploring = 0.5;
/// After so many moves without a new place of rest, and two more for each situation, there is
/// nothing left to explore.
constexpr std::uint64_t movesWithoutNews = 120;
/// Moves in vain for a place before it is reported.
constexpr std::uint32_t wantedForPlace = 120;
/// More moves at a time for each of its situations.
constexpr std::uint32_t wantedMore = 8;
/// Of the picks while exploring: towards the finish until it is reached, then in doubt.
constexpr double shareTowards = 0.4;
/// What a try costs a situation in the race to the finish, world units.
constexpr float perTry = 8.0f;
/// Frames in which water comes to rest, if it ever does.
constexpr std::uint32_t settleFrames = 320;

// Beyond 60 degrees the view stops: a key held down.
constexpr std::array<float, 12> angles{-66, -66, -45, -30, -16, -7, 0, 7, 16, 30, 45, 66};
constexpr std::array<std::uint32_t, 6> lengths{16, 30, 45, 45, 75, 125};
/// Long enough for a lift to come and go.
constexpr std::array<std::uint32_t, 3> waits{375, 500, 750};

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
    Index Keep(const StuckPlaces& places, Index from, Copies::Number copy, Way way);
    void FollowScript(const StuckPlaces& places);
    void Explore(const StuckPlaces& places);
    void Judge(const StuckPlaces& places);
    void PlayHardRound(const StuckPlaces& places);
    bool WantMore();
    void TakeNearestForFinish();
    Index PickTowards();
    Index PickRare(bool inDoubt);
    Index PickToExplore();
    Index PickToJudge() const;
    Move ChooseMove();
    Move ChooseHardMove(const Node& from);
    void PlayRound(const StuckPlaces& places, const std::vector<Index>& from,
                   std::vector<Rounds::Planned>& moves);
    bool HasTime(double share) const {
        return !Rounds::IsInterrupted() && line.Seconds() < settings.seconds * share;
    }
    void ShowProgress(const char* doing, const char* counted, std::size_t count);

    const SearchSettings& settings;
    StuckResult& result;
    Copies copies;
    Dice dice;
    ProgressLine line;
    StuckGraph graph;
    Copies::Number first = Copies::none;
    std::unordered_map<std::uint64_t, std::uint32_t> triesInRegion;
    std::uint64_t lastNews = 0;  ///< how many moves had been played then
};

Index Hunter::PickTowards() {
    Index best = StuckGraph::none;
    float least = 0.0f;
    for (Index i = 0; i < graph.nodes.size(); ++i) {
        const Node& node = graph.nodes[i];
        const float blur = static_cast<float>(-std::log(1.0 - dice.Unit())) * 25.0f;
        const float standing = node.at.distance + perTry * static_cast<float>(node.tries) + blur;
        if (node.copy != Copies::none && (best == StuckGraph::none || standing < least)) {
            best = i;
            least = standing;
        }
    }
    return best;
}

/// By chance, in inverse proportion to the tries; none if there is none in doubt.
Index Hunter::PickRare(bool inDoubt) {
    Index best = StuckGraph::none;
    double least = 0.0;
    for (Index i = 0; i < graph.nodes.size(); ++i) {
        const Node& node = graph.nodes[i];
        if (node.copy == Copies::none || (inDoubt && node.good)) {
            continue;
        }
        // The smallest of these is drawn in proportion to its weight.
        const double draw = -std::log(1.0 - dice.Unit()) * (1.0 + node.tries) *
                            (1.0 + triesInRegion[node.at.region]);
        if (best == StuckGraph::none || draw < least) {
            best = i;
            least = draw;
        }
    }
    return best;
}

Index Hunter::PickToExplore() {
    const bool special = dice.Unit() < shareTowards;
    Index pick = StuckGraph::none;
    if (special) {
        pick = result.report.finishReached ? PickRare(true) : PickTowards();
    }
    return pick != StuckGraph::none ? pick : PickRare(false);
}

/// The one of those that lead nowhere that was tried least, for its kind; none when all were
/// tried enough.
Index Hunter::PickToJudge() const {
    // A stage of a move needs fewer tries than settled water.
    const auto done = [](const Node& node) { return node.hard * (node.at.settled ? 1u : 5u); };
    Index best = StuckGraph::none;
    for (Index i = 0; i < graph.nodes.size(); ++i) {
        const Node& node = graph.nodes[i];
        const bool inDoubt = node.copy != Copies::none && !node.good && !node.IsJudged();
        if (inDoubt && (best == StuckGraph::none || done(node) < done(graph.nodes[best]))) {
            best = i;
        }
    }
    return best;
}

Move Hunter::ChooseMove() {
    Move move;
    move.angle = angles[dice.Below(angles.size())];
    move.frames = lengths[dice.Below(lengths.size())];
    move.settle = dice.Below(2) == 0 ? settleFrames : 0;
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

Index Hunter::Keep(const StuckPlaces& places, Index from, Copies::Number copy, Way way) {
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
    const Index index = graph.Take(from, copy, at, std::move(way));
    if (graph.nodes.size() > before && at.settled) {
        lastNews = result.report.moves;
    }
    return index;
}

/// Follows the script from the start, if there is one, and keeps the situations on its way.
void Hunter::FollowScript(const StuckPlaces& places) {
    constexpr std::uint32_t framesApart = 45;
    Way way = Extend(nullptr, copies.Of(first));
    std::uint32_t step = copies.Of(first).stepCount;
    Index from = StuckGraph::none;
    Copies::Number copy = first;
    while (copy != Copies::none) {
        std::vector<Rounds::Planned> next;
        const Outcome& outcome = copies.Of(copy);
        if (step < Playing::script.size() && !outcome.finished && !outcome.lost) {
            next.push_back({copy, {0.0f, framesApart, 0, step}});
            Rounds::Play(copies, next, 1);
            ++result.report.moves;
        }
        const Index kept = Keep(places, from, copy, way);
        from = kept != StuckGraph::none ? kept : from;
        copy = next.empty() ? Copies::none : next.front().copy;
        if (copy != Copies::none) {
            step += copies.Of(copy).stepCount;
            way = Extend(std::move(way), copies.Of(copy));
        }
    }
}

void Hunter::PlayRound(const StuckPlaces& places, const std::vector<Index>& from,
                       std::vector<Rounds::Planned>& moves) {
    Rounds::Play(copies, moves, settings.processes);
    for (std::size_t i = 0; i < moves.size(); ++i) {
        const Copies::Number copy = moves[i].copy;
        if (copy == Copies::none) {
            continue;
        }
        ++result.report.moves;
        Keep(places, from[i], copy, Extend(graph.nodes[from[i]].way, copies.Of(copy)));
    }
}

void Hunter::Explore(const StuckPlaces& places) {
    while (HasTime(shareOfExploring) &&
           result.report.moves - lastNews < movesWithoutNews + 2 * graph.nodes.size()) {
        graph.MakeRoom(Rounds::movesPerRound);
        std::vector<Index> from;
        std::vector<Rounds::Planned> moves;
        for (std::size_t i = 0; i < Rounds::movesPerRound; ++i) {
            from.push_back(PickToExplore());
            Node& node = graph.nodes[from.back()];
            ++node.tries;
            ++triesInRegion[node.at.region];
            moves.push_back({node.copy, ChooseMove()});
        }
        PlayRound(places, from, moves);
        ShowProgress("exploring", "situations", graph.nodes.size());
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
            PlayHardRound(places);
        }
        goesOn = HasTime(1.0) && WantMore();
    }
}

void Hunter::PlayHardRound(const StuckPlaces& places) {
    graph.MakeRoom(Rounds::movesPerRound);
    std::vector<Index> from;
    std::vector<Rounds::Planned> moves;
    while (from.size() < Rounds::movesPerRound && PickToJudge() != StuckGraph::none) {
        from.push_back(PickToJudge());
        Node& node = graph.nodes[from.back()];
        moves.push_back({node.copy, ChooseHardMove(node)});
        ++node.tries;
        ++node.hard;
    }
    PlayRound(places, from, moves);
    const auto inDoubt =
        std::count_if(graph.nodes.begin(), graph.nodes.end(),
                      [](const Node& node) { return !node.good && node.at.settled; });
    ShowProgress("judging", "in doubt", static_cast<std::size_t>(inDoubt));
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

void Hunter::ShowProgress(const char* doing, const char* counted, std::size_t count) {
    char text[120];
    std::snprintf(text, sizeof(text), "%s: %zu %s, %llu moves%s", doing, count, counted,
                  static_cast<unsigned long long>(result.report.moves),
                  result.report.finishReached ? "" : ", no finish yet");
    line.Show(text);
}

void Hunter::Run(const FlowMap& map) {
    const Rounds::InterruptEndsSearch guard;
    const StuckPlaces places(map);
    FollowScript(places);
    Explore(places);
    if (!result.report.finishReached) {
        TakeNearestForFinish();
    }
    Judge(places);
    ReadGraph(graph, result.report);
    const std::vector<StuckFinding>& found = result.report.found;
    result.run.steps = StepsOf(graph.nodes[found.empty() ? 0 : found.front().nodes.front()].way);
    result.seconds = line.Seconds();
}

}  // namespace

StuckResult HuntStuck(const SearchSettings& settings, std::vector<RunStep> script) {
    StuckResult result;
    HeadlessGame game(settings.windowWidth, settings.windowHeight);
    result.failure = Playing::Begin(game, settings.level);
    if (!result.failure.empty()) {
        return result;
    }
    result.run = RunRecorder::Current();
    Playing::script = std::move(script);
    Hunter hunter(settings, game, result);
    if (!hunter.IsReady()) {
        result.failure = "cannot start copies of the game";
        return result;
    }
    const FlowMap map;
    if (!map.HasFinish()) {
        result.failure = "level '" + settings.level + "' has no finish that water can reach";
        return result;
    }
    hunter.Run(map);
    return result;
}
