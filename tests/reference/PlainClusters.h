#pragma once
// The bodies of water, plainly: sweep after sweep over all points that are left.

#include <algorithm>
#include <cstddef>
#include <list>
#include <numeric>
#include <vector>

#include "engine/Vector2.h"

namespace Plain {

/// Per cluster the indices of its points, in the order in which they joined.
inline std::vector<std::vector<std::size_t>> FindClusters(const std::vector<Vector2>& points) {
    std::list<std::size_t> working(points.size());
    std::iota(working.begin(), working.end(), std::size_t{0});
    std::vector<std::vector<std::size_t>> clusters;
    while (!working.empty()) {
        std::vector<std::size_t>& cluster = clusters.emplace_back();
        cluster.push_back(working.front());
        working.pop_front();
        for (auto q = working.begin(); q != working.end();) {
            const bool isLinked = std::any_of(cluster.begin(), cluster.end(), [&](std::size_t c) {
                return DistanceSquared(points[c], points[*q]) <= 40.0f * 40.0f;
            });
            if (isLinked) {
                cluster.push_back(*q);
                q = working.erase(q);
            } else {
                ++q;
            }
        }
    }
    return clusters;
}

}  // namespace Plain
