#pragma once
// Whether two outlines cover common ground.

#include <span>

#include "level/LevelFile.h"

/// Whether a part of one outline lies inside of the other by more than the rounding of points
/// to whole units explains. Touching along a side is no overlap, nor are equal outlines.
bool Overlap(std::span<const LevelFile::Point> a, std::span<const LevelFile::Point> b);
