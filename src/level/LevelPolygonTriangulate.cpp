// Ear clipping along the open chain of an outline's sides, in one winding and then the other.

#include <array>

#include "engine/Geometry.h"
#include "level/LevelPolygon.h"
#include "level/LevelPolygonOutline.h"
#include "platform/Assert.h"

namespace {

/// Directions whose dot product reaches this are in one line.
constexpr float straight = 0.9999f;

Vector2 Direction(Vector2 from, Vector2 to) {
    Vector2 direction = to - from;
    Normalise(direction);
    return direction;
}

bool IsStraight(Vector2 a, Vector2 b, Vector2 c) {
    return Dot(Direction(a, b), Direction(b, c)) >= straight;
}

/// Across a side, towards the polygon if it turns by `winding`.
Vector2 SideNormal(Vector2 side, std::uint8_t winding) {
    return winding == 1 ? Vector2{-side.y, side.x} : Vector2{side.y, -side.x};
}

/// Whether the corner a, b, c of the chain can be cut off. It depends on the three points and
/// the whole outline only, not on what has been cut off before.
bool IsEar(LevelPolygonOutline& outline, Vector2 a, Vector2 b, Vector2 c, std::uint8_t winding) {
    if (IsStraight(a, b, c)) {
        return false;
    }
    const Vector2 w = (a + c) * 0.5f - b;
    if (!(Dot(w, SideNormal(b - a, winding)) >= 0.0f &&
          Dot(w, SideNormal(c - b, winding)) >= 0.0f)) {
        return false;
    }
    const std::array<Vector2, 3> triangle =
        winding == 1 ? std::array{a, b, c} : std::array{a, c, b};
    return !outline.HoldsPoint(triangle) && !outline.Crosses(a, c);
}

/// Cuts ears off until one side is left; each gives a triangle. False if a walk finds none.
///
/// After each ear the first one from the front of the chain is due. As ears don't depend on
/// earlier cuts, only the two corners at the cut are new, and the walk goes one corner back.
bool ClipEars(const std::vector<Vector2>& chain, LevelPolygonOutline& outline,
              LevelPolygon& polygon) {
    const std::size_t end = chain.size();
    std::vector<std::size_t> next(end);
    std::vector<std::size_t> previous(end);
    for (std::size_t i = 0; i < end; ++i) {
        next[i] = i + 1;
        previous[i] = i == 0 ? 0 : i - 1;
    }
    std::size_t left = end - 2;
    std::size_t a = 0;
    while (left > 0) {
        const std::size_t b = next[a];
        const std::size_t c = b == end ? end : next[b];
        if (c == end || outline.IsExhausted()) {
            return false;
        }
        if (!IsEar(outline, chain[a], chain[b], chain[c], polygon.winding)) {
            a = b;
            continue;
        }
        for (const std::size_t corner : {a, b, c}) {
            polygon.triangleX.push_back(chain[corner].x);
            polygon.triangleY.push_back(chain[corner].y);
        }
        next[a] = c;
        previous[c] = a;
        a = previous[a];
        --left;
    }
    return !outline.IsExhausted();
}

void ClearTriangles(LevelPolygon& polygon) {
    polygon.triangleCount = 0;
    polygon.triangleX.clear();
    polygon.triangleY.clear();
    polygon.triangleNormalX.clear();
    polygon.triangleNormalY.clear();
}

void MakeNormals(LevelPolygon& polygon) {
    const std::size_t size = polygon.triangleX.size();
    polygon.triangleNormalX.resize(size);
    polygon.triangleNormalY.resize(size);
    for (std::size_t i = 0; i < size; ++i) {
        const std::size_t j = i % 3 == 2 ? i - 2 : i + 1;
        Vector2 side{polygon.triangleX[j] - polygon.triangleX[i],
                     polygon.triangleY[j] - polygon.triangleY[i]};
        const float length = Length(side);
        if (length > 0.0f) {
            side /= length;
        }
        polygon.triangleNormalX[i] = -side.y;
        polygon.triangleNormalY[i] = side.x;
    }
}

}  // namespace

std::vector<Vector2> LevelPolygon::DrawnOutline() const {
    std::vector<Vector2> chain;
    chain.reserve(PointCount());
    for (std::size_t i = 0; i < PointCount(); ++i) {
        const Vector2 point = Point(i);
        const std::size_t size = chain.size();
        if (size >= 2 && IsStraight(chain[size - 2], chain[size - 1], point)) {
            chain.back() = point;
        } else {
            chain.push_back(point);
        }
    }
    if (chain.size() >= 3) {
        const Vector2 last = chain.back();
        const Vector2 closing = Direction(last, chain[0]);
        if (Dot(Direction(chain[0], chain[1]), closing) >= straight &&
            Dot(Direction(chain[chain.size() - 2], last), closing) >= straight) {
            chain[0] = last;
            chain.pop_back();
        }
    }
    return chain;
}

void LevelPolygon::Triangulate(std::uint8_t tryWinding) {
    VANTREL_ASSERT(tryWinding <= 1);
    ClearTriangles(*this);
    if (IsInvalid()) {
        return;
    }
    winding = tryWinding;
    const std::vector<Vector2> chain = DrawnOutline();
    if (chain.size() < 3) {
        return;
    }
    triangleX.reserve(3 * (chain.size() - 2));
    triangleY.reserve(3 * (chain.size() - 2));
    LevelPolygonOutline outline(chain);
    if (!ClipEars(chain, outline, *this)) {
        ClearTriangles(*this);
        if (winding != 1) {
            return;
        }
        winding = 0;
        if (!ClipEars(chain, outline, *this)) {
            ClearTriangles(*this);
            return;
        }
    }
    triangleCount = static_cast<std::uint32_t>(triangleX.size() / 3);
    MakeNormals(*this);
}
