// The level's tree: equal to its plain form, cleaned where polygons touch, safe on hostile
// levels, and the ray cast and commands on top of it.

#include "level/BspTree.h"

#include <gtest/gtest.h>

#include <cstring>

#include "engine/Console.h"
#include "level/BspPlainTree.h"
#include "level/BspWorlds.h"

namespace {

using Polygons = std::list<LevelPolygon>;

/// All that a segment holds but its links, as text that tells every bit.
std::string Describe(const BspSegment& s) {
    char text[256];
    std::snprintf(text, sizeof text, "%a %a %a %a %a %a %a %a %a %a %d %d %p", s.start.x, s.start.y,
                  s.end.x, s.end.y, s.normal.x, s.normal.y, s.direction.x, s.direction.y, s.length,
                  s.friction, s.active, s.cutOnly, static_cast<void*>(s.polygon));
    return text;
}

void ExpectSameTree(const BspPlain::Node* plain, const BspSegment* node, const BspSegment* parent,
                    std::vector<std::string>& inOrder) {
    ASSERT_EQ(plain == nullptr, node == nullptr);
    if (!plain) {
        return;
    }
    ASSERT_EQ(Describe(plain->edge), Describe(*node));
    ASSERT_EQ(node->parent, parent);
    ExpectSameTree(plain->back.get(), node->backChild, node, inOrder);
    inOrder.push_back(Describe(*node));
    ExpectSameTree(plain->front.get(), node->frontChild, node, inOrder);
}

void ExpectPlainTree(Polygons& polygons) {
    const auto plain = BspPlain::Build(polygons);
    BspTree::Build(polygons);
    std::vector<std::string> inOrder;
    ASSERT_NO_FATAL_FAILURE(ExpectSameTree(plain.get(), BspTree::Root(), nullptr, inOrder));
    std::vector<BspSegment*> nodes;
    BspTree::CollectNodes(nodes);
    ASSERT_EQ(nodes.size(), inOrder.size());
    ASSERT_EQ(BspTree::Size(), static_cast<int>(inOrder.size()));
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        ASSERT_EQ(Describe(*nodes[i]), inOrder[i]);
    }
    EXPECT_TRUE(BspTree::Validate());
}

/// The nodes as "x y > x y" in CollectNodes order.
std::vector<std::string> NodeTexts() {
    std::vector<BspSegment*> nodes;
    BspTree::CollectNodes(nodes);
    std::vector<std::string> texts;
    for (const BspSegment* node : nodes) {
        char text[100];
        std::snprintf(text, sizeof text, "%g %g > %g %g", node->start.x, node->start.y, node->end.x,
                      node->end.y);
        texts.emplace_back(text);
    }
    return texts;
}

bool HasNode(const char* text) {
    const std::vector<std::string> texts = NodeTexts();
    return std::find(texts.begin(), texts.end(), text) != texts.end();
}

/// What a console line prints.
std::string Answer(const char* line) {
    Console::Clear();
    Console::Execute(line);
    return Console::OutputText();
}

/// The console comes and goes with each test; the tree too.
class BspTreeTest : public testing::Test {
protected:
    void SetUp() override { Console::Initialise(); }
    void TearDown() override {
        BspTree::Destroy();
        Console::Shutdown();
    }
};

TEST_F(BspTreeTest, EqualsItsPlainFormOnRandomWorlds) {
    for (std::uint32_t seed = 0; seed < 40; ++seed) {
        SCOPED_TRACE(seed);
        const int size = 3 + static_cast<int>(seed % 7) * 8;
        for (Polygons polygons :
             {BspWorlds::Tiles(seed, 2 + size / 8), BspWorlds::Boxes(seed, size),
              BspWorlds::Stars(seed, size), BspWorlds::Skyline(seed, size)}) {
            ASSERT_NO_FATAL_FAILURE(ExpectPlainTree(polygons));
            BspWorlds::MixFlags(seed, polygons);
            ASSERT_NO_FATAL_FAILURE(ExpectPlainTree(polygons));
        }
    }
}

TEST_F(BspTreeTest, EqualsItsPlainFormOnLargeWorlds) {
    for (Polygons polygons : {BspWorlds::Stars(7, 200), BspWorlds::Tiles(7, 44)}) {
        BspWorlds::MixFlags(7, polygons);
        ASSERT_NO_FATAL_FAILURE(ExpectPlainTree(polygons));
    }
}

TEST_F(BspTreeTest, EqualsItsPlainFormFarFromTheOrigin) {
    for (std::uint32_t seed = 0; seed < 10; ++seed) {
        Polygons polygons = BspWorlds::Boxes(seed, 40);
        for (LevelPolygon& polygon : polygons) {
            for (std::size_t i = 0; i < polygon.PointCount(); ++i) {
                polygon.pointsX[i] = polygon.pointsX[i] * 7000003.0f - 1e9f;
                polygon.pointsY[i] = polygon.pointsY[i] * 7000003.0f + 2e8f * float(seed);
            }
        }
        ASSERT_NO_FATAL_FAILURE(ExpectPlainTree(polygons)) << seed;
    }
}

TEST_F(BspTreeTest, CutsAwayWhatTouchingPolygonsShare) {
    // Two equal boxes side by side: the seam goes; lines go on where the list allows.
    Polygons pair{BspWorlds::Rectangle(0, 0, 10, 10), BspWorlds::Rectangle(10, 0, 20, 10)};
    BspTree::Build(pair);
    EXPECT_FALSE(HasNode("10 0 > 10 10"));
    EXPECT_FALSE(HasNode("10 10 > 10 0"));
    EXPECT_EQ(BspTree::EdgeCount(), 5u);

    // A short box on the middle of a long side leaves the side in two pieces.
    Polygons stack{BspWorlds::Rectangle(0, 10, 100, 20), BspWorlds::Rectangle(40, 0, 60, 10)};
    BspTree::Build(stack);
    EXPECT_TRUE(HasNode("0 10 > 40 10"));
    EXPECT_TRUE(HasNode("60 10 > 100 10"));
    EXPECT_FALSE(HasNode("60 10 > 40 10"));

    // What only cuts leaves nothing of its own, what a mover carries isn't there at all, and
    // what a trigger toggles is left whole.
    stack.back().solid = stack.back().visible = 0;
    BspTree::Build(stack);
    EXPECT_TRUE(HasNode("0 10 > 40 10"));
    EXPECT_EQ(BspTree::EdgeCount(), 5u);
    stack.back().solid = stack.back().movedByMover = 1;
    BspTree::Build(stack);
    EXPECT_EQ(BspTree::EdgeCount(), 4u);
    stack.back().movedByMover = 0;
    stack.back().toggledByTrigger = 1;
    BspTree::Build(stack);
    EXPECT_EQ(BspTree::EdgeCount(), 8u);
}

TEST_F(BspTreeTest, LinksTheSegmentsOfAPolygonToIt) {
    Polygons polygons = BspWorlds::Boxes(3, 25);
    BspWorlds::MixFlags(3, polygons);
    BspTree::Build(polygons);
    std::vector<BspSegment*> nodes;
    BspTree::CollectNodes(nodes);
    ASSERT_FALSE(nodes.empty());
    for (BspSegment* node : nodes) {
        EXPECT_EQ(node->friction, node->polygon->friction);
        node->active = 0;
    }
    BspTree::Reset();
    for (const BspSegment* node : nodes) {
        EXPECT_EQ(node->active, 1);
    }
}

TEST_F(BspTreeTest, BuildsAndWalksTreesAsDeepAsTheyAreLarge) {
    // A round polygon: every edge has all others on its solid side.
    std::vector<Vector2> points;
    constexpr int corners = 3000;
    for (int i = 0; i < corners; ++i) {
        const double angle = 2.0 * 3.14159265358979 * i / corners;
        points.push_back(
            {static_cast<float>(1e5 * std::cos(angle)), static_cast<float>(1e5 * std::sin(angle))});
    }
    Polygons round{BspWorlds::Outline(points)};
    BspTree::Build(round);
    EXPECT_GT(BspTree::Size(), corners - 20);
    EXPECT_GT(BspTree::Depth(), corners - 20);
    Vector2 hit{2e5f, 3.0f};
    EXPECT_TRUE(BspTree::CastRay({0.0f, 0.0f}, hit));
    EXPECT_NEAR(hit.x, 1e5f, 10.0f);

    // Thousands of edges on one line, apart from each other.
    Polygons line;
    for (int i = 0; i < 3000; ++i) {
        const auto x = static_cast<float>(3 * i);
        line.push_back(BspWorlds::Outline({{x, 0.0f}, {x + 2.0f, 0.0f}, {x + 1.0f, 1.0f}}));
    }
    BspTree::Build(line);
    EXPECT_GE(BspTree::Size(), 9000);
    EXPECT_TRUE(BspTree::Validate());
    // And all of them nested in each other.
    Polygons skyline = BspWorlds::Skyline(1, 3000);
    BspTree::Build(skyline);
    EXPECT_TRUE(BspTree::Validate());
}

TEST_F(BspTreeTest, CastsRaysToTheFirstActiveSegment) {
    Polygons polygons{BspWorlds::Rectangle(100, 0, 110, 100),
                      BspWorlds::Rectangle(200, 0, 210, 100)};
    polygons.back().toggledByTrigger = 1;
    BspTree::Build(polygons);
    Vector2 to{300.0f, 51.0f};
    BspSegment* hit = BspTree::CastRay({0.0f, 50.0f}, to);
    ASSERT_TRUE(hit);
    EXPECT_EQ(hit->polygon, &polygons.front());
    EXPECT_FLOAT_EQ(to.x, 100.0f);

    std::vector<BspSegment*> nodes;
    BspTree::CollectNodes(nodes);
    for (BspSegment* node : nodes) {
        node->active = node->polygon == &polygons.back();
    }
    to = {300.0f, 51.0f};
    hit = BspTree::CastRay({0.0f, 50.0f}, to);
    ASSERT_TRUE(hit);
    EXPECT_FLOAT_EQ(to.x, 200.0f);

    // Starting on a segment, active or not, hits at once, a little inside the ends.
    to = {-300.0f, 0.0f};
    ASSERT_TRUE(BspTree::CastRay({100.0f, 0.0f}, to));
    EXPECT_NEAR(Distance(to, {100.0f, 0.0f}), 0.025f, 1e-4f);

    to = {300.0f, -1.0f};
    EXPECT_FALSE(BspTree::CastRay({0.0f, -2.0f}, to));
    EXPECT_EQ(to, (Vector2{300.0f, -1.0f}));
    to = {5.0f, 5.0f};
    EXPECT_FALSE(BspTree::CastRay(to, to));
}

TEST_F(BspTreeTest, AnswersOnTheConsole) {
    Polygons none;
    BspTree::Build(none);
    EXPECT_NE(Answer("BspSize").find("0"), std::string::npos);
    EXPECT_NE(Answer("BspDepth").find("0"), std::string::npos);
    EXPECT_EQ(Answer("BspWalk ROOT").find("Walk options"), std::string::npos);

    Polygons box{BspWorlds::Rectangle(0, 0, 10, 10)};
    BspTree::Build(box);
    EXPECT_NE(Answer("BspSize").find("4"), std::string::npos);
    EXPECT_NE(Answer("BspDepth").find("4"), std::string::npos);
    EXPECT_NE(Answer("bspwalk root")
                  .find("\nAlready at root node.\nWalk options for current node: RIGHT "),
              std::string::npos);
    EXPECT_NE(Answer("BspWalk left").find("\nNo left child node at current node."),
              std::string::npos);
    EXPECT_NE(Answer("BspWalk Right").find("\nWalk options for current node: ROOT PARENT RIGHT "),
              std::string::npos);
    EXPECT_NE(Answer("BspWalk up")
                  .find("\nUnrecognised tree walk command. Valid commands are: \n"
                        "\nBspTreeWalk LEFT\nBspTreeWalk RIGHT"
                        "\nBspTreeWalk PARENT\nBspTreeWalk ROOT\n"
                        "\nWalk options for current node: ROOT PARENT RIGHT "),
              std::string::npos);
    for (const char* line : {"BspCast 1 2 3", "BspCast a b", "BspCast 1"}) {
        EXPECT_NE(Answer(line).find("\nUSAGE: BspCast < number > < number >"), std::string::npos);
    }
    EXPECT_NE(Answer("BspCast 5 -20").find("\nTotal rays cast:             524288"),
              std::string::npos);
    BspTree::Destroy();
    EXPECT_EQ(Answer("BspWalk ROOT").find("Walk options"), std::string::npos);
}

}  // namespace
