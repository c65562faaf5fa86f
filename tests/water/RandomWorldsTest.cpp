// Fast forms of simple rules against their plain forms, on random worlds, and one number for
// a whole run of them all.

#include <gtest/gtest.h>

#include <vector>

#include "reference/PlainClusters.h"
#include "reference/PlainFreeze.h"
#include "reference/PlainMerge.h"
#include "reference/PlainNeighbours.h"
#include "reference/Same.h"
#include "water/Clusters.h"
#include "water/GroupFreeze.h"
#include "water/GroupMerge.h"
#include "water/WaterCheck.h"
#include "water/WaterWorld.h"

namespace {

/// A generator of its own for the worlds, so that the game's draws stay comparable.
class Dice {
public:
    explicit Dice(std::uint32_t seed) : state(seed * 2654435761u + 1u) {}
    float Within(float low, float high) {
        state = state * 1664525u + 1013904223u;
        return low + (high - low) * static_cast<float>(state >> 8) / 16777216.0f;
    }
    Vector2 Place(float low, float high) {
        const float x = Within(low, high);
        return {x, Within(low, high)};
    }

private:
    std::uint32_t state;
};

std::vector<std::vector<std::size_t>> FindClusters(const std::vector<Vector2>& points) {
    Clusters clusters;
    clusters.Find(points);
    std::vector<std::vector<std::size_t>> result;
    for (std::size_t c = 0; c < clusters.Count(); ++c) {
        const auto members = clusters.Members(c);
        result.emplace_back(members.begin(), members.end());
    }
    return result;
}

constexpr const char* clusterFields[] = {"cluster", "point"};

/// The points in the order of their clusters.
std::vector<Row<2>> RowsOf(const std::vector<std::vector<std::size_t>>& clusters) {
    std::vector<Row<2>> rows;
    for (std::size_t c = 0; c < clusters.size(); ++c) {
        for (const std::size_t member : clusters[c]) {
            rows.push_back({static_cast<float>(c), static_cast<float>(member)});
        }
    }
    return rows;
}

/// Particles are known by a number, which stands in for their kill timer.
void Number(ParticleList& particles, int first = 0) {
    auto number = static_cast<float>(first);
    for (Particle& particle : particles) {
        particle.killTimer = number++;
    }
}

testing::AssertionResult SameParticles(const char* element, const ParticleList& fast,
                                       const ParticleList& plain) {
    constexpr const char* fields[] = {"number", "x", "y", "direction.x", "direction.y", "scale"};
    const auto rows = [](const ParticleList& particles) {
        std::vector<Row<6>> result;
        for (const Particle& p : particles) {
            result.push_back({p.killTimer, p.position.x, p.position.y, p.groupDirection.x,
                              p.groupDirection.y, p.groupScale});
        }
        return result;
    };
    return Same(element, fields, rows(fast), rows(plain));
}

void ExpectSameGroups(const GroupList& fast, const GroupList& plain) {
    constexpr const char* fields[] = {"members", "radius",     "targetRadius", "x",
                                      "y",       "velocity.x", "velocity.y",   "temperature"};
    const auto rows = [](const GroupList& groups) {
        std::vector<Row<8>> result;
        for (const ParticleGroup& g : groups) {
            result.push_back({static_cast<float>(g.particles.size()), g.radius, g.targetRadius,
                              g.position.x, g.position.y, g.velocity.x, g.velocity.y,
                              g.temperature});
        }
        return result;
    };
    ASSERT_TRUE(Same("group", fields, rows(fast), rows(plain)));
    for (auto f = fast.begin(), p = plain.begin(); f != fast.end(); ++f, ++p) {
        ASSERT_TRUE(SameParticles("member", f->particles, p->particles))
            << "group " << std::distance(fast.begin(), f);
    }
}

}  // namespace

TEST(Clusters, AreThoseOfThePlainForm) {
    for (std::uint32_t world = 0; world < 300; ++world) {
        Dice dice(world);
        // From one crowd to many specks, near the origin and where floats are coarse.
        const float size = dice.Within(10.0f, 900.0f);
        const float offset = world % 3 == 0 ? dice.Within(-3e6f, 3e6f) : 0.0f;
        std::vector<Vector2> points;
        const int count = static_cast<int>(dice.Within(1.0f, 300.0f));
        for (int i = 0; i < count; ++i) {
            const Vector2 place = dice.Place(-size, size) + Vector2{offset, offset};
            // Some on whole numbers, where distances come out at exactly 40.
            const bool snapped = world % 2 == 0;
            points.push_back(snapped
                                 ? Vector2{std::round(place.x / 8) * 8, std::round(place.y / 8) * 8}
                                 : place);
        }
        ASSERT_TRUE(Same("place", clusterFields, RowsOf(FindClusters(points)),
                         RowsOf(Plain::FindClusters(points))))
            << "world " << world;
    }
}

TEST(Clusters, TakePointsBeyondAllBounds) {
    const float huge = 3e38f;
    const float none = std::nanf("");
    const std::vector<Vector2> points = {{huge, 0},  {huge, 30},   {none, 0},  {none, 0},
                                         {0, 0},     {2e12f, 1},   {2e12f, 2}, {0, -40},
                                         {-huge, 0}, {INFINITY, 0}};
    const std::vector<std::vector<std::size_t>> expected = {{0, 1}, {2}, {3}, {4, 7},
                                                            {5, 6}, {8}, {9}};
    EXPECT_EQ(FindClusters(points), expected);
}

/// A crowd round a corner of the grid, part of it outside with cells of an earlier step.
static ParticleList CrowdAtCorner(Dice& dice) {
    ParticleList particles(static_cast<std::size_t>(dice.Within(1.0f, 400.0f)));
    const float size = dice.Within(3.0f, 60.0f);
    const float step = dice.Within(0.0f, 1.0f) < 0.3f ? 1.0f : 0.0f;
    for (Particle& particle : particles) {
        const Vector2 place = dice.Place(-2.0f, size);
        particle.position = step > 0.0f ? Vector2{std::round(place.x), std::round(place.y)} : place;
        particle.position -= Vector2{ParticleGrid::cornerOffset, ParticleGrid::cornerOffset};
        particle.velocity = dice.Place(-50.0f, 50.0f);
        particle.pushVelocity = dice.Place(-5.0f, 5.0f);
        particle.temperature = dice.Within(1.0f, 150.0f);
        particle.gridX = static_cast<std::uint32_t>(dice.Within(0.0f, 20.0f));
        particle.gridY = static_cast<std::uint32_t>(dice.Within(0.0f, 20.0f));
    }
    return particles;
}

static std::vector<Row<7>> MotionRows(const ParticleList& particles) {
    std::vector<Row<7>> rows;
    for (const Particle& p : particles) {
        rows.push_back({p.position.x, p.position.y, p.velocity.x, p.velocity.y, p.pushVelocity.x,
                        p.pushVelocity.y, p.temperature});
    }
    return rows;
}

TEST(Neighbours, MixAndPushAsThePlainFormDoes) {
    constexpr const char* fields[] = {"x",      "y",      "velocity.x", "velocity.y",
                                      "push.x", "push.y", "temperature"};
    WaterWorkspace work;
    for (std::uint32_t seed = 0; seed < 120; ++seed) {
        Dice dice(seed);
        ParticleList particles = CrowdAtCorner(dice);
        work.grid.FillFrom(particles, {});
        ASSERT_TRUE(work.grid.IsConsistent(particles)) << "seed " << seed;
        ParticleList plain = particles;
        for (std::uint32_t i = 0; i < particles.size(); ++i) {
            const std::uint32_t slot = work.grid.SlotOf(i);
            Motion motion = work.grid.TakeOut(slot);
            const Push push = MeetNeighbours(motion, particles[i], work);
            motion.position += push.direction * push.depth;
            work.grid.PutBack(slot, motion);
            const Push plainPush = Plain::MeetNeighbours(plain, i);
            plain[i].position += plainPush.direction * plainPush.depth;
        }
        work.grid.StoreTo(particles);
        ASSERT_TRUE(Same("particle", fields, MotionRows(particles), MotionRows(plain)))
            << "seed " << seed;
    }
}

TEST(GroupFreeze, TakesWhatThePlainFormTakes) {
    for (std::uint32_t seed = 0; seed < 200; ++seed) {
        Dice dice(seed);
        ParticleList particles;
        const float size = dice.Within(5.0f, 200.0f);
        const bool snapped = seed % 2 == 0;
        for (int i = 0; i < 200; ++i) {
            Particle& particle = particles.emplace_back();
            const Vector2 place = dice.Place(-size, size);
            particle.position =
                snapped ? Vector2{std::round(place.x / 4) * 4, std::round(place.y / 4) * 4} : place;
            particle.temperature = dice.Within(-1.0f, seed % 3 == 0 ? 20.0f : 1.0f);
            particle.velocity = dice.Place(-9.0f, 9.0f);
        }
        Number(particles);
        ParticleList plainParticles = particles;
        GroupList groups;
        GroupList plainGroups;
        Random::state = seed;
        Plain::Freeze(plainParticles, plainGroups);
        const auto plainState = Random::state;
        Random::state = seed;
        GroupFreeze().Run(particles, groups, Random::current);
        ASSERT_NO_FATAL_FAILURE(ExpectSameGroups(groups, plainGroups)) << "seed " << seed;
        ASSERT_TRUE(SameParticles("free particle", particles, plainParticles)) << "seed " << seed;
        ASSERT_EQ(Random::state, plainState) << "seed " << seed;
    }
}

TEST(GroupMerge, MergesAsThePlainFormDoes) {
    for (std::uint32_t seed = 0; seed < 300; ++seed) {
        Dice dice(seed);
        const float size = dice.Within(10.0f, 600.0f);
        GroupList groups;
        for (int i = 0; i < 60; ++i) {
            ParticleGroup& group = groups.emplace_back();
            group.position = dice.Place(-size, size);
            if (seed % 2 == 0) {
                group.position = {std::round(group.position.x / 6) * 6, 0.0f};
            }
            // Few large ones among many small ones; some emptied by an earlier pass.
            const float share = dice.Within(0.0f, 1.0f);
            group.particles.resize(
                static_cast<std::size_t>(1.0f + 900.0f * std::pow(share, 20.0f)));
            Number(group.particles, 1000 * i);
            group.targetRadius = 2.0f * std::sqrt(static_cast<float>(group.particles.size()));
            if (dice.Within(0.0f, 1.0f) < 0.1f) {
                group.particles.clear();
            }
        }
        GroupList plainGroups = groups;
        GroupMerge().Run(groups);
        Plain::MergeGroups(plainGroups);
        ASSERT_NO_FATAL_FAILURE(ExpectSameGroups(groups, plainGroups)) << "seed " << seed;
    }
}

TEST(GroupMerge, ReachesFurtherAsGroupsGrow) {
    // Each on the spiral is just in reach of the last group, had that taken in all before it.
    GroupList groups;
    for (int i = 0; i < 40; ++i) {
        ParticleGroup& group = groups.emplace_back();
        const float distance = 3.9f + 2.0f * std::sqrt(static_cast<float>(i + 1));
        group.position = {distance, 0.0f};
        Rotate(group.position, 1.7f * static_cast<float>(i));
        group.particles.resize(1);
        group.targetRadius = 2.0f;
    }
    groups.back().position = {};
    GroupMerge().Run(groups);
    std::vector<std::size_t> sizes;
    for (const ParticleGroup& group : groups) {
        if (!group.particles.empty()) {
            sizes.push_back(group.particles.size());
        }
    }
    EXPECT_EQ(sizes, (std::vector<std::size_t>{10, 9, 8, 6, 3, 2, 2}));
}

/// Folds into `print` a run in which the level turns and water freezes, thaws, boils, dies and
/// leaves.
static void AddRandomRun(std::uint64_t& print, std::uint32_t seed) {
    Dice dice(seed);
    const WaterWorld world(WaterLevels::CrowdedBowl(160.0f, 120.0f, dice.Within(0.0f, 1.0f)),
                           {80.0f, 60.0f});
    ParticleManager::CreateParticles(80.0f, 40.0f, 30.0f, 90);
    for (int i = 0; i < 120; ++i) {
        WaterWorld::view.angle = dice.Within(-180.0f, 180.0f) * (i / 40 == 1 ? 1.0f : 0.2f);
        if (i % 30 == 20) {
            WaterWorld::view.centre += dice.Place(-400.0f, 400.0f);
        }
        for (Particle& particle : ParticleManager::particles) {
            const float fate = dice.Within(0.0f, 1.0f);
            if (fate < 0.0005f) {
                particle.temperature = -20.0f;
            } else if (fate < 0.003f) {
                particle.temperature = 300.0f;
            } else if (fate < 0.004f) {
                ParticleManager::KillParticle(particle);
            } else if (fate < 0.01f) {
                particle.pushVelocity = dice.Place(-900.0f, 900.0f);
            }
        }
        ParticleManager::Step(WaterWorld::view, dice.Within(0.001f, 0.033f));
        print = (print ^ WaterCheck::Hash() ^ Random::state) * 1099511628211u;
    }
}

TEST(ParticleManager, StepsTheSameOnEveryBuild) {
    std::uint64_t print = 0;
    for (std::uint32_t seed = 0; seed < 12; ++seed) {
        AddRandomRun(print, seed);
    }
    EXPECT_EQ(print, 4435090876395995031u);
}
