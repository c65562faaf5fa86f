// What is left out of drawing must not be seen: pictures of points, with and without it.

#include "level/VisibleParts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace {

LevelPolygon Polygon(const std::vector<Vector2>& points) {
    LevelPolygon polygon;
    polygon.AddPoints(points);
    return polygon;
}

LevelPolygon Box(float left, float top, float right, float bottom) {
    return Polygon({{left, top}, {right, top}, {right, bottom}, {left, bottom}});
}

float Cross(Vector2 a, Vector2 b, Vector2 c) {
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

bool Holds(const std::vector<Vector2>& corners, Vector2 at) {
    for (std::size_t i = 0; i + 2 < corners.size(); i += 3) {
        const float a = Cross(corners[i], corners[i + 1], at);
        const float b = Cross(corners[i + 1], corners[i + 2], at);
        const float c = Cross(corners[i + 2], corners[i], at);
        if ((a >= 0 && b >= 0 && c >= 0) || (a <= 0 && b <= 0 && c <= 0)) {
            return true;
        }
    }
    return false;
}

bool IsNearSide(const LevelPolygon& polygon, Vector2 at) {
    for (std::size_t i = 0; i < polygon.triangleX.size(); ++i) {
        const std::size_t next = i % 3 == 2 ? i - 2 : i + 1;
        const Vector2 a{polygon.triangleX[i], polygon.triangleY[i]};
        const Vector2 b{polygon.triangleX[next], polygon.triangleY[next]};
        if (std::fabs(Cross(a, b, at)) < 0.1f * Distance(a, b)) {
            return true;
        }
    }
    return false;
}

float Area(const std::vector<Vector2>& corners) {
    float area = 0.0f;
    for (std::size_t i = 0; i + 2 < corners.size(); i += 3) {
        area += std::fabs(Cross(corners[i], corners[i + 1], corners[i + 2])) * 0.5f;
    }
    return area;
}

/// A star around `centre`: mostly concave.
LevelPolygon Star(Vector2 centre, std::mt19937& random) {
    std::uniform_real_distribution<float> radius(40.0f, 260.0f);
    std::vector<Vector2> points;
    for (int i = 0; i < 9; ++i) {
        const float turn = fullTurn * static_cast<float>(i) / 9.0f;
        points.push_back(centre + Vector2{std::cos(turn), std::sin(turn)} * radius(random));
    }
    return Polygon(points);
}

}  // namespace

TEST(VisibleParts, ShowsTheSamePicture) {
    std::mt19937 random(7);
    std::uniform_real_distribution<float> place(-300.0f, 900.0f);
    std::vector<LevelPolygon> polygons;
    for (int i = 0; i < 14; ++i) {
        polygons.push_back(Star({place(random), place(random)}, random));
    }
    std::vector<VisibleParts::Entry> entries;
    for (const LevelPolygon& polygon : polygons) {
        entries.push_back({&polygon, entries.size() % 4 != 2});
    }
    VisibleParts parts(entries);
    std::vector<std::vector<Vector2>> cut(entries.size());
    std::vector<std::vector<Vector2>> full(entries.size());
    float cutArea = 0.0f;
    float fullArea = 0.0f;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        parts.AppendTriangles(i, cut[i]);
        for (std::size_t c = 0; c < polygons[i].triangleX.size(); ++c) {
            full[i].push_back({polygons[i].triangleX[c], polygons[i].triangleY[c]});
        }
        cutArea += Area(cut[i]);
        fullArea += Area(full[i]);
    }
    EXPECT_LT(cutArea, fullArea * 0.9f);

    // What a point shows: the last opaque polygon there and all that lets it shine through.
    const auto shown = [&](const std::vector<std::vector<Vector2>>& triangles, Vector2 at) {
        std::vector<std::size_t> seen;
        for (std::size_t i = 0; i < entries.size(); ++i) {
            if (Holds(triangles[i], at)) {
                if (entries[i].opaque) {
                    seen.clear();
                }
                seen.push_back(i);
            }
        }
        return seen;
    };
    for (int i = 0; i < 20000; ++i) {
        const Vector2 at{place(random), place(random)};
        const auto isNear = [at](const LevelPolygon& polygon) { return IsNearSide(polygon, at); };
        if (std::none_of(polygons.begin(), polygons.end(), isNear)) {
            ASSERT_EQ(shown(cut, at), shown(full, at)) << at.x << ", " << at.y;
        }
    }
}

TEST(VisibleParts, LeavesNoGapBetweenWhatIsCutAndWhatHidesIt) {
    // A bow of 0.7 degrees a corner, which is drawn as few long chords.
    std::vector<Vector2> bow{{900.0f, 900.0f}, {100.0f, 900.0f}};
    for (int i = 0; i <= 16; ++i) {
        const float x = 50.0f * static_cast<float>(i) - 400.0f;
        bow.push_back({x + 500.0f, 300.0f + x * x * 0.00012f});
    }
    const LevelPolygon wall = Box(0.0f, 0.0f, 1000.0f, 1000.0f);
    const LevelPolygon hill = Polygon(bow);
    ASSERT_LT(hill.triangleCount + 2, hill.PointCount());
    // Their common side has no common ends.
    const LevelPolygon plank = Box(333.0f, 100.0f, 377.0f, 200.0f);
    const LevelPolygon beam = Box(200.0f, 80.0f, 700.0f, 100.0f);
    const std::vector<VisibleParts::Entry> entries{
        {&wall, true}, {&hill, true}, {&plank, true}, {&beam, true}};
    VisibleParts parts(entries);
    std::vector<Vector2> drawn;
    for (std::size_t i = 0; i < 2; ++i) {
        parts.AppendTriangles(i, drawn);
    }
    for (float x = 1.0f; x < 1000.0f; x += 7.0f) {
        for (float y = 290.0f; y < 400.0f; y += 0.25f) {
            ASSERT_TRUE(Holds(drawn, {x, y})) << x << ", " << y;
        }
    }
    EXPECT_TRUE(Holds(drawn, {350.0f, 100.0f})) << "behind the seam";
    EXPECT_FALSE(Holds(drawn, {350.0f, 90.0f}));
}

TEST(VisibleParts, LeavesOutOnlyWhatOpaquePolygonsInFrontHide) {
    const LevelPolygon wall = Box(0.0f, 0.0f, 1000.0f, 1000.0f);
    const LevelPolygon rock = Box(0.0f, 200.0f, 1000.0f, 1000.0f);
    const auto areaOfWall = [&](bool rockIsOpaque, bool wallIsInFront) {
        std::vector<VisibleParts::Entry> entries{{&wall, true}, {&rock, rockIsOpaque}};
        if (wallIsInFront) {
            std::swap(entries[0], entries[1]);
        }
        VisibleParts parts(entries);
        std::vector<Vector2> corners;
        parts.AppendTriangles(wallIsInFront ? 1 : 0, corners);
        return Area(corners);
    };
    EXPECT_NEAR(areaOfWall(true, false), 0.2e6f, 1e3f);
    EXPECT_EQ(areaOfWall(false, false), 1e6f);
    EXPECT_EQ(areaOfWall(true, true), 1e6f);
}

TEST(VisibleParts, LeavesPolygonsWholeThatReachTooFarToBeCut) {
    const LevelPolygon wall = Box(0.0f, 0.0f, 1000.0f, 1000.0f);
    const LevelPolygon far = Box(-1e30f, -1e30f, 1e30f, 1e30f);
    const std::vector<VisibleParts::Entry> entries{{&wall, true}, {&far, true}};
    VisibleParts parts(entries);
    std::vector<Vector2> corners;
    parts.AppendTriangles(0, corners);
    EXPECT_EQ(corners.size(), 6u);
}
