// Worlds as values: copies go on by themselves and alike, alone or side by side.

#include "game/World.h"

#include <gtest/gtest.h>

#include <array>
#include <thread>
#include <vector>

#include "game/Game.h"
#include "game/HeadlessGame.h"
#include "game/RunRecorder.h"
#include "game/StateHash.h"
#include "platform/DataRoot.h"
#include "support/Places.h"

namespace {

/// A shipped level that freezes, boils, moves and blows, so many steps into its run.
class ShippedLevel : public testing::Test {
protected:
    ShippedLevel() { Platform::UseDataRoot(SourceDirectory() / "data"); }
    void PlayInto(const std::string& name, std::size_t steps) {
        std::string reason;
        auto run = ReadRun(SourceDirectory() / "levels" / (name + ".run"), reason);
        ASSERT_TRUE(run) << reason;
        viewSize = {run->viewWidth, run->viewHeight};
        rest.assign(run->steps.begin() + static_cast<std::ptrdiff_t>(steps), run->steps.end());
        const std::string level = run->level;
        RunRecorder::Replay(std::move(*run));
        ASSERT_TRUE(game.Start(level));
        for (std::size_t i = 0; i < steps; ++i) {
            ASSERT_TRUE(Game::StepReplay());
        }
    }
    /// The state's hash after each of the rest's first steps.
    std::vector<std::uint64_t> Play(World& world, std::size_t steps) const {
        WorldWorkspace work;
        std::vector<std::uint64_t> hashes;
        for (std::size_t i = 0; i < steps; ++i) {
            StepWorld(world.Parts(work), rest[i], viewSize);
            hashes.push_back(StateHash(world.Parts(work)));
        }
        return hashes;
    }

    HeadlessGame game{1280, 720};
    std::vector<RunStep> rest;
    Vector2 viewSize;
};

template <class T>
std::size_t BytesOf(const std::vector<T>& list) {
    return list.size() * sizeof(T);
}

std::size_t BytesOf(const World& world) {
    std::size_t bytes = sizeof(World) + BytesOf(world.level.polygons) +
                        BytesOf(world.level.segmentsCollide) + BytesOf(world.water.particles) +
                        BytesOf(world.effects.emitters) + BytesOf(world.effects.particles) +
                        BytesOf(world.actors.movers) + BytesOf(world.actors.forces) +
                        BytesOf(world.actors.objects) + BytesOf(world.actors.animatedObjects) +
                        BytesOf(world.actors.triggers);
    for (const ParticleGroup& group : world.water.groups) {
        bytes += sizeof(group) + BytesOf(group.particles);
    }
    return bytes;
}

}  // namespace

TEST_F(ShippedLevel, GoesOnInACopyAsInPlay) {
    for (const char* const name :
         {"testLevel", "02_sluice", "03_cellar", "04_boilers", "05_icestore", "06_turbines",
          "07_filters", "08_clocktower", "09_pipes", "10_sea"}) {
        ASSERT_NO_FATAL_FAILURE(PlayInto(name, 600));
        World copy = CopyWorldInPlay();
        const World kept = copy;
        EXPECT_LT(BytesOf(copy), 64u * 1024u) << name;
        const std::vector<std::uint64_t> hashes = Play(copy, 600);
        for (std::size_t i = 0; i < hashes.size(); ++i) {
            ASSERT_TRUE(Game::StepReplay());
            ASSERT_EQ(StateHash(), hashes[i]) << name << ", step " << i;
        }
        PutInPlay(kept);
        EXPECT_NE(StateHash(), hashes.back());
        PutInPlay(copy);
        EXPECT_EQ(StateHash(), hashes.back());
    }
}

TEST_F(ShippedLevel, IsPlayedOnSeveralThreadsAtOnce) {
    ASSERT_NO_FATAL_FAILURE(PlayInto("05_icestore", 300));
    std::array<World, 3> worlds;
    worlds.fill(CopyWorldInPlay());
    std::array<std::vector<std::uint64_t>, 3> hashes;
    {
        std::vector<std::jthread> threads;
        for (std::size_t i = 0; i < worlds.size(); ++i) {
            threads.emplace_back([&, i] { hashes[i] = Play(worlds[i], 300); });
        }
    }
    for (std::size_t i = 0; i < 300; ++i) {
        ASSERT_TRUE(Game::StepReplay());
        for (const auto& found : hashes) {
            ASSERT_EQ(found[i], StateHash()) << i;
        }
    }
}
