#include "actors/MoverPush.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "reference/PlainPush.h"
#include "reference/Same.h"
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

void ExpectFiniteWater() {
    for (const Particle& particle : ParticleManager::particles) {
        for (const float value : {particle.position.x, particle.position.y, particle.velocity.x,
                                  particle.velocity.y, particle.temperature}) {
            ASSERT_TRUE(std::isfinite(value));
        }
    }
}

TEST(MoverPush, CrushesNothingWithAPolygonThatTurnsTheOtherWay) {
    TestWorld world;
    TestWorld::Add(TestLevel::Polygon(
                       {{-39.0f, -80.0f}, {39.0f, -80.0f}, {39.0f, -140.0f}, {-39.0f, -140.0f}}),
                   1);
    ASSERT_EQ(LevelData::polygons.back().winding, 0);
    TestWorld::Add(Box(-60.0f, 0.0f, 60.0f, 20.0f));
    TestWorld::AddMover(1, {0.0f, 0.0f}, {0.0f, 80.0f}, 120.0f, Mover::GoingToEnd);
    TestWorld::Start();
    TestWorld::AddWater({-30.0f, -14.0f}, 15, 4);
    TestWorld::Steps(60);
    for (const Particle& particle : ParticleManager::particles) {
        EXPECT_EQ(particle.dying, 0);
    }
    ExpectFiniteWater();
}

/// Pushes these as the step just made should have pushed the water, plainly; `from` holds each
/// collider's offset before it. The camera is at `centre`.
void PushPlainly(ParticleList& particles, GroupList& groups, const std::vector<Vector2>& from,
                 Vector2 centre, float dt) {
    Plain::FreeWater water;
    for (Particle& particle : particles) {
        water.particles.push_back(&particle);
    }
    for (ParticleGroup& group : groups) {
        water.groups.push_back(&group);
    }
    for (std::size_t i = 0; i < from.size(); ++i) {
        const MoverCollider& collider = MoverManager::colliders[i];
        const Vector2 corner = LevelData::StateOf(*collider.polygon).offset - centre;
        if (collider.minX + corner.x <= 520.0f && collider.maxX + corner.x >= -520.0f &&
            collider.minY + corner.y <= 520.0f && collider.maxY + corner.y >= -520.0f) {
            Plain::Push(collider, from[i], water, dt);
        }
    }
}

testing::AssertionResult SameBodies(const char* element, const auto& fast, const auto& plain) {
    constexpr const char* fields[] = {"x", "y", "pushVelocity.x", "pushVelocity.y", "dying"};
    const auto rows = [](const auto& bodies) {
        std::vector<Row<5>> result;
        for (const auto& body : bodies) {
            result.push_back({body.position.x, body.position.y, body.pushVelocity.x,
                              body.pushVelocity.y, float(body.dying)});
        }
        return result;
    };
    return Same(element, fields, rows(fast), rows(plain));
}

/// A step of the movers against the plain form.
void ExpectPlainStep(Vector2 centre, float dt) {
    ParticleList particles = ParticleManager::particles;
    GroupList groups = GroupedParticleMover::groups;
    std::vector<Vector2> from;
    for (const MoverCollider& collider : MoverManager::colliders) {
        from.push_back(LevelData::StateOf(*collider.polygon).offset);
    }
    MoverManager::Step(Camera::Look(), dt);
    PushPlainly(particles, groups, from, centre, dt);
    ASSERT_TRUE(SameBodies("particle", ParticleManager::particles, particles));
    ASSERT_TRUE(SameBodies("group", GroupedParticleMover::groups, groups));
    for (auto f = GroupedParticleMover::groups.begin(), p = groups.begin(); p != groups.end();
         ++f, ++p) {
        ASSERT_TRUE(SameBodies("member", f->particles, p->particles));
    }
}

/// A world of tilted boxes and jagged stars on movers at all speeds, in a field of water and
/// ice, some far away from the origin, where floats are coarse. `haste` scales paths and speeds.
void BuildRandomWorld(std::mt19937& random, Vector2 origin, float haste) {
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
        const Vector2 end{uniform(-80.0f, 80.0f), uniform(-80.0f, 80.0f)};
        TestWorld::AddMover(id % 5, {}, end * haste, haste * uniform(0.0f, 900.0f),
                            Mover::LoopingToEnd);
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

TEST(MoverPush, PushesAsThePlainFormDoes) {
    for (unsigned seed = 0; seed < 60; ++seed) {
        const Vector2 origin = seed % 3 == 0 ? Vector2{-65000.0f, 40000.0f} : Vector2{};
        std::mt19937 random(seed);
        TestWorld world(origin);
        BuildRandomWorld(random, origin, seed % 4 == 1 ? 6.0f : 1.0f);
        for (int i = 0; i < 12; ++i) {
            ASSERT_NO_FATAL_FAILURE(ExpectPlainStep(origin, i % 2 == 0 ? 1.0f / 30.0f : 0.01f))
                << "seed " << seed << ", step " << i;
        }
    }
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
