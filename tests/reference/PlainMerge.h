#pragma once
// The merging of lumps of ice, plainly: all pairs.

#include <iterator>

#include "water/GroupMembers.h"

namespace Plain {

inline void MergeGroups(GroupList& groups) {
    for (auto a = groups.begin(); a != groups.end(); ++a) {
        for (auto b = std::next(a); b != groups.end(); ++b) {
            if (!(a->targetRadius + b->targetRadius + 2.0f > Distance(a->position, b->position))) {
                continue;
            }
            const bool intoB = b->targetRadius >= a->targetRadius;
            ParticleGroup& from = intoB ? *a : *b;
            ParticleGroup& to = intoB ? *b : *a;
            to.particles.insert(to.particles.end(), from.particles.begin(), from.particles.end());
            from.particles.clear();
            to.targetRadius = TargetRadius(to.particles.size());
        }
    }
}

}  // namespace Plain
