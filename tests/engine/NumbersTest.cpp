// Random numbers and geometry.

#include <gtest/gtest.h>

#include "engine/Geometry.h"
#include "engine/Random.h"

// The expected words were computed apart from this code, with Python's floats and integers.
TEST(Random, DrawsTheSameSequenceInEveryBuild) {
    Random::state = 0;
    for (const std::uint32_t word : {0x59fe3544u, 0x5b380f0fu, 0x5b67a2a8u, 0x5bebf2d5u}) {
        EXPECT_EQ(Random::Next(), word);
    }
    std::uint64_t hash = 14695981039346656037u;
    Random::state = 0;
    for (int i = 0; i < 100000; ++i) {
        const std::uint32_t word = Random::Next();
        for (int shift = 0; shift < 32; shift += 8) {
            hash = (hash ^ ((word >> shift) & 255)) * 1099511628211u;
        }
    }
    EXPECT_EQ(hash, 0x8232a3df62b790ecu);
    EXPECT_EQ(Random::state, 0x5bd36186u);
}

TEST(Geometry, SegmentsCrossUnlessTheyShareAnEnd) {
    EXPECT_TRUE(SegmentsCross({0, 0}, {4, 4}, {0, 4}, {4, 0}));
    EXPECT_TRUE(SegmentsCross({0, 0}, {4, 0}, {2, 0}, {2, 5}));  // ends inside the other
    EXPECT_FALSE(SegmentsCross({0, 0}, {4, 0}, {4, 0}, {4, 5}));
    EXPECT_FALSE(SegmentsCross({0, 0}, {4, 0}, {1, 0}, {3, 0}));
    EXPECT_FALSE(SegmentsCross({0, 0}, {4, 0}, {5, -1}, {5, 1}));
    EXPECT_FALSE(SegmentsCross({0, 0}, {0, 0}, {-1, -1}, {1, 1}));
}
