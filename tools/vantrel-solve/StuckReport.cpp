// Which situations are traps and which only lead there; see StuckReport.h.

#include "StuckReport.h"

#include <algorithm>
#include <cstdio>
#include <numeric>

namespace {

using Index = StuckGraph::Index;
using Node = StuckGraph::Node;

/// Findings of the same matter that are nearer than this are one, world units.
constexpr float joined = 60.0f;

bool IsStuck(const Node& node) {
    return !node.good && node.at.settled && node.IsJudged();
}

/// Which of the situations that lead nowhere can be reached from this one.
std::vector<bool> ReachOf(const StuckGraph& graph, Index from) {
    std::vector<bool> reached(graph.nodes.size(), false);
    std::vector<Index> waiting{from};
    reached[from] = true;
    while (!waiting.empty()) {
        const Node& node = graph.nodes[waiting.back()];
        waiting.pop_back();
        for (const Index next : node.after) {
            if (!reached[next]) {
                reached[next] = true;
                waiting.push_back(next);
            }
        }
    }
    return reached;
}

/// Those that can be come back to from wherever they lead: the rest only leads to a trap.
std::vector<Index> FindTraps(const StuckGraph& graph) {
    std::vector<Index> stuck;
    std::vector<std::vector<bool>> reach;
    for (Index i = 0; i < graph.nodes.size(); ++i) {
        if (IsStuck(graph.nodes[i])) {
            stuck.push_back(i);
            reach.push_back(ReachOf(graph, i));
        }
    }
    std::vector<Index> traps;
    for (std::size_t a = 0; a < stuck.size(); ++a) {
        bool isTrap = true;
        for (std::size_t b = 0; b < stuck.size() && isTrap; ++b) {
            isTrap = !reach[a][stuck[b]] || reach[b][stuck[a]];
        }
        if (isTrap) {
            traps.push_back(stuck[a]);
        }
    }
    return traps;
}

/// For each trap the first one of its place.
std::vector<std::size_t> JoinNear(const StuckGraph& graph, const std::vector<Index>& traps) {
    std::vector<std::size_t> first(traps.size());
    std::iota(first.begin(), first.end(), std::size_t{0});
    const auto root = [&first](std::size_t i) {
        while (first[i] != i) {
            i = first[i];
        }
        return i;
    };
    for (std::size_t a = 0; a < traps.size(); ++a) {
        for (std::size_t b = 0; b < a; ++b) {
            const StuckPlace& here = graph.nodes[traps[a]].at;
            const StuckPlace& there = graph.nodes[traps[b]].at;
            if (here.matter == there.matter && Distance(here.place, there.place) < joined) {
                const std::size_t one = root(a);
                const std::size_t other = root(b);
                first[std::max(one, other)] = std::min(one, other);
            }
        }
    }
    for (std::size_t i = 0; i < first.size(); ++i) {
        first[i] = root(i);
    }
    return first;
}

std::string FiredText(const StuckPlace& at) {
    std::string text;
    for (const std::uint32_t trigger : at.fired) {
        text += text.empty() ? "" : " ";
        text += std::to_string(trigger);
    }
    return text.empty() ? "none" : text;
}

std::string Line(const StuckFinding& finding, const StuckPlace& at) {
    constexpr const char* matters[] = {"water", "steam", "ice"};
    char where[160];
    std::snprintf(where, sizeof(where), "stuck? near (%.0f, %.0f), state %s, ",
                  static_cast<double>(at.place.x), static_cast<double>(at.place.y),
                  matters[static_cast<std::size_t>(at.matter)]);
    char how[160];
    std::snprintf(how, sizeof(how), ", after %.1f seconds: %u of %u drops, %u moves in vain",
                  at.elapsedMs * 0.001, at.near, at.alive, finding.movesInVain);
    return std::string(where) + "triggers fired: " + FiredText(at) + how;
}

}  // namespace

std::vector<StuckFinding> FindStuck(const StuckGraph& graph) {
    const std::vector<Index> traps = FindTraps(graph);
    const std::vector<std::size_t> first = JoinNear(graph, traps);
    std::vector<StuckFinding> findings(traps.size());
    for (std::size_t i = 0; i < traps.size(); ++i) {
        StuckFinding& finding = findings[first[i]];
        finding.nodes.push_back(traps[i]);
        finding.movesInVain += graph.nodes[traps[i]].tries;
    }
    std::erase_if(findings, [](const StuckFinding& one) { return one.nodes.empty(); });
    for (StuckFinding& finding : findings) {
        std::stable_sort(finding.nodes.begin(), finding.nodes.end(), [&](Index a, Index b) {
            return graph.nodes[a].visits > graph.nodes[b].visits;
        });
    }
    std::stable_sort(
        findings.begin(), findings.end(),
        [](const StuckFinding& a, const StuckFinding& b) { return a.movesInVain > b.movesInVain; });
    return findings;
}

void ReadGraph(const StuckGraph& graph, StuckReport& report) {
    report.situations = graph.nodes.size();
    for (const Node& node : graph.nodes) {
        const bool isOpen = !node.good && node.at.settled && !node.IsJudged();
        report.unjudged += isOpen && !node.leaves ? 1 : 0;
        report.unfinished += isOpen && node.leaves ? 1 : 0;
    }
    report.found = FindStuck(graph);
    for (const StuckFinding& finding : report.found) {
        report.lines.push_back(Line(finding, graph.nodes[finding.nodes.front()].at));
    }
}

std::string Text(const StuckReport& report) {
    std::string text;
    for (const std::string& line : report.lines) {
        text += line + "\n";
    }
    char end[240];
    if (!report.finishReached) {
        std::snprintf(end, sizeof(end),
                      "the finish was not reached; the way to (%.0f, %.0f), nearest to it, "
                      "counted instead\n",
                      static_cast<double>(report.nearest.x), static_cast<double>(report.nearest.y));
        text += end;
    }
    if (report.unjudged != 0) {
        std::snprintf(end, sizeof(end),
                      "situations that lead nowhere yet: %zu; give it more time\n",
                      report.unjudged);
        text += end;
    }
    if (report.unfinished != 0) {
        std::snprintf(end, sizeof(end),
                      "situations that lead elsewhere, but not to the finish yet: %zu\n",
                      report.unfinished);
        text += end;
    }
    std::snprintf(
        end, sizeof(end), "places where water may be stuck: %zu; situations: %zu, moves: %llu\n",
        report.found.size(), report.situations, static_cast<unsigned long long>(report.moves));
    return text + end;
}
