#pragma once
// The cleaning of edges, plainly: each edge of the list with each one behind it.

#include <cmath>
#include <iterator>
#include <list>
#include <vector>

#include "level/BspSegment.h"
#include "level/LevelPolygon.h"

namespace Plain {

using EdgeList = std::list<BspSegment>;

inline bool Agree(Vector2 a, Vector2 b) {
    return std::abs(a.x - b.x) < 0.01f && std::abs(a.y - b.y) < 0.01f;
}

inline float Along(const BspSegment& edge, Vector2 point) {
    return Dot(point - edge.start, edge.direction);
}

inline bool Overlap(const BspSegment& a, const BspSegment& b) {
    const auto isOn = [](const BspSegment& edge, Vector2 point) {
        return Along(edge, point) >= 0.0001f && Along(edge, point) < edge.length - 0.0001f;
    };
    return std::abs(Dot(b.start - a.start, a.normal)) < 0.01f &&
           std::abs(Dot(b.end - a.start, a.normal)) < 0.01f &&
           (isOn(b, a.start) || isOn(b, a.end) || isOn(a, b.start) || isOn(a, b.end));
}

/// Puts what `other` leaves of `edge` at the end of the list.
inline void KeepRest(BspSegment edge, BspSegment other, EdgeList& list) {
    const auto keep = [&](Vector2 cut, Vector2 start, Vector2 end) {
        if (Along(edge, cut) > 0.01f && Along(edge, cut) < edge.length - 0.01f) {
            BspSegment& copy = list.emplace_back(edge);
            copy.start = start;
            copy.end = end;
            copy.length = Distance(start, end);
        }
    };
    keep(other.start, other.start, edge.end);
    keep(other.end, edge.start, other.end);
}

/// Does with `a` and the first edge behind it that it has to do with what is to be done;
/// whether `a` is to go.
inline bool CleanEdge(EdgeList::iterator a, EdgeList& list) {
    for (auto b = std::next(a); b != list.end(); ++b) {
        if (a->polygon->toggledByTrigger || b->polygon->toggledByTrigger) {
            continue;
        }
        if (Agree(a->end, b->start) && Agree(a->start, b->end)) {
            list.erase(b);
            return true;
        }
        if (Agree(a->end, b->start) && Dot(a->direction, b->direction) > 0.9999f) {
            b->start = a->start;
            b->length += a->length;
            return true;
        }
        if (Overlap(*a, *b)) {
            KeepRest(*b, *a, list);
            KeepRest(*a, *b, list);
            list.erase(b);
            return true;
        }
    }
    return false;
}

inline std::vector<BspSegment> CleanEdges(const std::vector<BspSegment>& edges) {
    EdgeList list(edges.begin(), edges.end());
    for (auto a = list.begin(); a != list.end();) {
        a = CleanEdge(a, list) ? list.erase(a) : std::next(a);
    }
    list.remove_if([](const BspSegment& edge) { return edge.cutOnly != 0; });
    return {list.begin(), list.end()};
}

}  // namespace Plain
