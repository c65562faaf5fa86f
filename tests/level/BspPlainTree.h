#pragma once
// The tree in its plainest form: lists, recursion and every pair tested. What the level's
// tree must equal to the last bit.

#include <cmath>
#include <cstdlib>
#include <list>
#include <memory>
#include <vector>

#include "engine/Geometry.h"
#include "level/BspSegment.h"
#include "level/LevelPolygon.h"

namespace BspPlain {

using Edges = std::list<BspSegment>;
using Iterator = Edges::iterator;

struct Node {
    BspSegment edge;
    std::unique_ptr<Node> back;
    std::unique_ptr<Node> front;
};

inline Edges Collect(std::list<LevelPolygon>& polygons) {
    Edges edges;
    for (LevelPolygon& polygon : polygons) {
        const bool cuts = !polygon.solid && !polygon.visible;
        if (polygon.triangleCount == 0 || (!cuts && (!polygon.solid || polygon.movedByMover))) {
            continue;
        }
        for (std::size_t i = 0; i < polygon.PointCount(); ++i) {
            Vector2 from = polygon.Point(i);
            Vector2 to = polygon.Point((i + 1) % polygon.PointCount());
            if (polygon.winding == 0) {
                std::swap(from, to);
            }
            BspSegment edge;
            edge.start = from;
            edge.end = to;
            edge.length = Distance(from, to);
            edge.direction = to - from;
            Normalise(edge.direction);
            edge.normal = {-edge.direction.y, edge.direction.x};
            edge.friction = polygon.friction;
            edge.cutOnly = cuts;
            edge.polygon = &polygon;
            if (edge.length > 0.01f) {
                edges.push_front(edge);
            }
        }
    }
    return edges;
}

inline bool Near(Vector2 a, Vector2 b) {
    return std::fabs(a.x - b.x) < 0.01f && std::fabs(a.y - b.y) < 0.01f;
}

inline void CopyRest(const BspSegment& of, Vector2 start, Vector2 end, float p1, float p2,
                     Edges& edges) {
    const auto inside = [&](float p) { return p > 0.01f && p < of.length - 0.01f; };
    const auto copy = [&](Vector2 newStart, Vector2 newEnd) {
        edges.push_back(of);
        edges.back().start = newStart;
        edges.back().end = newEnd;
        edges.back().length = Distance(newStart, newEnd);
    };
    if (inside(p1)) {
        copy(start, of.end);
    }
    if (inside(p2)) {
        copy(of.start, end);
    }
}

/// Tests one pair; true if a went. Sets `bGone` if b went too.
inline bool CleanPair(BspSegment a, BspSegment& bInList, Edges& edges, bool& bGone) {
    BspSegment& b = bInList;
    bGone = false;
    if (Near(a.end, b.start)) {
        if (Near(a.start, b.end)) {
            bGone = true;
            return true;
        }
        if (Dot(a.direction, b.direction) > 0.9999f) {
            b.start = a.start;
            b.length += a.length;
            return true;
        }
    }
    const bool inLine = std::fabs(Dot(b.start - a.start, a.normal)) < 0.01f &&
                        std::fabs(Dot(b.end - a.start, a.normal)) < 0.01f;
    const float s1 = Dot(a.start - b.start, b.direction);
    const float s2 = Dot(a.end - b.start, b.direction);
    const float t1 = Dot(b.start - a.start, a.direction);
    const float t2 = Dot(b.end - a.start, a.direction);
    const auto within = [](float p, float length) { return p >= 0.0001f && p < length - 0.0001f; };
    if (!inLine || !(within(s1, b.length) || within(s2, b.length) || within(t1, a.length) ||
                     within(t2, a.length))) {
        return false;
    }
    const BspSegment was = b;
    CopyRest(was, a.start, a.end, s1, s2, edges);
    CopyRest(a, was.start, was.end, t1, t2, edges);
    bGone = true;
    return true;
}

inline void Clean(Edges& edges) {
    for (Iterator a = edges.begin(); a != edges.end();) {
        bool aGone = false;
        for (Iterator b = std::next(a); b != edges.end() && !aGone; ++b) {
            if (a->polygon->toggledByTrigger || b->polygon->toggledByTrigger) {
                continue;
            }
            bool bGone = false;
            aGone = CleanPair(*a, *b, edges, bGone);
            if (bGone) {
                edges.erase(b);
                break;
            }
        }
        a = aGone ? edges.erase(a) : std::next(a);
    }
    edges.remove_if([](const BspSegment& edge) { return edge.cutOnly != 0; });
}

inline int Score(const BspSegment& s, const Edges& edges) {
    int balance = 0;
    int splits = 0;
    for (const BspSegment& e : edges) {
        if (&e == &s) {
            continue;
        }
        const float d1 = Dot(e.start - s.start, s.normal);
        const float d2 = Dot(e.end - s.start, s.normal);
        if (d1 < 0.0f && d2 < 0.0f) {
            --balance;
        } else if (d1 >= 0.0f && d2 >= 0.0f) {
            ++balance;
        } else {
            ++splits;
        }
    }
    return std::abs(balance) + splits;
}

inline void Divide(const BspSegment& node, const BspSegment& e, Edges& back, Edges& front) {
    const float d1 = Dot(e.start - node.start, node.normal);
    const float d2 = Dot(e.end - node.start, node.normal);
    if (d1 >= 0.0f && d2 >= -0.1f) {
        front.push_back(e);
        return;
    }
    if (d1 < 0.0f && d2 < 0.1f) {
        back.push_back(e);
        return;
    }
    Vector2 x = LineIntersection(e.start, e.end, node.start, node.end).value_or(e.start);
    const float t = Dot(x - e.start, e.direction);
    x = t < 0.0f ? e.start : (t > e.length ? e.end : x);
    const auto piece = [&](Vector2 from, Vector2 to, Edges& list) {
        BspSegment p = e;
        p.start = from;
        p.end = to;
        p.direction = to - from;
        Normalise(p.direction);
        p.normal = {-p.direction.y, p.direction.x};
        p.length = Distance(from, to);
        if (p.length > 0.01f) {
            list.push_back(p);
        }
    };
    piece(e.start, x, d1 >= 0.0f ? front : back);
    piece(x, e.end, d1 >= 0.0f ? back : front);
}

inline std::unique_ptr<Node> BuildNode(Edges edges) {
    if (edges.empty()) {
        return nullptr;
    }
    Iterator best = edges.begin();
    int bestScore = Score(*best, edges);
    for (Iterator i = std::next(best); i != edges.end(); ++i) {
        const int score = Score(*i, edges);
        if (score < bestScore) {
            best = i;
            bestScore = score;
        }
    }
    auto node = std::make_unique<Node>();
    node->edge = *best;
    edges.erase(best);
    Edges back;
    Edges front;
    for (const BspSegment& e : edges) {
        Divide(node->edge, e, back, front);
    }
    node->back = BuildNode(std::move(back));
    node->front = BuildNode(std::move(front));
    return node;
}

inline std::unique_ptr<Node> Build(std::list<LevelPolygon>& polygons) {
    Edges edges = Collect(polygons);
    Clean(edges);
    return BuildNode(std::move(edges));
}

}  // namespace BspPlain
