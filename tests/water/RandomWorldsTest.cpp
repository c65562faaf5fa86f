// Fast forms of simple rules, on random worlds. The numbers are those of the plain forms: all
// pairs, recursion and sweeps over lists.

#include <gtest/gtest.h>

#include <vector>

#include "support/Fingerprint.h"
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

void AddGroups(Fingerprint& print, const GroupList& groups) {
    for (const ParticleGroup& group : groups) {
        print.Add(static_cast<std::uint32_t>(group.particles.size()));
        print.Add(Vector2{group.radius, group.targetRadius});
        print.Add(group.position);
        print.Add(group.velocity);
        print.Add(group.temperature);
        for (const Particle& particle : group.particles) {
            print.Add(particle.position);
            print.Add(particle.groupDirection);
            print.Add(particle.groupScale);
        }
    }
}

}  // namespace

TEST(Clusters, AreTheSameOnEveryBuild) {
    Fingerprint print;
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
        for (const auto& cluster : FindClusters(points)) {
            print.Add(static_cast<std::uint32_t>(cluster.size()));
            for (const std::size_t member : cluster) {
                print.Add(static_cast<std::uint32_t>(member));
            }
        }
    }
    EXPECT_EQ(print.value, 17923297342894330808u);
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

TEST(GroupFreeze, IsTheSameOnEveryBuild) {
    Fingerprint print;
    for (std::uint32_t seed = 0; seed < 200; ++seed) {
        Dice dice(seed);
        ParticleList particles;
        GroupList groups;
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
        Random::state = seed;
        GroupFreeze().Run(particles, groups);
        print.Add(Random::state);
        print.Add(static_cast<std::uint32_t>(particles.size()));
        AddGroups(print, groups);
    }
    EXPECT_EQ(print.value, 9515774735548709532u);
}

TEST(GroupMerge, IsTheSameOnEveryBuild) {
    Fingerprint print;
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
            group.targetRadius = 2.0f * std::sqrt(static_cast<float>(group.particles.size()));
            if (dice.Within(0.0f, 1.0f) < 0.1f) {
                group.particles.clear();
            }
        }
        MergeGroups(groups);
        AddGroups(print, groups);
    }
    EXPECT_EQ(print.value, 6199229177098754126u);
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
    MergeGroups(groups);
    std::vector<std::size_t> sizes;
    for (const ParticleGroup& group : groups) {
        if (!group.particles.empty()) {
            sizes.push_back(group.particles.size());
        }
    }
    EXPECT_EQ(sizes, (std::vector<std::size_t>{10, 9, 8, 6, 3, 2, 2}));
}

/// Adds a run in which the level turns and water freezes, thaws, boils, dies and leaves.
static void AddRandomRun(Fingerprint& print, std::uint32_t seed) {
    Dice dice(seed);
    const WaterWorld world(WaterLevels::CrowdedBowl(160.0f, 120.0f, dice.Within(0.0f, 1.0f)),
                           {80.0f, 60.0f});
    ParticleManager::CreateParticles(80.0f, 40.0f, 30.0f, 90);
    for (int i = 0; i < 120; ++i) {
        Camera::angle = dice.Within(-180.0f, 180.0f) * (i / 40 == 1 ? 1.0f : 0.2f);
        if (i % 30 == 20) {
            Camera::position += dice.Place(-400.0f, 400.0f);
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
        ParticleManager::Step(dice.Within(0.001f, 0.033f));
        const std::uint64_t state = WaterCheck::Hash() ^ Random::state;
        print.Add(static_cast<std::uint32_t>(state));
        print.Add(static_cast<std::uint32_t>(state >> 32));
    }
}

TEST(ParticleManager, StepsTheSameOnEveryBuild) {
    Fingerprint print;
    for (std::uint32_t seed = 0; seed < 12; ++seed) {
        AddRandomRun(print, seed);
    }
    EXPECT_EQ(print.value, 11235275598261699490u);
}
