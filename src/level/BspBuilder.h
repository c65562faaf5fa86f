#pragma once
// Makes the tree out of a list of edges.

#include <vector>

#include "level/BspSegment.h"

namespace BspBuilder {

/// The nodes of the tree, the root first, each node followed by its back subtree and that by
/// its front subtree; links point into the result, which may be moved but not copied.
std::vector<BspSegment> Build(std::vector<BspSegment> edges);

}  // namespace BspBuilder
