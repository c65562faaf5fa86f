// The level's tree against its plain form, its edges cleaned where polygons touch, safe on
// hostile levels, and the ray cast on top of it.

#include "level/BspTree.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <string>

#include "level/BspEdges.h"
#include "level/BspWorlds.h"
#include "level/LevelData.h"
#include "reference/PlainEdges.h"
#include "reference/PlainTree.h"
#include "reference/Same.h"

namespace {

using Polygons = std::deque<LevelPolygon>;

/// An edge, and where it hangs in the tree if it is a node.
constexpr const char* fields[] = {"depth",    "front side",  "start.x",     "start.y",  "end.x",
                                  "end.y",    "direction.x", "direction.y", "normal.x", "normal.y",
                                  "friction", "length",      "polygon"};
using EdgeRow = Row<std::size(fields)>;

EdgeRow RowOf(const BspSegment& e, int depth = 0, bool isFront = false) {
    return {float(depth), float(isFront), e.start.x,           e.start.y,  e.end.x,
            e.end.y,      e.direction.x,  e.direction.y,       e.normal.x, e.normal.y,
            e.friction,   e.length,       float(e.polygon->id)};
}

std::vector<EdgeRow> RowsOf(const std::vector<BspSegment>& edges) {
    std::vector<EdgeRow> rows;
    for (const BspSegment& edge : edges) {
        rows.push_back(RowOf(edge));
    }
    return rows;
}

/// The tree from `node` down: the node, its back subtree, its front subtree.
void AddTree(const BspSegment* node, int depth, bool isFront, std::vector<EdgeRow>& rows) {
    if (node != nullptr) {
        rows.push_back(RowOf(*node, depth, isFront));
        AddTree(node->backChild, depth + 1, false, rows);
        AddTree(node->frontChild, depth + 1, true, rows);
    }
}

/// Calls `look` with random worlds, as they are and with mixed flags; polygons are numbered
/// by their ids.
template <class Look>
void ForEachWorld(Look look) {
    const auto both = [&](const char* kind, std::uint32_t seed, Polygons polygons) {
        for (const char* flags : {"", ", mixed flags"}) {
            std::uint32_t number = 0;
            for (LevelPolygon& polygon : polygons) {
                polygon.id = number++;
            }
            if (testing::Test::HasFatalFailure()) {
                return;
            }
            look(std::string(kind) + ", seed " + std::to_string(seed) + flags, polygons);
            BspWorlds::MixFlags(seed, polygons);
        }
    };
    for (std::uint32_t seed = 0; seed < 40; ++seed) {
        const int size = 3 + static_cast<int>(seed % 7) * 8;
        both("tiles", seed, BspWorlds::Tiles(seed, 2 + size / 8));
        both("boxes", seed, BspWorlds::Boxes(seed, size));
        both("stars", seed, BspWorlds::Stars(seed, size));
        both("skyline", seed, BspWorlds::Skyline(seed, size));
        both("nudged tiles", seed, BspWorlds::Nudged(seed, BspWorlds::Tiles(seed, 2 + size / 8)));
        both("nudged boxes", seed, BspWorlds::Nudged(seed, BspWorlds::Boxes(seed, size)));
    }
    both("many stars", 7, BspWorlds::Stars(7, 200));
    both("many tiles", 7, BspWorlds::Tiles(7, 44));
    both("round", 0, BspWorlds::Round(300, 1e5f));
    both("round, corners off by rounding", 0, BspWorlds::Round(300, 50.0f));
    for (std::uint32_t seed = 0; seed < 10; ++seed) {
        Polygons polygons = BspWorlds::Boxes(seed, 40);
        for (LevelPolygon& polygon : polygons) {
            for (std::size_t i = 0; i < polygon.PointCount(); ++i) {
                polygon.pointsX[i] = polygon.pointsX[i] * 7000003.0f - 1e9f;
                polygon.pointsY[i] = polygon.pointsY[i] * 7000003.0f + 2e8f * float(seed);
            }
        }
        both("boxes far away", seed, polygons);
    }
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

class BspTreeTest : public testing::Test {
protected:
    ~BspTreeTest() override { BspTree::Destroy(); }
};

TEST_F(BspTreeTest, TakesEdgesFromTheLastPolygonsLastSideOn) {
    // One outline each way round; the side of a hundredth is too short to be an edge.
    Polygons polygons{
        BspWorlds::Outline({{0.0f, 0.0f}, {10.0f, 0.0f}, {10.0f, 10.0f}, {10.0f, 10.009f}}),
        BspWorlds::Outline({{50.0f, 0.0f}, {50.0f, 10.0f}, {60.0f, 10.0f}}, 0)};
    polygons.back().solid = polygons.back().visible = 0;
    std::vector<Row<5>> edges;
    for (const BspSegment& edge : BspEdges::Collect(polygons)) {
        edges.push_back(
            {edge.start.x, edge.start.y, edge.normal.x, edge.normal.y, float(edge.cutOnly)});
    }
    ASSERT_EQ(edges.size(), 6u);
    EXPECT_EQ(edges[1], (Row<5>{60.0f, 10.0f, 0.0f, -1.0f, 1.0f}));
    EXPECT_EQ(edges[2], (Row<5>{50.0f, 10.0f, 1.0f, 0.0f, 1.0f}));
    EXPECT_EQ(edges[4], (Row<5>{10.0f, 0.0f, -1.0f, 0.0f, 0.0f}));
    EXPECT_EQ(edges[5], (Row<5>{0.0f, 0.0f, 0.0f, 1.0f, 0.0f}));
}

TEST_F(BspTreeTest, CleansEdgesAsThePlainFormDoes) {
    ForEachWorld([](const std::string& world, Polygons& polygons) {
        const std::vector<BspSegment> edges = BspEdges::Collect(polygons);
        ASSERT_TRUE(
            Same("edge", fields, RowsOf(BspEdges::Clean(edges)), RowsOf(Plain::CleanEdges(edges))))
            << world;
    });
}

TEST_F(BspTreeTest, BuildsThePlainFormsTree) {
    ForEachWorld([](const std::string& world, Polygons& polygons) {
        std::vector<Plain::TreeNode> plainNodes;
        Plain::BuildTree(BspEdges::Clean(BspEdges::Collect(polygons)), 1, false, plainNodes);
        std::vector<EdgeRow> plainRows;
        for (const auto& [segment, depth, isFront] : plainNodes) {
            plainRows.push_back(RowOf(segment, depth, isFront));
        }
        BspTree::Build(polygons);
        std::vector<EdgeRow> rows;
        AddTree(BspTree::Root(), 1, false, rows);
        ASSERT_TRUE(Same("node", fields, rows, plainRows)) << world;
        std::vector<BspSegment*> nodes;
        BspTree::CollectNodes(nodes);
        EXPECT_EQ(BspTree::Size(), static_cast<int>(nodes.size())) << world;
        EXPECT_TRUE(BspTree::Validate()) << world;
    });
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

TEST_F(BspTreeTest, BuildsAndWalksTreesAsDeepAsTheyAreLarge) {
    constexpr int corners = 3000;
    Polygons round = BspWorlds::Round(corners, 1e5f);
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
        LevelData::current.segmentsCollide[BspTree::NumberOf(*node)] =
            node->polygon == &polygons.back();
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

}  // namespace
