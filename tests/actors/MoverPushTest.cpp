#include "actors/MoverPush.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <random>

#include "actors/PlainPush.h"
#include "support/TestWorld.h"

namespace {

using TestLevel::Box;

/// A tray of walls and floor that is one polygon, with its inner floor from x 0 to `width` at
/// y 0 and walls `height` high.
LevelPolygon Tray(float width, float height) {
    constexpr float t = 12.0f;  // thickness
    return TestLevel::Polygon({{-t, -height},
                               {0.0f, -height},
                               {0.0f, 0.0f},
                               {width, 0.0f},
                               {width, -height},
                               {width + t, -height},
                               {width + t, t},
                               {-t, t}});
}

/// For each living particle that is so deep inside of a moving polygon that no edge pushes it
/// out, the number of steps in a row that it has been there.
class LostWater {
public:
    /// Call once per step; gives the longest stay.
    int Longest(const MoverCollider& collider) {
        int longest = 0;
        for (const Particle& particle : ParticleManager::particles) {
            int& stay = steps[&particle];
            stay = !particle.dying && IsDeep(collider, particle) ? stay + 1 : 0;
            longest = std::max(longest, stay);
        }
        return longest;
    }

private:
    static bool IsDeep(const MoverCollider& collider, const Particle& particle) {
        const Vector2 q = particle.position - collider.polygon->offset;
        return std::ranges::all_of(collider.edges, [q](const BspSegment& edge) {
            return Dot(q - edge.start, edge.normal) > Particle::radius;
        });
    }

    std::map<const Particle*, int> steps;
};

int CountDying() {
    int count = 0;
    for (const Particle& particle : ParticleManager::particles) {
        count += particle.dying;
    }
    return count;
}

void ExpectFiniteWater() {
    for (const Particle& particle : ParticleManager::particles) {
        for (const float value : {particle.position.x, particle.position.y, particle.velocity.x,
                                  particle.velocity.y, particle.temperature}) {
            ASSERT_TRUE(std::isfinite(value));
        }
    }
}

TEST(MoverPush, CarriesWaterUpwardsOnALift) {
    TestWorld world;
    TestWorld::Add(Tray(100.0f, 40.0f), 1);
    TestWorld::AddMover(1, {0.0f, 0.0f}, {0.0f, -200.0f}, 60.0f);
    TestWorld::Start();
    TestWorld::AddWater({20.0f, -10.0f}, 16, 2);
    TestWorld::Steps(60);
    MoverManager::movers.front().state = Mover::GoingToEnd;
    TestWorld::Steps(240);
    EXPECT_EQ(MoverManager::movers.front().state, Mover::Stopped);
    EXPECT_EQ(ParticleManager::Count(), 32u);
    for (const Particle& particle : ParticleManager::particles) {
        EXPECT_GT(particle.position.x, 0.0f);
        EXPECT_LT(particle.position.x, 100.0f);
        EXPECT_NEAR(particle.position.y, -215.0f, 20.0f);
    }
    EXPECT_EQ(CountDying(), 0);
}

TEST(MoverPush, TakesInWhatTouchesItsLoad) {
    TestWorld world;
    TestWorld::Add(Box(-20.0f, -20.0f, 0.0f, 20.0f), 1);
    TestWorld::AddMover(1, {0.0f, 0.0f}, {100.0f, 0.0f}, 60.0f, Mover::GoingToEnd);
    TestWorld::Start();
    // A row of particles from the wall outwards, five units apart, and one that is too far.
    std::vector<const Particle*> row;
    for (int i = 0; i < 5; ++i) {
        row.push_back(&TestWorld::AddParticle({2.0f + 5.0f * static_cast<float>(i), 0.0f}));
    }
    const Particle& far = TestWorld::AddParticle({28.5f, 0.0f});
    MoverManager::Step(1.0f / 60.0f);
    for (const Particle* const particle : row) {
        EXPECT_FLOAT_EQ(particle->pushVelocity.x, 60.0f);
    }
    // The first was caught before the platform moved, and moved with it.
    EXPECT_EQ(row[0]->position.x, 3.0f);
    EXPECT_EQ(row[1]->position.x, 7.0f);
    EXPECT_EQ(far.pushVelocity, Vector2{});
}

TEST(MoverPush, CrushesWaterAgainstFixedGeometry) {
    TestWorld world;
    TestWorld::Add(Box(-60.0f, 0.0f, 60.0f, 20.0f));
    TestWorld::Add(Box(-60.0f, -60.0f, -40.0f, 0.0f));
    TestWorld::Add(Box(40.0f, -60.0f, 60.0f, 0.0f));
    TestWorld::Add(Box(-39.0f, -140.0f, 39.0f, -80.0f), 1);
    TestWorld::AddMover(1, {0.0f, 0.0f}, {0.0f, 80.0f}, 120.0f, Mover::GoingToEnd);
    TestWorld::Start();
    TestWorld::AddWater({-30.0f, -14.0f}, 15, 4);
    int dying = 0;
    for (int i = 0; i < 60; ++i) {
        TestWorld::Step();
        dying = std::max(dying, CountDying());
    }
    EXPECT_GT(dying, 20);
    ExpectFiniteWater();
}

TEST(MoverPush, CrushesNothingWithAPolygonThatTurnsTheOtherWay) {
    TestWorld world;
    LevelPolygon press = Box(-39.0f, -140.0f, 39.0f, -80.0f);
    press.Triangulate(0);
    TestWorld::Add(press, 1);
    if (LevelData::polygons.back().triangleCount == 0) {
        // This outline turns one way only: turn it round.
        LevelData::polygons.back() = TestLevel::Polygon(
            {{-39.0f, -80.0f}, {39.0f, -80.0f}, {39.0f, -140.0f}, {-39.0f, -140.0f}});
        LevelData::polygons.back().id = 1;
    }
    ASSERT_EQ(LevelData::polygons.back().winding, 0);
    TestWorld::Add(Box(-60.0f, 0.0f, 60.0f, 20.0f));
    TestWorld::AddMover(1, {0.0f, 0.0f}, {0.0f, 80.0f}, 120.0f, Mover::GoingToEnd);
    TestWorld::Start();
    TestWorld::AddWater({-30.0f, -14.0f}, 15, 4);
    TestWorld::Steps(60);
    EXPECT_EQ(CountDying(), 0);
    ExpectFiniteWater();
}

TEST(MoverPush, CarriesIce) {
    TestWorld world;
    ParticleManager::roomTemperature = -5.0f;
    TestWorld::Add(Tray(200.0f, 60.0f), 1);
    TestWorld::AddMover(1, {0.0f, 0.0f}, {0.0f, -150.0f}, 60.0f);
    TestWorld::Start();
    TestWorld::AddWater({60.0f, -16.0f}, 6, 4, -5.0f);
    TestWorld::Steps(60);
    ASSERT_EQ(GroupedParticleMover::groups.size(), 1u);
    MoverManager::movers.front().state = Mover::GoingToEnd;
    TestWorld::Steps(200);
    ASSERT_EQ(GroupedParticleMover::groups.size(), 1u);
    const ParticleGroup& ice = GroupedParticleMover::groups.front();
    EXPECT_EQ(ice.particles.size(), 24u);
    EXPECT_NEAR(ice.position.y + ice.radius, -150.0f, 1.0f);
    for (const Particle& particle : ice.particles) {
        EXPECT_LE(Distance(particle.position, ice.position), ice.radius + 1.0f);
    }
}

// At 600 units a second a platform passes ten radii of a particle in a step of a thirtieth.
// What it meets head-on gets into it, but doesn't stay: it is taken along and crushed.
TEST(MoverPush, KeepsNoWaterInsideOfFastPlatforms) {
    constexpr int longestStay = 15;  // steps
    const Vector2 directions[] = {{0.0f, -1.0f}, {1.0f, 0.0f}, {0.7f, -0.7f},
                                  {-1.0f, 0.2f}, {0.0f, 1.0f}, {0.3f, 0.9f}};
    for (const Vector2 direction : directions) {
        for (const float dt : {1.0f / 30.0f, 1.0f / 60.0f, 0.01f}) {
            TestWorld world({250.0f, 200.0f});
            for (LevelPolygon& wall : TestLevel::Bowl(500.0f, 400.0f)) {
                TestWorld::Add(wall);
            }
            TestWorld::Add(Box(210.0f, 190.0f, 290.0f, 230.0f), 1);
            TestWorld::AddMover(1, {}, direction * 150.0f, 600.0f, Mover::LoopingToEnd);
            TestWorld::Start();
            TestWorld::AddWater({220.0f, 172.0f}, 16, 4);
            TestWorld::AddWater({20.0f, 380.0f}, 60, 5);
            LostWater lost;
            int longest = 0;
            for (int i = 0; i < 200; ++i) {
                TestWorld::Step(dt);
                longest = std::max(longest, lost.Longest(MoverManager::colliders.front()));
            }
            EXPECT_LE(longest, longestStay) << direction.x << " " << direction.y << " " << dt;
            EXPECT_GT(ParticleManager::Count(), 200u);
            ExpectFiniteWater();
        }
    }
}

struct State {
    Vector2 position, pushVelocity;
    int dying;
    friend bool operator==(const State&, const State&) = default;
};

std::vector<State> WaterState() {
    std::vector<State> states;
    for (const Particle& p : ParticleManager::particles) {
        states.push_back({p.position, p.pushVelocity, p.dying});
    }
    for (const ParticleGroup& group : GroupedParticleMover::groups) {
        states.push_back({group.position, group.pushVelocity, 0});
        for (const Particle& p : group.particles) {
            states.push_back({p.position, p.pushVelocity, p.dying});
        }
    }
    return states;
}

/// A world of tilted boxes and jagged stars on movers at all speeds, in a field of water and
/// ice, some far away from the origin, where floats are coarse.
void BuildRandomWorld(std::mt19937& random, Vector2 origin) {
    const auto uniform = [&](float low, float high) {
        return std::uniform_real_distribution<float>(low, high)(random);
    };
    for (std::uint32_t id = 1; id <= 6; ++id) {
        const Vector2 centre = origin + Vector2{uniform(-200.0f, 200.0f), uniform(-150.0f, 150.0f)};
        LevelPolygon polygon;
        const int corners = 3 + static_cast<int>(random() % 8);
        for (int i = 0; i < corners; ++i) {
            Vector2 spoke{uniform(15.0f, 60.0f), 0.0f};
            Rotate(spoke, fullTurn * static_cast<float>(i) / static_cast<float>(corners));
            polygon.AddPoint(std::round(centre.x + spoke.x), std::round(centre.y + spoke.y));
        }
        TestWorld::Add(polygon, id % 5);
        TestWorld::AddMover(id % 5, {}, {uniform(-80.0f, 80.0f), uniform(-80.0f, 80.0f)},
                            uniform(0.0f, 900.0f), Mover::LoopingToEnd);
    }
    TestWorld::Add(Box(origin.x - 250.0f, origin.y + 100.0f, origin.x + 250.0f, origin.y + 130.0f));
    TestWorld::Start();
    for (int i = 0; i < 200; ++i) {
        TestWorld::AddParticle(origin +
                               Vector2{uniform(-250.0f, 250.0f), uniform(-200.0f, 200.0f)});
    }
    for (int i = 0; i < 8; ++i) {
        ParticleGroup& group = GroupedParticleMover::groups.emplace_back();
        group.position = origin + Vector2{uniform(-250.0f, 250.0f), uniform(-200.0f, 200.0f)};
        group.radius = uniform(2.0f, 30.0f);
        group.particles.emplace_back().position = group.position;
    }
}

TEST(MoverPush, PushesAsItsPlainFormDoes) {
    std::size_t pushed = 0;
    for (unsigned seed = 0; seed < 60; ++seed) {
        const Vector2 origin = seed % 3 == 0 ? Vector2{-65000.0f, 40000.0f} : Vector2{};
        std::vector<State> results[2];
        for (const bool plain : {false, true}) {
            std::mt19937 random(seed);
            TestWorld world(origin);
            BuildRandomWorld(random, origin);
            for (int i = 0; i < 12; ++i) {
                const float dt = i % 2 == 0 ? 1.0f / 30.0f : 0.01f;
                if (plain) {
                    // Movers advance without pushing while no polygon is where it was.
                    const ParticleList water = ParticleManager::particles;
                    const GroupList ice = GroupedParticleMover::groups;
                    std::vector<Vector2> before;
                    for (const MoverCollider& collider : MoverManager::colliders) {
                        before.push_back(collider.polygon->previousOffset);
                    }
                    MoverManager::Step(dt);
                    ParticleManager::particles = water;
                    GroupedParticleMover::groups = ice;
                    for (std::size_t c = 0; c < before.size(); ++c) {
                        MoverManager::colliders[c].polygon->previousOffset = before[c];
                    }
                    PlainPush::PushWater(dt);
                } else {
                    MoverManager::Step(dt);
                }
            }
            results[plain ? 1 : 0] = WaterState();
        }
        ASSERT_EQ(results[0], results[1]) << seed;
        pushed += static_cast<std::size_t>(std::ranges::count_if(
            results[0], [](const State& s) { return s.pushVelocity.x != 0; }));
    }
    EXPECT_GT(pushed, 1000u);
}

TEST(MoverPush, SurvivesMoversWithoutMeasure) {
    constexpr float most = 3.0e38f;
    for (const float speed : {1.0e5f, 1.0e9f, most, -1.0e6f, -most}) {
        for (const float end : {1.0f, 1.0e5f, 4.0e9f, most}) {
            TestWorld world;
            TestWorld::Add(Tray(100.0f, 40.0f), 1);
            TestWorld::AddMover(1, {}, {end, end}, speed, Mover::LoopingToEnd);
            TestWorld::AddMover(1, {}, {-end, 1.0f}, speed, Mover::GoingToEnd);
            TestWorld::Start();
            TestWorld::AddWater({20.0f, -10.0f}, 8, 2);
            for (int i = 0; i < 8; ++i) {
                TestWorld::Step(1.0f / 30.0f);
                ExpectFiniteWater();
            }
        }
    }
}

}  // namespace
