#pragma once
// Fuses groups that touch.

#include "water/Particle.h"

/// For each pair of groups (a, b), a nearer the list's front: if their target radii and 2 more
/// exceed their distance, the members of the smaller one go to the back of the other's; in a
/// tie, to b. Radii change on the way. A group so emptied stays in the list, keeps its target
/// radius and takes part in the rest of the pairs; the next step erases it.
void MergeGroups(GroupList& groups);
