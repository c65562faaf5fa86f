// The life of the level's tree, and the ray cast. All walks keep their own stack: a hostile
// level's tree may be as deep as it has edges.

#include "level/BspTree.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "engine/Console.h"
#include "engine/Geometry.h"
#include "engine/Timer.h"
#include "level/BspBuilder.h"
#include "level/BspEdges.h"
#include "level/BspGrid.h"
#include "level/BspTreeState.h"
#include "level/LevelData.h"

namespace BspTree {

std::vector<BspSegment> nodes;
BspSegment* walkNode = nullptr;
bool walkDraw = false;
bool castDraw = false;
bool splitDraw = false;
bool nodeDraw = false;
std::array<Vector2, testRayCount> testRayStarts;
std::array<Vector2, testRayCount> testRayEnds;

}  // namespace BspTree

namespace {

std::size_t edgeCount = 0;
Vector2 rayStart;
Vector2 rayEnd;

/// A ray starts on a segment when it is this close to it; the hit then lies this far inside
/// the segment's ends.
constexpr float rayTolerance = 0.025f;

void ClearViews() {
    BspTree::walkDraw = false;
    BspTree::castDraw = false;
    BspTree::splitDraw = false;
    BspTree::nodeDraw = false;
}

/// Whether `point`, on the line through both, lies between `start` and `end`, by the axis on
/// which they are further apart. -0 is outside, so that of two segments that meet at a point
/// a ray hits one.
bool LiesWithin(Vector2 point, Vector2 start, Vector2 end) {
    const Vector2 extent = end - start;
    const float position = std::abs(extent.x) > std::abs(extent.y) ? (point.x - start.x) / extent.x
                                                                   : (point.y - start.y) / extent.y;
    return !std::signbit(position) && position <= 1.0f;
}

/// On a hit the ray is shortened to the crossing point.
bool RayMeets(const BspSegment& node) {
    const auto crossing = LineIntersection(rayStart, rayEnd, node.start, node.end);
    if (!crossing || !LiesWithin(*crossing, rayStart, rayEnd) ||
        !LiesWithin(*crossing, node.start, node.end)) {
        return false;
    }
    rayEnd = *crossing;
    return true;
}

/// Whether the ray starts on the segment itself; it then ends there too.
bool RayStartsOn(const BspSegment& node, float distance) {
    if (std::abs(distance) > rayTolerance) {
        return false;
    }
    float along = Dot(rayStart - node.start, node.direction);
    if (!(along > -rayTolerance && along < node.length + rayTolerance)) {
        return false;
    }
    along = std::max(along, rayTolerance);
    along = std::min(along, node.length - rayTolerance);
    rayEnd = node.start + node.direction * along;
    return true;
}

BspSegment* CastStoredRay(BspSegment* node) {
    /// Nodes whose near side is being searched: their own segment and far side come after.
    static std::vector<BspSegment*> crossed;
    crossed.clear();
    while (true) {
        if (!node) {
            if (crossed.empty()) {
                return nullptr;
            }
            BspSegment* back = crossed.back();
            crossed.pop_back();
            if (BspTree::Collides(*back) && RayMeets(*back)) {
                return back;
            }
            const bool startsBehind = Dot(rayStart - back->start, back->normal) < 0.0f;
            node = startsBehind ? back->frontChild : back->backChild;
            continue;
        }
        const float startDistance = Dot(rayStart - node->start, node->normal);
        const float endDistance = Dot(rayEnd - node->start, node->normal);
        if (RayStartsOn(*node, startDistance)) {
            return node;
        }
        if ((startDistance < 0.0f) != (endDistance < 0.0f)) {
            crossed.push_back(node);
        }
        node = startDistance < 0.0f ? node->backChild : node->frontChild;
    }
}

/// Whether every node below `top` on its `isFront` side keeps to that side of its line.
bool SideIsSound(const BspSegment& top, const BspSegment* child, bool isFront) {
    if (!child) {
        return true;
    }
    // The rounding of a crossing point grows with the square of its distance from the origin.
    // An edge made by joining two keeps one's direction, so its ends may lie beside its line.
    const float reach = std::abs(top.start.x) + std::abs(top.start.y) + top.length;
    const float away = std::max(Distance(child->start, top.start), Distance(child->end, top.start));
    const float bend = std::abs(Dot(top.end - top.start, top.normal)) / top.length;
    const float tolerance = 0.11f + reach * (1.0f + reach / top.length) * 1e-6f + away * bend;
    const float d1 = Dot(child->start - top.start, top.normal);
    const float d2 = Dot(child->end - top.start, top.normal);
    return child->parent == &top &&
           (isFront ? std::min(d1, d2) >= -tolerance : std::max(d1, d2) <= tolerance);
}

}  // namespace

void BspTree::Build(std::deque<LevelPolygon>& polygons) {
    Destroy();
    Timer timer;
    ClearViews();
    Console::Print("\nCreating the level bsp tree...");
    AddCommands();
    std::vector<BspSegment> edges = BspEdges::Collect(polygons);
    if (edges.empty()) {
        return;
    }
    edges = BspEdges::Clean(edges);
    edgeCount = edges.size();
    nodes = BspBuilder::Build(std::move(edges));
    LevelData::current.segmentsCollide.assign(nodes.size(), 1);
    BspGrid::Prepare(nodes);
    timer.Tick();
    Console::Print("\nBsp Tree created in ");
    Console::PrintFloat(timer.deltaSeconds);
    Console::Print(" seconds.");
    walkNode = Root();
#ifdef VANTREL_VALIDATE
    if (!Validate()) {
        std::fputs("The level's tree is not sound.\n", stderr);
        std::abort();
    }
#endif
}

void BspTree::Destroy() {
    nodes = {};
    LevelData::current.segmentsCollide.clear();
    BspGrid::Prepare({});
    edgeCount = 0;
    walkNode = nullptr;
    RemoveCommands();
}

void BspTree::Reset() {
    ClearViews();
    std::ranges::fill(LevelData::current.segmentsCollide, std::uint8_t{1});
}

bool BspTree::Collides(const BspSegment& node) {
    return LevelData::current.segmentsCollide[NumberOf(node)] != 0;
}

void BspTree::CollectNodes(std::vector<BspSegment*>& out) {
    std::vector<BspSegment*> open;
    BspSegment* node = Root();
    while (node || !open.empty()) {
        while (node) {
            open.push_back(node);
            node = node->backChild;
        }
        out.push_back(open.back());
        node = open.back()->frontChild;
        open.pop_back();
    }
}

BspSegment* BspTree::Root() {
    return nodes.empty() ? nullptr : &nodes.front();
}

std::size_t BspTree::EdgeCount() {
    return edgeCount;
}

int BspTree::Size() {
    return static_cast<int>(nodes.size());
}

int BspTree::Depth() {
    // Parents come before their children.
    std::vector<int> depths(nodes.size(), 1);
    int deepest = 0;
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        if (nodes[i].parent) {
            depths[i] = depths[static_cast<std::size_t>(nodes[i].parent - nodes.data())] + 1;
        }
        deepest = std::max(deepest, depths[i]);
    }
    return deepest;
}

BspSegment* BspTree::CastRay(Vector2 from, Vector2& to) {
    if (nodes.empty() || from == to) {
        return nullptr;
    }
    rayStart = from;
    rayEnd = to;
    BspSegment* hit = CastStoredRay(Root());
    to = rayEnd;
    return hit;
}

bool BspTree::Validate() {
    return std::all_of(nodes.begin(), nodes.end(), [](const BspSegment& node) {
        return (node.parent != nullptr) == (&node != Root()) &&
               SideIsSound(node, node.backChild, false) && SideIsSound(node, node.frontChild, true);
    });
}
