// The tree's console commands: its size, a walk from node to node, and a test that casts half
// a million rays.

#include <cstdint>
#include <string>

#include "engine/Console.h"
#include "engine/ConsoleCommands.h"
#include "engine/Random.h"
#include "engine/Text.h"
#include "engine/Timer.h"
#include "level/BspTree.h"
#include "level/BspTreeState.h"

namespace {

using BspTree::walkNode;

constexpr int castIterations = 2048;
constexpr std::int32_t castTotal = castIterations * BspTree::testRayCount;

/// Goes to `target`, or says why not.
void WalkTo(BspSegment* target, const char* failure) {
    if (target) {
        walkNode = target;
    } else {
        Console::Print(failure);
    }
}

void PrintWalkOptions() {
    std::string options;
    if (walkNode->parent) {
        options += "ROOT PARENT ";
    }
    if (walkNode->backChild) {
        options += "LEFT ";
    }
    if (walkNode->frontChild) {
        options += "RIGHT ";
    }
    Console::Print("\nWalk options for current node: ");
    Console::Print(options);
}

void Walk(std::string argument) {
    if (!walkNode) {
        return;
    }
    UpperCase(argument);
    if (argument == "PARENT") {
        WalkTo(walkNode->parent, "\nNo parent node at current node.");
    } else if (argument == "LEFT") {
        WalkTo(walkNode->backChild, "\nNo left child node at current node.");
    } else if (argument == "RIGHT") {
        WalkTo(walkNode->frontChild, "\nNo right child node at current node.");
    } else if (argument == "ROOT") {
        WalkTo(walkNode->parent ? BspTree::Root() : nullptr, "\nAlready at root node.");
    } else {
        Console::Print("\nUnrecognised tree walk command. Valid commands are: ");
        Console::Print("\n");
        Console::Print("\nBspTreeWalk LEFT");
        Console::Print("\nBspTreeWalk RIGHT");
        Console::Print("\nBspTreeWalk PARENT");
        Console::Print("\nBspTreeWalk ROOT");
        Console::Print("\n");
    }
    PrintWalkOptions();
}

/// Casts the whole batch of test rays from one point, each in a random direction.
void CastBatch(Vector2 from) {
    for (std::size_t i = 0; i < BspTree::testRayCount; ++i) {
        BspTree::testRayStarts[i] = from;
        const float x = Random::Unit() - 0.5f;
        const float y = Random::Unit() - 0.5f;
        BspTree::testRayEnds[i] = from + Vector2{x, y} * 100000.0f;
        BspTree::CastRay(BspTree::testRayStarts[i], BspTree::testRayEnds[i]);
    }
}

void Cast(float x, float y) {
    static Timer timer;
    timer.Tick();
    for (int i = 0; i < castIterations; ++i) {
        CastBatch({x, y});
    }
    timer.Tick();
    Console::PrintBanner("Test ray cast results");
    Console::Print("\nTest cast rays:              ");
    Console::PrintInt(BspTree::testRayCount);
    Console::Print("\nTest cast iterations:        ");
    Console::PrintInt(castIterations);
    Console::Print("\nTotal rays cast:             ");
    Console::PrintInt(castTotal);
    Console::Print("\nSeconds taken:               ");
    Console::PrintFloat(timer.deltaSeconds);
    Console::Print("\nClocks taken:                ");
    Console::PrintUnsigned(timer.deltaMs);
    Console::Print("\nRays per second (average):   ");
    Console::PrintFloat(static_cast<float>(castTotal) / timer.deltaSeconds);
}

const Console::CommandTable commands{
    {"BspSize", BspTree::Size, "How many nodes the level's tree has."},
    {"BspDepth", BspTree::Depth, "How high the tree is."},
    {"BspWalk", Walk,
     "Goes to a node's neighbour in the tree and tells where one can go from there.",
     "< LEFT OR RIGHT OR PARENT OR ROOT >"},
    {"BspWalkDraw", Console::Variable<BspTree::walkDraw>, "Shows the edge that BspWalk stands on."},
    {"BspCast", Console::Words<Cast>,
     "Casts half a million rays from a point and tells how long it took.", "< number > < number >"},
    {"BspCastDraw", Console::Variable<BspTree::castDraw>, "Shows the last rays that BspCast cast."},
    {"BspSplitDraw", Console::Variable<BspTree::splitDraw>,
     "Shows the lines along which edges were split."},
    {"BspNodeDraw", Console::Variable<BspTree::nodeDraw>,
     "Shows the edges of the tree: green ones collide, red ones don't."},
};

}  // namespace

void BspTree::AddCommands() {
    commands.Add();
}

void BspTree::RemoveCommands() {
    commands.Remove();
}
