// Collects and cleans the edges of the level's tree. Cleaning looks at every pair of edges in
// list order; a quick test over arrays of coordinates, several edges at once, leaves only the
// few pairs that touch or lie in line to the full rules.

#include "level/BspEdges.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>

#include "engine/Console.h"

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

bool Overlaps(float position, float length) {
    return position >= overlapMargin && position < length - overlapMargin;
}

bool IsWellInside(float position, float length) {
    return position > touch && position < length - touch;
}

class EdgeCleaner {
public:
    explicit EdgeCleaner(std::vector<BspSegment> list) {
        // Cutting collinear edges against each other never leaves more of them than before,
        // so a run that makes many more than it was given has lost its footing in rounding.
        copyLimit = 1000 * list.size() + 100000;
        edges.reserve(list.size());
        for (const BspSegment& edge : list) {
            Append(edge);
        }
    }

    std::vector<BspSegment> Run() {
        for (std::size_t a = 0; a < edges.size(); ++a) {
            if (isDead[a]) {
                continue;
            }
            if (edges[a].polygon->toggledByTrigger || !FindPartner(a)) {
                finished.push_back(edges[a]);
            }
            if (a >= compactAbove && a > edges.size() / 2) {
                DropFront(a + 1);
                a = static_cast<std::size_t>(-1);
            }
        }
        return std::move(finished);
    }

private:
    static constexpr std::size_t blockSize = 16;
    static constexpr std::size_t compactAbove = 4096;
    static constexpr float nowhere = std::numeric_limits<float>::quiet_NaN();

    std::vector<BspSegment> edges;
    std::vector<std::uint8_t> isDead;
    /// Coordinates of `edges`, NaN for those that take no part, and a block of NaN at the end.
    std::vector<float> startX, startY, endX, endY;
    std::vector<BspSegment> finished;
    std::size_t copies = 0;
    std::size_t copyLimit = 0;
    bool gaveUp = false;

    void Append(const BspSegment& edge) {
        const std::size_t index = edges.size();
        edges.push_back(edge);
        isDead.push_back(0);
        for (auto* array : {&startX, &startY, &endX, &endY}) {
            array->resize(index + 1 + blockSize, nowhere);
        }
        Publish(index);
    }

    /// Brings the coordinate arrays up to date with one edge.
    void Publish(std::size_t index) {
        const BspSegment& edge = edges[index];
        const bool takesPart = !isDead[index] && !edge.polygon->toggledByTrigger;
        startX[index] = takesPart ? edge.start.x : nowhere;
        startY[index] = takesPart ? edge.start.y : nowhere;
        endX[index] = takesPart ? edge.end.x : nowhere;
        endY[index] = takesPart ? edge.end.y : nowhere;
    }

    void Kill(std::size_t index) {
        isDead[index] = 1;
        Publish(index);
    }

    void DropFront(std::size_t count) {
        const auto drop = static_cast<std::ptrdiff_t>(count);
        edges.erase(edges.begin(), edges.begin() + drop);
        isDead.erase(isDead.begin(), isDead.begin() + drop);
        for (auto* array : {&startX, &startY, &endX, &endY}) {
            array->erase(array->begin(), array->begin() + drop);
        }
    }

    /// Tries all edges behind `a` until one ends its life; false if it outlives them all.
    bool FindPartner(std::size_t a) {
        if (gaveUp) {
            return false;
        }
        for (std::size_t block = a + 1; block < edges.size(); block += blockSize) {
            if (!MayTouch(edges[a], block)) {
                continue;
            }
            const std::size_t last = std::min(block + blockSize, edges.size());
            for (std::size_t b = block; b < last; ++b) {
                if (!isDead[b] && !edges[b].polygon->toggledByTrigger && Resolve(a, b)) {
                    return true;
                }
            }
        }
        return false;
    }

    /// Whether any edge of the block begins where `a` ends or lies on its line.
    bool MayTouch(const BspSegment& a, std::size_t block) const {
        const Vector2 start = a.start;
        const Vector2 end = a.end;
        const Vector2 normal = a.normal;
        const float* bStartX = &startX[block];
        const float* bStartY = &startY[block];
        const float* bEndX = &endX[block];
        const float* bEndY = &endY[block];
        int hits = 0;
        for (std::size_t i = 0; i < blockSize; ++i) {
            const float a1 = (bStartX[i] - start.x) * normal.x + (bStartY[i] - start.y) * normal.y;
            const float a2 = (bEndX[i] - start.x) * normal.x + (bEndY[i] - start.y) * normal.y;
            const int inLine = int(std::abs(a1) < touch) & int(std::abs(a2) < touch);
            const int joined = int(std::abs(bStartX[i] - end.x) < touch) &
                               int(std::abs(bStartY[i] - end.y) < touch);
            hits |= inLine | joined;
        }
        return hits != 0;
    }

    /// The rules for a pair; true if `a` is gone.
    bool Resolve(std::size_t a, std::size_t b) {
        BspSegment& edgeA = edges[a];
        BspSegment& edgeB = edges[b];
        if (Agree(edgeA.end, edgeB.start)) {
            if (Agree(edgeA.start, edgeB.end)) {
                Kill(a);
                Kill(b);
                return true;
            }
            if (Dot(edgeA.direction, edgeB.direction) > 0.9999f) {
                edgeB.start = edgeA.start;
                edgeB.length += edgeA.length;
                Publish(b);
                Kill(a);
                return true;
            }
        }
        return CutOverlap(a, b);
    }

    bool CutOverlap(std::size_t a, std::size_t b) {
        const BspSegment edgeA = edges[a];
        const BspSegment edgeB = edges[b];
        if (!(std::abs(Aside(edgeA, edgeB.start)) < touch &&
              std::abs(Aside(edgeA, edgeB.end)) < touch)) {
            return false;
        }
        const float s1 = Along(edgeB, edgeA.start);
        const float s2 = Along(edgeB, edgeA.end);
        const float t1 = Along(edgeA, edgeB.start);
        const float t2 = Along(edgeA, edgeB.end);
        if (!Overlaps(s1, edgeB.length) && !Overlaps(s2, edgeB.length) &&
            !Overlaps(t1, edgeA.length) && !Overlaps(t2, edgeA.length)) {
            return false;
        }
        Kill(a);
        Kill(b);
        CopyRest(edgeB, edgeA, s1, s2);
        CopyRest(edgeA, edgeB, t1, t2);
        return true;
    }

    /// Keeps what is left of `edge` on both sides of `other`, whose ends lie at `p1` and `p2`
    /// along it.
    void CopyRest(const BspSegment& edge, const BspSegment& other, float p1, float p2) {
        if (IsWellInside(p1, edge.length)) {
            BspSegment copy = edge;
            copy.start = other.start;
            AppendCopy(copy);
        }
        if (IsWellInside(p2, edge.length)) {
            BspSegment copy = edge;
            copy.end = other.end;
            AppendCopy(copy);
        }
    }

    void AppendCopy(BspSegment& copy) {
        copy.length = Distance(copy.start, copy.end);
        Append(copy);
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

std::vector<BspSegment> BspEdges::Collect(std::list<LevelPolygon>& polygons) {
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

std::vector<BspSegment> BspEdges::Clean(std::vector<BspSegment> edges) {
    std::vector<BspSegment> cleaned = EdgeCleaner(std::move(edges)).Run();
    std::erase_if(cleaned, [](const BspSegment& edge) { return edge.cutOnly != 0; });
    return cleaned;
}
