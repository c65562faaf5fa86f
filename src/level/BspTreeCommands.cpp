// The tree's console commands: its size, a walk from node to node, and a test that casts half
// a million rays.

#include <cstdint>
#include <string>

#include "engine/Console.h"
#include "engine/Random.h"
#include "engine/Text.h"
#include "engine/Timer.h"
#include "level/BspTree.h"
#include "level/BspTreeState.h"

namespace {

using BspTree::walkNode;

constexpr int castIterations = 2048;
constexpr std::int32_t castTotal = castIterations * BspTree::testRayCount;

template <bool& view>
bool View(bool value, bool isSet) {
    if (isSet) {
        view = value;
    }
    return view;
}

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

void Cast(std::string argument) {
    const std::vector<std::string> words = SplitWords(argument);
    if (words.size() != 2 || !IsNumber(words[0]) || !IsNumber(words[1])) {
        Console::Print("\nUSAGE: BspCast < number > < number >");
        return;
    }
    const Vector2 from{ToNumber(words[0]), ToNumber(words[1])};
    static Timer timer;
    timer.Tick();
    for (int i = 0; i < castIterations; ++i) {
        CastBatch(from);
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

constexpr const char* commandNames[] = {"BspSize", "BspDepth",    "BspWalk",      "BspWalkDraw",
                                        "BspCast", "BspCastDraw", "BspSplitDraw", "BspNodeDraw"};

}  // namespace

void BspTree::AddCommands() {
    Console::AddCommand("BspSize", &Size);
    Console::AddCommand("BspDepth", &Depth);
    Console::AddCommand("BspWalk", &Walk);
    Console::AddCommand("BspWalkDraw", &View<walkDraw>);
    Console::AddCommand("BspCast", &Cast);
    Console::AddCommand("BspCastDraw", &View<castDraw>);
    Console::AddCommand("BspSplitDraw", &View<splitDraw>);
    Console::AddCommand("BspNodeDraw", &View<nodeDraw>);
}

void BspTree::RemoveCommands() {
    for (const char* name : commandNames) {
        Console::RemoveCommand(name);
    }
}
