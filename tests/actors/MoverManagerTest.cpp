#include "actors/MoverManager.h"

#include <gtest/gtest.h>

#include "level/Collision.h"
#include "support/TestWorld.h"

namespace {

using TestLevel::Box;

TEST(MoverManager, MakesCollidersOfSolidPolygonsWithTrianglesOnly) {
    TestWorld world;
    LevelPolygon ghost = Box(0.0f, 0.0f, 20.0f, 20.0f);
    ghost.solid = 0;
    LevelPolygon& moved = TestWorld::Add(ghost, 1);
    TestWorld::Add(TestLevel::Polygon({{0.0f, 0.0f}, {20.0f, 20.0f}, {20.0f, 0.0f}, {0.0f, 20.0f}}),
                   1);
    TestWorld::Add(LevelPolygon{}, 1);
    TestWorld::AddMover(1, {}, {100.0f, 0.0f}, 10.0f, Mover::GoingToEnd);
    EXPECT_TRUE(MoverManager::colliders.empty());
    MoverManager::Step(Camera::Look(), 0.5f);
    EXPECT_EQ(LevelData::StateOf(moved).offset, (Vector2{5.0f, 0.0f}));
}

TEST(MoverManager, OffersTheEdgesNearTheCameraToQueries) {
    TestWorld world;
    LevelPolygon& near = TestWorld::Add(Box(-20.0f, 0.0f, 20.0f, 20.0f), 1);
    // The square reaches 560 units from the camera at zoom 1.
    TestWorld::Add(Box(560.0f, 0.0f, 600.0f, 20.0f), 2);
    TestWorld::Add(Box(560.5f, 0.0f, 600.0f, 20.0f), 2);
    TestWorld::AddMover(1, {}, {0.0f, 100.0f}, 100.0f, Mover::GoingToEnd);
    TestWorld::AddMover(2, {}, {}, 0.0f);
    TestWorld::Start();
    MoverManager::CollectVisible(Camera::Look());
    EXPECT_EQ(MoverManager::nearEdges.size(), 8u);

    MoverManager::Step(Camera::Look(), 0.1f);
    MoverManager::CollectVisible(Camera::Look());
    Vector2 circle{0.0f, 9.0f};
    EXPECT_TRUE(Collision::CollideCircle(circle, 2.0f));
    EXPECT_EQ(circle, (Vector2{0.0f, 8.0f}));
    EXPECT_FALSE(Collision::CollideCircleStatic(circle, 2.0f));

    LevelData::SetPolygonSolid(near, false);
    MoverManager::CollectVisible(Camera::Look());
    EXPECT_EQ(MoverManager::nearEdges.size(), 4u);
    EXPECT_FALSE(Collision::CollideCircle(circle, 2.0f));
}

}  // namespace
