#include "level/BspCellSteps.h"

#include <vector>

namespace {

using BspGrid::Box;
using BspGrid::grid;
using BspGrid::radius;

constexpr std::uint32_t always = 0xffffffff;

/// A node that circles of the box visit if they visit `parent` and reach to that side of its line.
struct Visit {
    const BspSegment* node;
    std::uint32_t parent;  ///< its place among the visits, or `always`
    bool inFront;
    bool isNeeded = false;
    std::uint32_t step = 0;  ///< its place among those that are needed
};

struct Range {
    float low;
    float high;
};

/// The range over the box of positions along `axis`, from the node's start on. Each step of
/// the sum is monotone in the coordinates, rounding included, so the corners bound it exactly.
Range Positions(const BspSegment& node, Vector2 axis, const Box& box) {
    const bool right = axis.x >= 0.0f;
    const bool down = axis.y >= 0.0f;
    const Vector2 low{right ? box.minX : box.maxX, down ? box.minY : box.maxY};
    const Vector2 high{right ? box.maxX : box.minX, down ? box.maxY : box.minY};
    return {Dot(low - node.start, axis), Dot(high - node.start, axis)};
}

/// Whether a circle in the box can be beside the segment or near its ends, given that it can
/// be near its line.
bool IsCandidate(const BspSegment& segment, const Box& box) {
    const Range along = Positions(segment, segment.direction, box);
    return !(along.high < -radius) && !(along.low > segment.length + radius);
}

std::uint32_t NumberOf(const BspSegment& node) {
    return static_cast<std::uint32_t>(&node - grid.nodes.data());
}

/// All that may be visited, parents first; needed are those that can be touched.
void FindVisits(const Box& box, std::vector<Visit>& visits) {
    thread_local std::vector<Visit> open;
    visits.clear();
    open.assign(1, {&grid.nodes.front(), always, false});
    while (!open.empty()) {
        Visit visit = open.back();
        open.pop_back();
        const BspSegment* const node = visit.node;
        if (!node || !grid.reach[NumberOf(*node)].Overlaps(box)) {
            continue;
        }
        const Range distances = Positions(*node, node->normal, box);
        const bool canBeBehind = !(distances.low >= radius);
        const bool canBeInFront = !(distances.high < -radius);
        visit.isNeeded = canBeBehind && canBeInFront && IsCandidate(*node, box);
        const auto place = static_cast<std::uint32_t>(visits.size());
        visits.push_back(visit);
        // A line that lets all circles through decides nothing.
        if (canBeInFront) {
            open.push_back(distances.low >= -radius
                               ? Visit{node->frontChild, visit.parent, visit.inFront}
                               : Visit{node->frontChild, place, true});
        }
        if (canBeBehind) {
            open.push_back(distances.high < radius
                               ? Visit{node->backChild, visit.parent, visit.inFront}
                               : Visit{node->backChild, place, false});
        }
    }
}

}  // namespace

std::span<const BspGrid::Step> BspGrid::FindSteps(const Box& box) {
    thread_local std::vector<Visit> visits;
    thread_local std::vector<Step> steps;
    FindVisits(box, visits);
    for (std::size_t i = visits.size(); i-- > 0;) {
        if (visits[i].isNeeded && visits[i].parent != always) {
            visits[visits[i].parent].isNeeded = true;
        }
    }
    steps.clear();
    for (Visit& visit : visits) {
        if (visit.isNeeded) {
            visit.step = static_cast<std::uint32_t>(steps.size());
            steps.push_back({NumberOf(*visit.node),
                             visit.parent == always
                                 ? 0
                                 : 2 * visits[visit.parent].step + (visit.inFront ? 2 : 1)});
        }
    }
    return steps;
}
