#pragma once
// What the tree's own files share: the debug views and the last test rays.

#include <array>
#include <vector>

#include "level/BspSegment.h"

namespace BspTree {

/// The node that BspWalk stands on; null without a tree.
extern BspSegment* walkNode;
extern bool walkDraw;
extern bool castDraw;
extern bool splitDraw;
extern bool nodeDraw;

constexpr int testRayCount = 256;
extern std::array<Vector2, testRayCount> testRayStarts;
extern std::array<Vector2, testRayCount> testRayEnds;

void AddCommands();
void RemoveCommands();

}  // namespace BspTree
