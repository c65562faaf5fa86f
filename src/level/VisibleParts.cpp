// Takes from a polygon what nearer ones hide, by winding numbers: its own outline counts one,
// each of theirs takes one away, and what shows are the regions that count above zero. Outlines
// are those that are drawn: whatever hides a place is also filled there.

#include "level/VisibleParts.h"

#include <GL/glu.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <deque>
#include <memory>

#include "platform/Assert.h"

namespace {

/// Polygons that reach farther are drawn whole; their numbers are too coarse to be cut.
constexpr float farthest = 30000.0f;
/// How many crossings of sides the boxes of polygons may promise in a level, all in all. Side by
/// side 5,000 polygons come to 300,000; lying on each other they would take for ever.
constexpr std::size_t mostCrossings = 4'000'000;
/// How far pieces reach over their sides, world units. More than rounding moves a corner, and
/// less than a fiftieth of a pixel.
constexpr float overlap = 0.02f;
/// What is hidden reaches so far under what hides it, world units: where two nearer polygons
/// meet in a line without sharing its ends, a pixel of the line can belong to neither.
constexpr float tuck = 0.05f;
/// Acute corners reach farther, up to so many times.
constexpr float longestReach = 8.0f;

using Outline = std::vector<Vector2>;

/// Above zero for outlines that turn from x to y.
double SignedArea(const Outline& outline) {
    double area = 0.0;
    Vector2 a = outline.back();
    for (const Vector2 b : outline) {
        area += static_cast<double>(a.x) * b.y - static_cast<double>(b.x) * a.y;
        a = b;
    }
    return area * 0.5;
}

/// Collects the triangles of the regions that count above zero.
class Winding {
public:
    Winding() : tessellator(gluNewTess(), gluDeleteTess) {
        On(GLU_TESS_VERTEX_DATA, &TakeCorner);
        On(GLU_TESS_COMBINE_DATA, &MakeCrossing);
        On(GLU_TESS_ERROR_DATA, &Fail);
        On(GLU_TESS_EDGE_FLAG, &AskForPlainTriangles);
        gluTessProperty(tessellator.get(), GLU_TESS_WINDING_RULE, GLU_TESS_WINDING_POSITIVE);
        gluTessNormal(tessellator.get(), 0.0, 0.0, 1.0);
        gluTessBeginPolygon(tessellator.get(), this);
    }

    void Add(const Outline& outline, bool counts) {
        const std::size_t count = outline.size();
        gluTessBeginContour(tessellator.get());
        for (std::size_t i = 0; i < count; ++i) {
            const Vector2 at = outline[counts ? i : count - 1 - i];
            GLdouble* const kept = Keep(at.x, at.y);
            gluTessVertex(tessellator.get(), kept, kept);
        }
        gluTessEndContour(tessellator.get());
    }

    /// False if it failed.
    bool Finish() {
        gluTessEndPolygon(tessellator.get());
        return !hasFailed && corners.size() % 3 == 0;
    }

    std::vector<Vector2> corners;

private:
    using Place = std::array<GLdouble, 3>;

    template <typename Function>
    void On(GLenum event, Function* function) {
        gluTessCallback(tessellator.get(), event, reinterpret_cast<_GLUfuncptr>(function));
    }

    GLdouble* Keep(GLdouble x, GLdouble y) {
        places.push_back({x, y, 0.0});
        return places.back().data();
    }

    static void TakeCorner(void* vertex, void* self) {
        const auto* at = static_cast<const GLdouble*>(vertex);
        static_cast<Winding*>(self)->corners.push_back(
            {static_cast<float>(at[0]), static_cast<float>(at[1])});
    }
    static void MakeCrossing(const GLdouble* at, void** /*from*/, const GLfloat* /*weights*/,
                             void** made, void* self) {
        *made = static_cast<Winding*>(self)->Keep(at[0], at[1]);
    }
    static void Fail(GLenum /*error*/, void* self) {
        static_cast<Winding*>(self)->hasFailed = true;
    }
    /// A caller that needs the outline's edges is given no strips and fans.
    static void AskForPlainTriangles(GLboolean /*isEdge*/) {}

    std::unique_ptr<GLUtesselator, decltype(&gluDeleteTess)> tessellator;
    std::deque<Place> places;  // corners must stay where they are until the end
    bool hasFailed = false;
};

Vector2 Normalised(Vector2 v) {
    Normalise(v);
    return v;
}

/// A corner moved out so that both sides move by `overlap`.
Vector2 Grown(Vector2 before, Vector2 corner, Vector2 after) {
    const Vector2 a = Normalised(before - corner);
    const Vector2 b = Normalised(after - corner);
    const float sinOfHalf = Length(a - b) * 0.5f;
    const float reach = std::min(1.0f / std::max(sinOfHalf, 1e-6f), longestReach);
    return corner - Normalised(a + b) * (overlap * reach);
}

Vector2 InwardNormal(Vector2 from, Vector2 to) {
    return Normalised({from.y - to.y, to.x - from.x});
}

/// A corner moved in so that both sides move by `tuck`.
Vector2 Shrunk(Vector2 before, Vector2 corner, Vector2 after) {
    const Vector2 sum = InwardNormal(before, corner) + InwardNormal(corner, after);
    const float cosOfHalf = Length(sum) * 0.5f;
    const float reach = std::min(1.0f / std::max(cosOfHalf, 1e-6f), longestReach);
    return corner + Normalised(sum) * (tuck * reach);
}

/// The outline that the polygon is drawn in, turned from x to y.
Outline OutlineOf(const LevelPolygon& polygon) {
    Outline outline = polygon.DrawnOutline();
    if (SignedArea(outline) < 0.0) {
        std::reverse(outline.begin(), outline.end());
    }
    return outline;
}

Outline Shrunk(const Outline& outline) {
    const std::size_t count = outline.size();
    Outline shrunk;
    shrunk.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        shrunk.push_back(
            Shrunk(outline[(i + count - 1) % count], outline[i], outline[(i + 1) % count]));
    }
    return shrunk;
}

void AppendGrown(const std::vector<Vector2>& pieces, std::vector<Vector2>& corners) {
    for (std::size_t i = 0; i + 2 < pieces.size(); i += 3) {
        for (std::size_t c = 0; c < 3; ++c) {
            corners.push_back(
                Grown(pieces[i + (c + 2) % 3], pieces[i + c], pieces[i + (c + 1) % 3]));
        }
    }
}

void AppendWhole(const LevelPolygon& polygon, std::vector<Vector2>& corners) {
    for (std::size_t i = 0; i < polygon.triangleX.size(); ++i) {
        corners.push_back({polygon.triangleX[i], polygon.triangleY[i]});
    }
}

}  // namespace

VisibleParts::VisibleParts(std::span<const Entry> drawn)
    : entries(drawn), crossingsLeft(mostCrossings) {
    constexpr Box none{farthest, farthest, -farthest, -farthest};
    for (const Entry& entry : entries) {
        Box box = none;
        bool isCut = entry.opaque;
        outlines.push_back(OutlineOf(*entry.polygon));
        for (const Vector2 at : outlines.back()) {
            isCut = isCut && std::fabs(at.x) < farthest && std::fabs(at.y) < farthest;
            box = {std::min(box.left, at.x), std::min(box.top, at.y), std::max(box.right, at.x),
                   std::max(box.bottom, at.y)};
        }
        boxes.push_back(isCut ? box : none);
    }
}

bool VisibleParts::Meets(const Box& a, const Box& b) {
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

std::vector<std::size_t> VisibleParts::HidersOf(std::size_t index) const {
    std::vector<std::size_t> hiders;
    for (std::size_t i = index + 1; i < entries.size(); ++i) {
        if (Meets(boxes[index], boxes[i])) {
            hiders.push_back(i);
        }
    }
    return hiders;
}

/// Spends the crossings that there may be, if they are left.
bool VisibleParts::MayCut(std::size_t index, const std::vector<std::size_t>& hiders) {
    const auto cornersOf = [this](std::size_t i) { return outlines[i].size(); };
    std::size_t crossings = 0;
    for (std::size_t i = 0; i < hiders.size() && crossings <= crossingsLeft; ++i) {
        std::size_t corners = cornersOf(index);
        for (std::size_t j = 0; j < i; ++j) {
            corners += Meets(boxes[hiders[i]], boxes[hiders[j]]) ? cornersOf(hiders[j]) : 0;
        }
        crossings += corners * cornersOf(hiders[i]);
    }
    if (crossings > crossingsLeft) {
        return false;
    }
    crossingsLeft -= crossings;
    return true;
}

void VisibleParts::AppendTriangles(std::size_t index, std::vector<Vector2>& corners) {
    VANTREL_ASSERT(index < entries.size());
    const LevelPolygon& polygon = *entries[index].polygon;
    const std::vector<std::size_t> hiders = HidersOf(index);
    if (hiders.empty() || !MayCut(index, hiders)) {
        AppendWhole(polygon, corners);
        return;
    }
    Winding winding;
    winding.Add(outlines[index], true);
    for (const std::size_t hider : hiders) {
        winding.Add(Shrunk(outlines[hider]), false);
    }
    if (winding.Finish()) {
        AppendGrown(winding.corners, corners);
    } else {
        AppendWhole(polygon, corners);
    }
}
