// Collects and cleans the edges of the level's tree. Each edge goes with the first edge behind
// it in the list that it has to do with, which an index by place finds.

#include "level/BspEdges.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <deque>

#include "engine/Console.h"
#include "level/BspEdgeIndex.h"

namespace {

/// World units within which points agree, lines are one line and a cut leaves nothing.
constexpr float touch = 0.01f;
/// Overlaps shorter than this don't count.
constexpr float overlapMargin = 0.0001f;

bool Agree(Vector2 a, Vector2 b) {
    return std::abs(a.x - b.x) < touch && std::abs(a.y - b.y) < touch;
}

/// Position of `point` along the edge, 0 at its start.
float Along(const BspSegment& edge, Vector2 point) {
    return Dot(point - edge.start, edge.direction);
}

/// Distance of `point` from the edge's line, positive on the solid side.
float Aside(const BspSegment& edge, Vector2 point) {
    return Dot(point - edge.start, edge.normal);
}

bool IsOn(float position, float length) {
    return position >= overlapMargin && position < length - overlapMargin;
}

bool IsWellInside(float position, float length) {
    return position > touch && position < length - touch;
}

/// The edge that both polygons have there, once from each side.
bool AreTwins(const BspSegment& a, const BspSegment& b) {
    return Agree(a.end, b.start) && Agree(a.start, b.end);
}

/// `b` goes on where `a` ends.
bool AreJoint(const BspSegment& a, const BspSegment& b) {
    return Agree(a.end, b.start) && Dot(a.direction, b.direction) > 0.9999f;
}

bool Overlap(const BspSegment& a, const BspSegment& b) {
    return std::abs(Aside(a, b.start)) < touch && std::abs(Aside(a, b.end)) < touch &&
           (IsOn(Along(b, a.start), b.length) || IsOn(Along(b, a.end), b.length) ||
            IsOn(Along(a, b.start), a.length) || IsOn(Along(a, b.end), a.length));
}

/// Walks the list from front to back, where new edges come in. Edges are known by their place
/// in the list, counted from the very first.
class EdgeCleaner {
public:
    explicit EdgeCleaner(const std::vector<BspSegment>& list) : waiting(ItemsOf(list)) {
        // Cutting collinear edges against each other never leaves more of them than before,
        // so a run that makes many more than it was given has lost its footing in rounding.
        copyLimit = 1000 * list.size() + 100000;
        for (const BspSegment& edge : list) {
            edges.push_back({edge, false});
        }
    }

    std::vector<BspSegment> Run() {
        while (!edges.empty()) {
            const Entry entry = edges.front();
            edges.pop_front();
            const std::size_t number = front++;
            if (entry.isDead) {
                continue;
            }
            if (entry.edge.polygon->toggledByTrigger) {
                finished.push_back(entry.edge);
                continue;
            }
            waiting.Remove(number);
            const std::size_t partner = FindPartner(entry.edge);
            if (partner == BspEdgeIndex::none) {
                finished.push_back(entry.edge);
            } else {
                Resolve(entry.edge, partner);
            }
        }
        return std::move(finished);
    }

private:
    struct Entry {
        BspSegment edge;
        bool isDead;
    };

    std::deque<Entry> edges;  ///< from the walk's place on
    std::size_t front = 0;    ///< number of the first of them
    BspEdgeIndex waiting;     ///< those of them that live and take part
    std::vector<BspSegment> finished;
    std::size_t copies = 0;
    std::size_t copyLimit = 0;
    bool gaveUp = false;

    static std::vector<BspEdgeIndex::Item> ItemsOf(const std::vector<BspSegment>& list) {
        std::vector<BspEdgeIndex::Item> items;
        for (std::size_t i = 0; i < list.size(); ++i) {
            if (!list[i].polygon->toggledByTrigger) {
                items.push_back({BspEdgeReach(list[i]), i});
            }
        }
        return items;
    }

    BspSegment& Edge(std::size_t number) { return edges[number - front].edge; }

    void Kill(std::size_t number) {
        edges[number - front].isDead = true;
        waiting.Remove(number);
    }

    std::size_t FindPartner(const BspSegment& a) {
        if (gaveUp) {
            return BspEdgeIndex::none;
        }
        return waiting.First(BspEdgeReach(a), [&](std::size_t number) {
            const BspSegment& b = Edge(number);
            return AreTwins(a, b) || AreJoint(a, b) || Overlap(a, b);
        });
    }

    /// What becomes of `b`, now that `a` is gone.
    void Resolve(const BspSegment& a, std::size_t number) {
        BspSegment& b = Edge(number);
        if (AreTwins(a, b)) {
            Kill(number);
        } else if (AreJoint(a, b)) {
            b.start = a.start;
            b.length += a.length;
            waiting.Change(number, BspEdgeReach(b));
        } else {
            Kill(number);
            const BspSegment whole = b;
            CopyRest(whole, a);
            CopyRest(a, whole);
        }
    }

    /// Keeps what is left of `edge` on both sides of `other`.
    void CopyRest(const BspSegment& edge, const BspSegment& other) {
        if (IsWellInside(Along(edge, other.start), edge.length)) {
            BspSegment copy = edge;
            copy.start = other.start;
            Append(copy);
        }
        if (IsWellInside(Along(edge, other.end), edge.length)) {
            BspSegment copy = edge;
            copy.end = other.end;
            Append(copy);
        }
    }

    void Append(BspSegment& copy) {
        copy.length = Distance(copy.start, copy.end);
        waiting.Append({BspEdgeReach(copy), front + edges.size()});
        edges.push_back({copy, false});
        if (++copies > copyLimit && !gaveUp) {
            Console::Print("\nThe level's edges overlap too often; some are left uncut.");
            gaveUp = true;
        }
    }
};

void CollectPolygon(LevelPolygon& polygon, bool cutOnly, std::vector<BspSegment>& edges) {
    const std::size_t count = polygon.PointCount();
    for (std::size_t i = 0; i < count; ++i) {
        const Vector2 from = polygon.Point(i);
        const Vector2 to = polygon.Point(i + 1 < count ? i + 1 : 0);
        BspSegment edge;
        if (polygon.winding == 1) {
            edge.SetEnds(from, to);
        } else {
            edge.SetEnds(to, from);
        }
        if (edge.length <= shortestEdge) {
            continue;
        }
        edge.friction = polygon.friction;
        edge.cutOnly = cutOnly ? 1 : 0;
        edge.polygon = &polygon;
        edges.push_back(edge);
    }
}

}  // namespace

std::vector<BspSegment> BspEdges::Collect(std::deque<LevelPolygon>& polygons) {
    std::vector<BspSegment> edges;
    for (LevelPolygon& polygon : polygons) {
        if (polygon.triangleCount == 0) {
            continue;
        }
        const bool cutOnly = !polygon.solid && !polygon.visible;
        if (cutOnly || (polygon.solid && !polygon.movedByMover)) {
            CollectPolygon(polygon, cutOnly, edges);
        }
    }
    std::reverse(edges.begin(), edges.end());
    return edges;
}

std::vector<BspSegment> BspEdges::Clean(const std::vector<BspSegment>& edges) {
    std::vector<BspSegment> cleaned = EdgeCleaner(edges).Run();
    std::erase_if(cleaned, [](const BspSegment& edge) { return edge.cutOnly != 0; });
    return cleaned;
}
