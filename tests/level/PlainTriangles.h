#pragma once
// Ear clipping in its plain form: every test against every side and point, and every walk
// from the front. What LevelPolygon finds must be the same.

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

#include "engine/Geometry.h"

class PlainTriangles {
public:
    using Outline = std::vector<Vector2>;
    struct Edge {
        Vector2 start, end;
    };

    explicit PlainTriangles(const Outline& points) : outline(WithoutRepeats(points)) {
        isInvalid = IsInvalid();
        if (isInvalid) {
            return;
        }
        for (std::size_t i = 0; i + 1 < outline.size(); ++i) {
            boundary.push_back({outline[i], outline[i + 1]});
        }
        Merge();
        winding = 1;
        if (boundary.size() >= 2 && !Clip()) {
            winding = 0;
            Clip();
        }
    }

    static Outline WithoutRepeats(const Outline& points) {
        Outline kept;
        for (const Vector2 point : points) {
            if (std::find(kept.begin(), kept.end(), point) == kept.end()) {
                kept.push_back(point);
            }
        }
        return kept;
    }

    static bool HoldsPoint(const Outline& points, const std::array<Vector2, 3>& triangle) {
        return std::any_of(points.begin(), points.end(), [&](Vector2 p) {
            return std::find(triangle.begin(), triangle.end(), p) == triangle.end() &&
                   PointInConvexPolygon(p.x, p.y, triangle);
        });
    }

    bool isInvalid = true;
    std::uint8_t winding = 0;
    std::vector<float> x, y;

private:
    bool IsInvalid() const {
        const std::size_t count = outline.size();
        if (count < 3) {
            return true;
        }
        for (std::size_t i = 0; i + 1 < count; ++i) {
            for (std::size_t j = 0; j < count; ++j) {
                if (SegmentsCross(outline[i], outline[i + 1], outline[j],
                                  outline[(j + 1) % count])) {
                    return true;
                }
            }
        }
        return false;
    }

    static Vector2 Direction(Vector2 from, Vector2 to) {
        Vector2 direction = to - from;
        Normalise(direction);
        return direction;
    }
    static Vector2 Direction(const Edge& edge) { return Direction(edge.start, edge.end); }

    void Merge() {
        for (std::size_t i = 0; i + 1 < boundary.size();) {
            if (Dot(Direction(boundary[i]), Direction(boundary[i + 1])) >= 0.9999f) {
                boundary[i].end = boundary[i + 1].end;
                boundary.erase(boundary.begin() + static_cast<std::ptrdiff_t>(i) + 1);
            } else {
                ++i;
            }
        }
        if (boundary.size() < 2) {
            return;
        }
        const Vector2 closing = Direction(boundary.back().end, boundary.front().start);
        if (Dot(Direction(boundary.front()), closing) >= 0.9999f &&
            Dot(Direction(boundary.back()), closing) >= 0.9999f) {
            boundary.front().start = boundary.back().end;
            boundary.pop_back();
        }
    }

    bool Clip() {
        std::vector<Edge> chain = boundary;
        x.clear();
        y.clear();
        while (chain.size() >= 2) {
            std::size_t i = 0;
            while (i + 1 < chain.size() && !IsEar(chain[i], chain[i + 1])) {
                ++i;
            }
            if (i + 1 == chain.size()) {
                x.clear();
                y.clear();
                return false;
            }
            for (const Vector2 p : {chain[i].start, chain[i].end, chain[i + 1].end}) {
                x.push_back(p.x);
                y.push_back(p.y);
            }
            chain[i].end = chain[i + 1].end;
            chain.erase(chain.begin() + static_cast<std::ptrdiff_t>(i) + 1);
        }
        return true;
    }

    Vector2 Normal(const Edge& edge) const {
        const Vector2 d = edge.end - edge.start;
        return winding == 1 ? Vector2{-d.y, d.x} : Vector2{d.y, -d.x};
    }

    bool IsEar(const Edge& e1, const Edge& e2) const {
        if (!(Dot(Direction(e1), Direction(e2)) < 0.9999f)) {
            return false;
        }
        for (const Edge& edge : boundary) {
            if (SegmentsCross(e1.start, e2.end, edge.start, edge.end)) {
                return false;
            }
        }
        if (SegmentsCross(e1.start, e2.end, boundary.back().end, boundary.front().start)) {
            return false;
        }
        const Vector2 w = (e1.start + e2.end) / 2.0f - e1.end;
        if (Dot(w, Normal(e1)) < 0.0f || Dot(w, Normal(e2)) < 0.0f) {
            return false;
        }
        Outline points;
        for (const Edge& edge : boundary) {
            points.push_back(edge.start);
        }
        points.push_back(boundary.back().end);
        std::array<Vector2, 3> triangle{e1.start, e1.end, e2.end};
        if (winding == 0) {
            std::swap(triangle[1], triangle[2]);
        }
        return !HoldsPoint(points, triangle);
    }

    Outline outline;
    std::vector<Edge> boundary;
};
