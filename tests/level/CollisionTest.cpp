// The collision query against its plain form, one-sided edges, contacts and their averages,
// and no way through any kind of shape.

#include "level/Collision.h"

#include <gtest/gtest.h>

#include "level/BspGrid.h"
#include "level/BspTree.h"
#include "level/BspWorlds.h"
#include "level/LevelData.h"
#include "reference/PlainCollision.h"
#include "reference/Same.h"

namespace {

using Polygons = std::deque<LevelPolygon>;

struct Circle {
    Vector2 centre;
    float radius;
};

/// Circles all over a square.
std::vector<Circle> Strewn(BspWorlds::Dice& dice, float low, float high) {
    std::vector<Circle> circles;
    for (int i = 0; i < 4000; ++i) {
        const float x = dice.Within(low, high);
        const float y = dice.Within(low, high);
        circles.push_back({{x, y}, dice.Below(8) == 0 ? dice.Within(0.0f, 30.0f) : 2.0f});
    }
    return circles;
}

/// Particles beside edges and near their ends, where they come to rest there, and both with a
/// coordinate on or right beside the border of a cell, or zero.
std::vector<Circle> AtEdges(BspWorlds::Dice& dice) {
    std::vector<Circle> circles;
    const auto odd = [&](float value, float origin) {
        const int kind = dice.Below(8);
        const float size = BspGrid::grid.cellSize;
        const float border = origin + std::round((value - origin) / size) * size;
        return kind == 0   ? std::nextafter(border, border + dice.Within(-1.0f, 1.0f))
               : kind == 1 ? std::copysign(0.0f, dice.Within(-1.0f, 1.0f))
                           : value;
    };
    const auto add = [&](Vector2 at) {
        circles.push_back({at, 2.0f});
        circles.push_back(
            {{odd(at.x, BspGrid::grid.origin.x), odd(at.y, BspGrid::grid.origin.y)}, 2.0f});
    };
    for (int i = 0; i < 1000; ++i) {
        const BspSegment& edge = *(BspTree::Root() + dice.Below(BspTree::Size()));
        Vector2 at = edge.start + edge.direction * dice.Within(-3.0f, edge.length + 3.0f) +
                     edge.normal * dice.Within(-2.5f, 2.5f);
        add(at);
        Collision::CollideCircle(at, 2.0f);
        add(at);
    }
    return circles;
}

testing::AssertionResult AnswersPlainly(const std::vector<Circle>& circles,
                                        const std::vector<BspSegment>& moving) {
    constexpr const char* fields[] = {"x at first", "y at first", "radius",   "hit",     "x",
                                      "y",          "normal.x",   "normal.y", "friction"};
    std::vector<Row<9>> fast;
    std::vector<Row<9>> plain;
    for (const BspSegment& edge : moving) {
        Collision::current.moving.Add({&edge, 1});
    }
    Collision::current.moving.Index();
    for (const auto [at, radius] : circles) {
        Vector2 position = at;
        const bool hit = Collision::CollideCircle(position, radius);
        const Vector2 normal = Collision::ContactNormal();
        fast.push_back({at.x, at.y, radius, hit ? 1.0f : 0.0f, position.x, position.y, normal.x,
                        normal.y, Collision::ContactFriction()});
        const auto query = Plain::CollideCircle(at, radius, BspTree::Root(), moving);
        plain.push_back({at.x, at.y, radius, query.count > 0 ? 1.0f : 0.0f, query.position.x,
                         query.position.y, query.normal.x, query.normal.y, query.friction});
    }
    Collision::current.moving.Clear();
    return Same("circle", fields, fast, plain);
}

/// Triangles a tenth as wide as long, all from about one point.
Polygons Spikes(BspWorlds::Dice& dice, int count, Vector2 at) {
    Polygons polygons;
    for (int i = 0; i < count; ++i) {
        const float angle = dice.Within(0.0f, fullTurn);
        const Vector2 tip = at + Vector2{dice.Within(-0.5f, 0.5f), dice.Within(-0.5f, 0.5f)};
        const auto corner = [&](float turn) {
            return tip + Vector2{std::cos(angle + turn), std::sin(angle + turn)} * 50.0f;
        };
        polygons.push_back(BspWorlds::Outline({tip, corner(0.0f), corner(0.1f)}));
    }
    return polygons;
}

/// Boxes of a few units, strewn so densely that a particle touches many.
Polygons Crumbs(BspWorlds::Dice& dice, int count, float side) {
    Polygons polygons;
    for (int i = 0; i < count; ++i) {
        const float x = dice.Within(-side, side);
        const float y = dice.Within(-side, side);
        polygons.push_back(
            BspWorlds::Rectangle(x, y, x + dice.Within(0.5f, 3.0f), y + dice.Within(0.5f, 3.0f)));
    }
    return polygons;
}

/// Whether the point lies in the polygon, by counting the sides to its right.
bool IsInside(const LevelPolygon& polygon, Vector2 point) {
    bool inside = false;
    for (std::size_t i = 0, j = polygon.PointCount() - 1; i < polygon.PointCount(); j = i++) {
        const Vector2 a = polygon.Point(i);
        const Vector2 b = polygon.Point(j);
        if ((a.y > point.y) != (b.y > point.y) &&
            point.x < (b.x - a.x) * (point.y - a.y) / (b.y - a.y) + a.x) {
            inside = !inside;
        }
    }
    return inside;
}

class CollisionTest : public testing::Test {
protected:
    void TearDown() override {
        Collision::current.moving.Clear();
        BspTree::Destroy();
    }

    /// A query against the built level from `at`; `position` holds where it ends.
    bool Collide(Vector2 at, float radius = 2.0f) {
        position = at;
        return Collision::CollideCircle(position, radius);
    }

    Vector2 position;
};

TEST_F(CollisionTest, AnswersAsThePlainFormDoes) {
    for (std::uint32_t seed = 0; seed < 12; ++seed) {
        std::pair<const char*, Polygons> worlds[] = {{"tiles", BspWorlds::Tiles(seed, 8)},
                                                     {"boxes", BspWorlds::Boxes(seed, 30)},
                                                     {"stars", BspWorlds::Stars(seed, 40)},
                                                     {"skyline", BspWorlds::Skyline(seed, 20)}};
        for (auto& [kind, polygons] : worlds) {
            BspWorlds::MixFlags(seed, polygons);
            BspTree::Build(polygons);
            std::vector<BspSegment*> nodes;
            BspTree::CollectNodes(nodes);
            BspWorlds::Dice dice(seed);
            std::vector<BspSegment> moving;
            for (const BspSegment* node : nodes) {
                LevelData::current.segmentsCollide[BspTree::NumberOf(*node)] = dice.Below(10) != 0;
                moving.push_back(*node);
                moving.back().SetEnds(node->start + Vector2{7.0f, 3.0f},
                                      node->end + Vector2{7.0f, 3.0f});
            }
            ASSERT_TRUE(AnswersPlainly(Strewn(dice, -40.0f, 600.0f), {}))
                << kind << ", seed " << seed;
            ASSERT_TRUE(AnswersPlainly(Strewn(dice, -40.0f, 300.0f), moving))
                << kind << ", seed " << seed << ", with moving edges";
        }
    }
}

TEST_F(CollisionTest, AnswersAsThePlainFormDoesInEveryKindOfCell) {
    int seen[BspGrid::Cell::Walk + 1] = {};
    for (std::uint32_t seed = 0; seed < 8; ++seed) {
        BspWorlds::Dice dice(seed);
        std::pair<const char*, Polygons> worlds[] = {
            {"stars", BspWorlds::Stars(seed, 20)},
            {"small stars", BspWorlds::Stars(seed, 40, 8.0f)},
            {"spikes", Spikes(dice, 12, {0.0f, 0.0f})},
            {"spikes far out", Spikes(dice, 12, {3.0e5f, -2.0e5f})},
            {"crumbs", Crumbs(dice, 200, 60.0f)},
            {"many crumbs", Crumbs(dice, 400, 25.0f)},
            {"one floor", {BspWorlds::Rectangle(-40.0f, 2.0f, 50.0f, 20.0f)}}};
        for (auto& [kind, polygons] : worlds) {
            BspTree::Build(polygons);
            for (std::uint8_t& collides : LevelData::current.segmentsCollide) {
                collides = dice.Below(10) != 0;
            }
            const std::vector<Circle> circles = AtEdges(dice);
            ASSERT_TRUE(AnswersPlainly(circles, {})) << kind << ", seed " << seed;
            for (const Circle& circle : circles) {
                ++seen[BspGrid::CellAt(circle.centre).What()];
            }
        }
    }
    EXPECT_EQ(seen[BspGrid::Cell::Unknown], 0);
    for (const auto what : {BspGrid::Cell::Empty, BspGrid::Cell::OneNode, BspGrid::Cell::Steps,
                            BspGrid::Cell::Walk}) {
        EXPECT_GT(seen[what], 1000) << what;
    }
}

TEST_F(CollisionTest, AnswersWithoutALevelAndFarOutsideOfOne) {
    EXPECT_FALSE(Collide({5.0f, 5.0f}));
    EXPECT_EQ(Collision::ContactNormal(), Vector2{});
    EXPECT_EQ(Collision::ContactFriction(), 1.0f);
    Polygons box{BspWorlds::Rectangle(0, 0, 100, 10)};
    BspTree::Build(box);
    for (const float far : {1e4f, -1e9f, 3e38f, INFINITY, NAN}) {
        EXPECT_FALSE(Collide({far, 5.0f}));
        EXPECT_FALSE(Collide({5.0f, far}));
        EXPECT_FALSE(Collide({far, far}, 50.0f));
    }
}

TEST_F(CollisionTest, PushesCirclesOutOnTheFreeSide) {
    Polygons floor{BspWorlds::Rectangle(0, 0, 100, 10)};
    floor.front().friction = 0.25f;
    BspTree::Build(floor);
    // Deep or shallow, the circle ends exactly a radius above the floor.
    for (const float y : {-1.5f, 0.0f, 1.75f}) {
        EXPECT_TRUE(Collide({50.0f, y}));
        EXPECT_EQ(position, (Vector2{50.0f, -2.0f}));
        EXPECT_EQ(Collision::ContactFriction(), 0.25f);
    }
    // At rest it keeps its contact and its place.
    EXPECT_TRUE(Collide({50.0f, -2.0f}));
    EXPECT_EQ(position, (Vector2{50.0f, -2.0f}));
    EXPECT_EQ(Collision::ContactNormal(), (Vector2{0.0f, 1.0f}));
    // A radius inside it is out of the floor's band, just above it isn't in it yet.
    EXPECT_FALSE(Collide({50.0f, 2.0f}));
    EXPECT_FALSE(Collide({50.0f, -2.001f}));
    // Round a corner it is pushed away from the corner alone.
    EXPECT_TRUE(Collide({-0.5f, -0.5f}));
    EXPECT_NEAR(Length(position), 2.0f, 1e-5f);
    EXPECT_FLOAT_EQ(position.x, position.y);
}

TEST_F(CollisionTest, TakesMovingSegmentsBesideTheLevel) {
    Polygons floor{BspWorlds::Rectangle(0, 0, 100, 10)};
    BspTree::Build(floor);
    BspSegment platform;
    platform.SetEnds({0.0f, -20.0f}, {100.0f, -20.0f});
    Collision::current.moving.Add({&platform, 1});
    Collision::current.moving.Index();
    // From both rims of the band, even from a full radius inside.
    EXPECT_TRUE(Collide({50.0f, -18.0f}));
    EXPECT_EQ(position, (Vector2{50.0f, -22.0f}));
    EXPECT_TRUE(Collide({50.0f, -22.0f}));
    Vector2 still{50.0f, -19.0f};
    EXPECT_FALSE(Collision::CollideCircleStatic(still, 2.0f));
    EXPECT_EQ(still, (Vector2{50.0f, -19.0f}));
}

TEST_F(CollisionTest, LetsNoCircleIntoAnySolid) {
    // Every kind of shape: convex, concave, spikes, a thin wall, tiles and overlaps.
    Polygons polygons = BspWorlds::Stars(5, 30);
    std::ranges::move(BspWorlds::Boxes(6, 10), std::back_inserter(polygons));
    polygons.push_back(BspWorlds::Rectangle(-50, 500, 900, 505));
    polygons.push_back(BspWorlds::Outline({{-20, 300}, {0, 200}, {20, 300}}));
    BspTree::Build(polygons);
    BspWorlds::Dice dice(9);
    int leaks = 0;
    for (int drop = 0; drop < 400; ++drop) {
        Vector2 at{dice.Within(-50.0f, 800.0f), -50.0f};
        Vector2 velocity;
        for (int step = 0; step < 600; ++step) {
            velocity += Vector2{dice.Within(-0.3f, 0.3f), 0.1f};
            if (Length(velocity) > 1.7f) {
                velocity *= 1.7f / Length(velocity);
            }
            at += velocity;
            if (Collision::CollideCircle(at, 2.0f)) {
                const Vector2 normal = Collision::ContactNormal();
                velocity -= normal * std::max(0.0f, Dot(velocity, normal));
            }
            leaks += std::any_of(polygons.begin(), polygons.end(),
                                 [at](const LevelPolygon& p) { return IsInside(p, at); });
        }
    }
    EXPECT_EQ(leaks, 0);
}

}  // namespace
