// Outlines and their triangles.

#include "level/LevelPolygon.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <random>

#include "engine/Geometry.h"
#include "level/LevelPolygonOutline.h"
#include "reference/PlainTriangles.h"
#include "reference/Same.h"
#include "support/TestLevel.h"

namespace {

using Outline = std::vector<Vector2>;

LevelPolygon Make(const Outline& outline) {
    LevelPolygon polygon;
    polygon.AddPoints(outline);
    return polygon;
}

/// Level files hold whole numbers.
Vector2 Whole(double x, double y) {
    return {static_cast<float>(std::round(x)), static_cast<float>(std::round(y))};
}

/// Points round a centre, in order of their angle, at random distances: never crosses itself
/// but for the rounding.
Outline Star(std::mt19937& random, int count, double radius, Vector2 centre) {
    std::uniform_real_distribution<double> share(0.3, 1.0);
    Outline outline;
    for (int i = 0; i < count; ++i) {
        const double angle = 6.283185307 * i / count;
        const double r = radius * share(random);
        outline.push_back(centre + Whole(r * std::cos(angle), r * std::sin(angle)));
    }
    return outline;
}

/// Teeth of random height, turned by an angle.
Outline Comb(std::mt19937& random, int teeth, double angle, Vector2 at) {
    std::uniform_int_distribution<int> height(10, 400);
    Outline outline;
    const auto add = [&](double x, double y) {
        outline.push_back(at + Whole(x * std::cos(angle) - y * std::sin(angle),
                                     x * std::sin(angle) + y * std::cos(angle)));
    };
    for (int i = 0; i < teeth; ++i) {
        const double h = height(random);
        add(20.0 * i, 0.0);
        add(20.0 * i + 8.0, 0.0);
        add(20.0 * i + 8.0, h);
        add(20.0 * i + 15.0, h);
    }
    add(20.0 * teeth, 450.0);
    add(0.0, 460.0);
    return outline;
}

/// A corridor that winds round itself.
Outline Spiral(int count, double width, Vector2 at) {
    Outline outline;
    Outline inner;
    for (int i = 0; i < count / 2; ++i) {
        const double angle = 0.3 * i;
        const double r = 100.0 + 12.0 * angle;
        outline.push_back(at + Whole(r * std::cos(angle), r * std::sin(angle)));
        inner.push_back(at + Whole((r - width) * std::cos(angle), (r - width) * std::sin(angle)));
    }
    outline.insert(outline.end(), inner.rbegin(), inner.rend());
    return outline;
}

void ExpectPlainTriangles(const LevelPolygon& polygon) {
    Outline outline;
    bool isInvalid = polygon.PointCount() < 3;
    for (std::size_t i = 0; i < polygon.PointCount(); ++i) {
        outline.push_back(polygon.Point(i));
        isInvalid |= i > 0 && polygon.EdgeCrossesOutline(outline[i - 1], outline[i]);
    }
    ASSERT_EQ(polygon.IsInvalid(), isInvalid);
    Outline corners;
    if (!isInvalid) {
        int winding = 1;
        corners = Plain::Triangulate(outline, 1);
        if (corners.empty()) {
            winding = 0;
            corners = Plain::Triangulate(outline, 0);
        }
        EXPECT_EQ(int{polygon.winding}, winding);
    }
    std::vector<Row<2>> plain;
    for (const Vector2 corner : corners) {
        plain.push_back({corner.x, corner.y});
    }
    std::vector<Row<2>> fast;
    for (std::size_t i = 0; i < polygon.triangleX.size(); ++i) {
        fast.push_back({polygon.triangleX[i], polygon.triangleY[i]});
    }
    EXPECT_EQ(3 * polygon.triangleCount, fast.size());
    ASSERT_TRUE(Same("corner", {"x", "y"}, fast, plain));
}

}  // namespace

TEST(LevelPolygon, DropsRepeatedPoints) {
    const Outline outline{{0, 0}, {10, 0}, {0, 0}, {10, 10}, {10, 0}, {0, 10}, {10, 10}};
    LevelPolygon oneByOne;
    for (const Vector2 point : outline) {
        oneByOne.AddPoint(point.x, point.y);
    }
    const LevelPolygon atOnce = Make(outline);
    EXPECT_EQ(atOnce.PointCount(), 4u);
    EXPECT_EQ(atOnce.pointsX, oneByOne.pointsX);
    EXPECT_EQ(atOnce.pointsY, oneByOne.pointsY);
    EXPECT_EQ(atOnce.triangleX, oneByOne.triangleX);
    EXPECT_EQ(atOnce.triangleCount, 2u);
}

TEST(LevelPolygon, FindsTheWindingOfPointsAddedOneByOneEvenIfTheyCross) {
    std::mt19937 random(3);
    std::uniform_int_distribution<int> coordinate(0, 19);
    int windings[2] = {};
    for (int run = 0; run < 300; ++run) {
        Outline outline;
        LevelPolygon oneByOne;
        for (int i = 0; i < 4 + run % 6; ++i) {
            const int x = coordinate(random);
            outline.push_back(Whole(x, coordinate(random)));
            oneByOne.AddPoint(outline.back().x, outline.back().y);
        }
        ASSERT_EQ(Make(outline).winding, oneByOne.winding) << run;
        windings[oneByOne.winding] += oneByOne.IsInvalid() ? 1 : 0;
    }
    EXPECT_GT(windings[0], 50);
    EXPECT_GT(windings[1], 50);
}

TEST(LevelPolygon, HasThePlainFormsTriangles) {
    std::mt19937 random(7);
    int valid = 0;
    const auto check = [&](const char* shape, Outline outline) {
        for (int way = 0; way < 2 && !testing::Test::HasFatalFailure(); ++way) {
            std::reverse(outline.begin(), outline.end());
            const LevelPolygon polygon = Make(outline);
            ASSERT_NO_FATAL_FAILURE(ExpectPlainTriangles(polygon))
                << shape << " of " << outline.size() << " points, from " << outline[0].x << ' '
                << outline[0].y;
            valid += polygon.triangleCount > 0 ? 1 : 0;
        }
    };
    for (const int count : {5, 12, 40, 70, 150, 300}) {
        // Far from the origin single precision finds crossings where there are none.
        for (const Vector2 centre : {Vector2{0, 0}, Vector2{3000, -2000}, Vector2{300000, 70000}}) {
            for (const double radius : {40.0, 300.0, 3000.0}) {
                check("star", Star(random, count, radius, centre));
            }
            for (const double angle : {0.0, 0.6, 0.785398163, 0.8}) {
                check("comb", Comb(random, count / 4, angle, centre));
            }
            check("spiral", Spiral(count, 20.0, centre));
        }
    }
    EXPECT_GT(valid, 100);
}

TEST(LevelPolygon, FindsTheSameCrossingsFarFromTheOrigin) {
    std::mt19937 random(11);
    for (const float scale : {1e3f, 1e5f, 1e7f, 2e9f}) {
        std::uniform_real_distribution<float> far(-scale, scale);
        std::uniform_real_distribution<float> step(-40.0f, 40.0f);
        for (int run = 0; run < 20; ++run) {
            const double x = far(random);
            Outline outline{Whole(x, far(random))};
            const bool slants = run % 2 == 0;
            for (int i = 0; i < 200; ++i) {
                const float along = 30.0f + step(random) / 2.0f;
                const float dx = run % 3 == 0 ? step(random) : along;
                const float dy = slants ? dx + step(random) / 4.0f : step(random);
                const Vector2 next = outline.back() + Vector2{dx, dy};
                outline.push_back(Whole(next.x, next.y));
            }
            const LevelPolygon polygon = Make(outline);
            Outline kept;
            for (std::size_t i = 0; i < polygon.PointCount(); ++i) {
                kept.push_back(polygon.Point(i));
            }
            if (kept.size() < 3) {
                continue;  // so far out that most points are one
            }
            LevelPolygonOutline fast(kept);
            for (std::size_t i = 0; i + 7 < kept.size(); ++i) {
                const Vector2 a = kept[i];
                const Vector2 b = kept[i + 1 + random() % 6];
                ASSERT_EQ(fast.Crosses(a, b), polygon.EdgeCrossesOutline(a, b))
                    << "run " << run << " of scale " << scale << ", point " << i;
                const std::array<Vector2, 3> triangle{a, kept[i + 1], kept[i + 2 + random() % 5]};
                const bool holds = std::any_of(kept.begin(), kept.end(), [&](Vector2 p) {
                    return std::find(triangle.begin(), triangle.end(), p) == triangle.end() &&
                           PointInConvexPolygon(p.x, p.y, triangle);
                });
                ASSERT_EQ(fast.HoldsPoint(triangle), holds)
                    << "run " << run << " of scale " << scale << ", point " << i;
            }
        }
    }
}

TEST(LevelPolygon, SplitsTheLargestOutlineInTime) {
    // Hills over a flat bottom: as many points as a file can hold.
    std::mt19937 random(1);
    Outline outline;
    for (int i = 0; i < 65533; ++i) {
        outline.push_back({static_cast<float>(3 * i), static_cast<float>(random() % 1000)});
    }
    outline.push_back({196605.0f, 5000.0f});
    outline.push_back({-3.0f, 5000.0f});
    EXPECT_GT(Make(outline).triangleCount, 50000u);
}

TEST(LevelPolygon, GivesUpAnOutlineThatWouldTakeMinutes) {
    // All points in one line: every side has to be tested against every other.
    std::mt19937 random(1);
    Outline outline;
    for (int i = 0; i < 65535; ++i) {
        outline.push_back({static_cast<float>(random() % 1000000), 5.0f});
    }
    EXPECT_EQ(Make(outline).triangleCount, 0u);
}
