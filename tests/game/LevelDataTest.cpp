// Loading a level and failing to, through real files.

#include "game/LevelLife.h"
#include "level/LevelData.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "actors/Camera.h"
#include "actors/ForceManager.h"
#include "engine/Console.h"
#include "level/BspTree.h"
#include "level/DynamicPolygonRenderer.h"
#include "platform/Paths.h"
#include "support/TemporaryDirectory.h"
#include "support/TestLevelFile.h"

namespace {

class LevelDataTest : public testing::Test {
protected:
    LevelDataTest() {
        Platform::ForgetListings();
        Console::Clear();
    }
    ~LevelDataTest() override {
        LevelData::Unload();
        Platform::ForgetListings();
    }

    /// Writes and loads a level.
    bool Load(const LevelFile& file) { return LoadBytes(file.Serialise()); }
    bool LoadBytes(const std::vector<std::byte>& bytes) {
        directory.Write("lev/level.swah", TestLevelFile::Text(bytes));
        Platform::ForgetListings();
        return LevelData::Load("LEV\\LEVEL.SWAH");
    }
    static bool Printed(const std::string& text) {
        return Console::OutputText().find(text) != std::string::npos;
    }
    static LevelPolygon& Polygon(std::size_t index) { return LevelData::polygons[index]; }
    static PolygonState& State(std::size_t index) { return LevelData::current.polygons[index]; }

    TemporaryDirectory directory;
    WorkingDirectoryGuard inDirectory{directory.path};
};

/// Two boxes apart, of the given ids.
LevelFile TwoBoxes(std::uint32_t firstId = 1, std::uint32_t secondId = 2) {
    LevelFile file;
    file.polygons = {TestLevelFile::Box(0, 0, 100, 50, firstId),
                     TestLevelFile::Box(200, 0, 300, 50, secondId)};
    return file;
}

std::vector<float> Corners() {
    std::vector<float> all;
    for (const LevelPolygon& polygon : LevelData::polygons) {
        all.insert(all.end(), polygon.pointsX.begin(), polygon.pointsX.end());
        all.insert(all.end(), polygon.triangleX.begin(), polygon.triangleX.end());
    }
    return all;
}

}  // namespace

TEST_F(LevelDataTest, ReadsFlagsAsANumber) {
    LevelFile file;
    for (const std::uint32_t flags : {0u, 1u, 2u, 3u, 7u}) {
        const int x = static_cast<int>(flags) * 100;
        file.polygons.push_back(TestLevelFile::Box(x, 0, x + 50, 50));
        file.polygons.back().flags = flags;
    }
    ASSERT_TRUE(Load(file));
    std::string found;
    for (const LevelPolygon& polygon : LevelData::polygons) {
        found += std::to_string(polygon.visible) + std::to_string(polygon.solid) + " ";
    }
    EXPECT_EQ(found, "11 10 01 00 11 ");
}

TEST_F(LevelDataTest, MakesTheDirectionOfAForceAUnitTwice) {
    LevelFile file;
    const Vector2 written{1.0f, 1.0f};  // the second division changes a last bit
    file.forces = {{.id = 5, .position = {3, 4}, .direction = written, .strength = 2.0f},
                   {.id = 6, .position = {3, 4}, .direction = {}, .strength = 2.0f}};
    ASSERT_TRUE(Load(file));
    Vector2 once = written;
    Normalise(once);
    Vector2 twice = once;
    Normalise(twice);
    ASSERT_NE(once, twice);
    EXPECT_EQ(ForceManager::forces.front().direction, twice);
    EXPECT_EQ(ForceManager::forces.front().strength, 20.0f);
    EXPECT_EQ(ForceManager::forces.back().direction, (Vector2{1.0f, 0.0f}));
}

TEST_F(LevelDataTest, KeepsWhatMoversCarryOutOfTheTree) {
    LevelFile file = TwoBoxes(1, 2);
    file.movers = {{2, 10.0f, {0, 0}, {50, 0}}};
    file.triggers.resize(3);
    file.triggers[0] = {1, 301, 0.0f, {}};
    file.triggers[1] = {2, 100, 0.0f, {}};
    ASSERT_TRUE(Load(file));
    EXPECT_EQ(Polygon(0).toggledByTrigger, 1);
    EXPECT_EQ(Polygon(0).movedByMover, 0);
    EXPECT_EQ(Polygon(1).toggledByTrigger, 0);
    EXPECT_EQ(Polygon(1).movedByMover, 1);
    EXPECT_EQ(BspTree::Size(), 4);
    EXPECT_TRUE(LevelData::polygonSegments.contains(&Polygon(0)));
    EXPECT_FALSE(LevelData::polygonSegments.contains(&Polygon(1)));
    EXPECT_EQ(DynamicPolygonRenderer::PolygonCount(), 2u);
}

TEST_F(LevelDataTest, KeepsTheOldLevelWhenALoadFails) {
    ASSERT_TRUE(Load(TwoBoxes()));
    const std::vector<float> corners = Corners();
    const LevelPolygon* const first = &Polygon(0);
    const auto untouched = [&] {
        return Corners() == corners && &Polygon(0) == first && BspTree::Size() == 8 &&
               LevelData::polygonSegments.size() == 2;
    };
    auto bytes = TestLevelFile::Rich().Serialise();
    const auto whole = bytes;
    for (std::size_t size = 0; size < whole.size(); size += 37) {
        bytes.resize(size);
        EXPECT_FALSE(LoadBytes(bytes));
        EXPECT_TRUE(untouched()) << size;
        bytes = whole;
    }
    EXPECT_TRUE(
        Printed("\nError reading level file 'LEV\\LEVEL.SWAH'\nReason: Unable to read "
                "file"));

    TestLevelFile::Patch(bytes, 4, 11);
    EXPECT_FALSE(LoadBytes(bytes));
    EXPECT_TRUE(
        Printed("\nInvalid level file version. Version is 11. Version used by game is "
                "12.\nError reading level file 'LEV\\LEVEL.SWAH'\nReason: Invalid level "
                "file version."));
    EXPECT_FALSE(LevelData::Load("LEV\\OTHER.SWAH"));
    EXPECT_TRUE(Printed("\nUnable to open level file 'LEV\\OTHER.SWAH'"));
    EXPECT_TRUE(untouched());
}

TEST_F(LevelDataTest, QueuesMovedPolygonsInViewByTexture) {
    LevelFile file;
    const std::array<const char*, 4> textures{"b", "a", "b", "a"};
    for (const char* const texture : textures) {
        file.polygons.push_back(TestLevelFile::Box(0, 0, 10, 10, 5));
        file.polygons.back().texture = texture;
        file.polygons.back().layer = 2;
    }
    file.polygons.push_back(TestLevelFile::Box(5000, 0, 5010, 10, 5));
    file.polygons.push_back(TestLevelFile::Box(20, 0, 30, 10, 6));
    file.movers = {{5, 1.0f, {0, 0}, {1, 0}}};
    ASSERT_TRUE(Load(file));
    Camera::position = {};
    Camera::shakeOffset = {};
    Camera::zoom = 1.0f;
    const auto queued = [](int layer) {
        DynamicPolygonRenderer::PrepareDraw(Camera::Look());
        std::vector<const LevelPolygon*> polygons;
        while (const LevelPolygon* const polygon = DynamicPolygonRenderer::TakeQueued(layer)) {
            polygons.push_back(polygon);
        }
        return polygons;
    };
    const auto all = queued(2);
    ASSERT_EQ(all.size(), 4u);
    EXPECT_TRUE(std::is_sorted(all.begin(), all.end(), [](const auto* a, const auto* b) {
        return a->texture < b->texture;
    }));
    EXPECT_TRUE(queued(0).empty());
    State(4).offset = {-5000.0f, 0.0f};
    EXPECT_EQ(queued(0).size(), 1u);
    State(4).enabled = 0;
    EXPECT_TRUE(queued(0).empty());
}
