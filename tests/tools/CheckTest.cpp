// What `check` finds, and the exact forms that the other commands print.

#include <sys/stat.h>

#include <algorithm>

#include "ToolRun.h"
#include "engine/Version.h"
#include "level/TriggerTypes.h"

namespace {

class Check : public ToolTest {
protected:
    Check() {
        // The water starts away from everything.
        level.waterStart = {-500, -500};
        for (const char* name : {"metal", "wood", "stone", "cloth", "sand"}) {
            surfaces += std::string(name) + " 0.5\n";
        }
    }

    /// The problem lines; the status must say whether one of them is an error. The level gets
    /// a finish, and a wide area far below that takes what falls out of it.
    std::string Problems() {
        LevelFile whole = level;
        whole.triggers.push_back({0, 801, 0.0f, {{-900, 0}, {-890, 0}, {-890, 9}, {-900, 9}}});
        whole.triggers.push_back(
            {0, 701, 0.0f, {{-9000, 5000}, {9000, 5000}, {9000, 5100}, {-9000, 5100}}});
        return ProblemsOf(whole);
    }
    std::string ProblemsOf(const LevelFile& file) {
        WriteLevel("a.swah", file);
        const Outcome outcome = Run("check a.swah --data .");
        const std::size_t counts = outcome.out.find("emitters ");
        const std::string problems = outcome.out.substr(outcome.out.find('\n', counts) + 1);
        EXPECT_EQ(outcome.error, "");
        EXPECT_EQ(outcome.status, problems.find("error: ") == std::string::npos ? 0 : 1);
        return problems;
    }
    void AddTrigger(TriggerKind kind, std::uint32_t target) {
        level.triggers.push_back({target,
                                  static_cast<std::uint32_t>(kind),
                                  0.0f,
                                  {{-900, 0}, {-890, 0}, {-890, 9}, {-900, 9}}});
    }

    LevelFile level;
    std::string surfaces;
};

TEST_F(Check, CountsAndAcceptsASoundLevel) {
    level.polygons = {Box(0, 0, 10, 10), Box(10, 0, 20, 10), Box(0, 10, 20, 20)};
    EXPECT_EQ(Problems(), "");
    EXPECT_EQ(Read("out.txt"),
              "polygons 3\nobjects 0\nforces 0\nmovers 0\ntriggers 2\nsounds 0\nemitters 0\n");
}

TEST_F(Check, FindsPolygonsWithoutTriangles) {
    level.polygons.resize(3);
    level.polygons[1].points = {{0, 0}, {10, 10}, {10, 0}, {0, 5}};
    level.polygons[2].points = {{0, 0}, {10, 0}, {10, 10}, {5, 0}};
    EXPECT_EQ(Problems(),
              "error: polygon 0: has no triangles: it has fewer than three points\n"
              "error: polygon 1: has no triangles: its outline crosses itself\n"
              "error: polygon 2: has no triangles: corner (5, 0) touches another side of its "
              "outline\n");
}

TEST_F(Check, FindsOverlapsAndTwinsButNoTouching) {
    level.polygons = {Box(0, 0, 10, 10), Box(10, 2, 20, 8), Box(8, 2, 9, 8), Box(0, 0, 10, 10)};
    level.polygons[3].points = {{10, 10}, {10, 0}, {0, 0}, {0, 10}};
    EXPECT_EQ(Problems(),
              "warning: polygon 3: is identical to polygon 0\n"
              "warning: polygon 0: overlaps polygon 2\n"
              "warning: polygon 2: overlaps polygon 3\n");
    // Moved and switched solids may stand inside others.
    level.polygons[2].id = level.polygons[3].id = 5;
    level.polygons[3].flags = 3;
    level.movers = {{5, 1.0f, {0, 0}, {9, 9}}};
    AddTrigger(TriggerKind::MoverGoToEndOnce, 5);
    EXPECT_EQ(Problems(), "");
}

TEST_F(Check, FindsEdgesInLineThatDiffer) {
    level.polygons = {Box(10, 0, 20, 10), Box(0, 0, 10, 10)};
    level.polygons[0].surface = 2;
    EXPECT_EQ(Problems(),
              "warning: polygon 1: an edge runs on in line as one of polygon 0 at (10, 0) and "
              "takes on its surface\n");
    // A cutting polygon takes the solid's upper and lower edges with it.
    level.polygons = {Box(10, 0, 20, 10, 3), Box(0, 0, 10, 10)};
    EXPECT_NE(Problems().find("a cutting and a solid edge in line become one"), std::string::npos)
        << Read("out.txt");
}

TEST_F(Check, FindsDeadTargetsAndTriggersWithoutArea) {
    level.polygons = {Box(0, 100, 10, 110)};
    level.polygons[0].id = 7;
    AddTrigger(TriggerKind::MoverGoToStartOnce, 7);
    AddTrigger(TriggerKind::EntityRemove, 0);
    AddTrigger(TriggerKind::EntityRemove, 8);
    AddTrigger(TriggerKind::SoundPlay, 0);
    AddTrigger(static_cast<TriggerKind>(777), 0);
    AddTrigger(TriggerKind::LevelEnd, 9);
    level.triggers.push_back({0, 801, 0.0f, {{0, 0}, {5, 5}, {9, 9}, {5, 5}}});
    EXPECT_EQ(Problems(),
              "error: trigger 0: no mover bears its target id 7\n"
              "warning: trigger 1: has target id 0: it acts on nothing, but takes all polygons of "
              "id 0 out of the edge cleaning\n"
              "error: trigger 2: no polygon or object or force bears its target id 8\n"
              "error: trigger 3: no sound bears its target id 0\n"
              "warning: trigger 4: has the unknown type 777 and does nothing\n"
              "warning: trigger 5: nothing bears its target id 9, nor does its type need one\n"
              "warning: trigger 6: has no area\n");
}

TEST_F(Check, FindsTriggersInsideOfSolids) {
    level.polygons = {Box(0, 0, 100, 100)};
    level.polygons[0].points = {{0, 0},   {100, 0}, {100, 100}, {60, 100},
                                {60, 50}, {40, 50}, {40, 100},  {0, 100}};
    level.triggers = {{0, 901, 0.0f, {{0, 0}, {100, 0}, {100, 50}, {0, 40}}},
                      // Across the notch, and reaching out.
                      {0, 901, 0.0f, {{10, 60}, {90, 60}, {90, 90}, {10, 90}}},
                      {0, 901, 0.0f, {{10, 10}, {20, 10}, {20, 20}, {10, -1}}}};
    EXPECT_EQ(Problems(), "warning: trigger 0: lies inside polygon 0, where no water comes\n");
    // A solid that can be taken away, or that another cuts into, may let water in.
    level.polygons.push_back(Box(90, 0, 100, 100, 3));
    EXPECT_EQ(Problems(), "");
    level.polygons.pop_back();
    level.polygons[0].id = 3;
    AddTrigger(TriggerKind::EntityRemove, 3);
    EXPECT_EQ(Problems(), "");
}

TEST_F(Check, FindsTargetsWithoutEffect) {
    Write("img/still.png", "x");
    Write("img/a_frame1.png", "x");
    Write("img/a_frame2.png", "x");
    level.objects = {{4, "img\\still.png", 0, {}, 0}, {5, "img\\a_frame1.png", 0, {}, 0}};
    level.polygons = {Box(0, 100, 10, 110, 1)};
    level.polygons[0].id = 6;
    level.movers = {{6, 1.0f, {0, 0}, {9, 9}}};
    level.forces = {{8, {}, {}, 1.0f}, {9, {}, {}, 1.0f}};
    AddTrigger(TriggerKind::AnimPlayLoop, 4);
    AddTrigger(TriggerKind::AnimPlayOnce, 5);
    AddTrigger(TriggerKind::EntityAdd, 6);
    AddTrigger(TriggerKind::MoverLoopToStartOnce, 6);
    AddTrigger(TriggerKind::ForcePull, 8);
    level.triggers[4].delay = 1.0f;
    EXPECT_EQ(Problems(),
              "warning: polygon 0: is moved and not solid at the start: no trigger makes it "
              "solid\n"
              "warning: force 1: no trigger lets it act\n"
              "warning: trigger 0: no object of its target id 4 has more than one frame\n"
              "warning: trigger 4: has a delay, which its type doesn't heed\n");
}

TEST_F(Check, FindsMoversThatDontWork) {
    level.polygons = {Box(0, 100, 10, 110)};
    level.polygons[0].id = 6;
    std::ranges::reverse(level.polygons[0].points);
    level.movers = {{6, 230.0f, {0, 0}, {9, 9}},
                    {6, 220.0f, {0, 0}, {9, 9}},
                    {7, 0.0f, {0, 0}, {0, 0}},
                    {6, -1.0f, {0, 0}, {9, 9}}};
    AddTrigger(TriggerKind::MoverGoToEndOnce, 6);
    AddTrigger(TriggerKind::MoverGoToStartOnce, 7);  // it stands there already
    EXPECT_EQ(Problems(),
              "warning: polygon 0: is moved and runs the other way round: it crushes no water\n"
              "warning: mover 0: is faster than 220 units a second: what its polygons push dies\n"
              "warning: mover 2: no polygon or object bears its id 7\n"
              "warning: mover 2: has a path of no length\n"
              "warning: mover 2: no trigger sets it going\n"
              "warning: mover 2: has no speed\n"
              "warning: mover 3: has a speed below 0 and leaves its path\n");
}

TEST_F(Check, FindsMovingSidesInLineWithWalls) {
    const std::string push = ", carried by mover 0: ";
    // A lift between two walls, of which the right one begins further up.
    level.polygons = {Box(0, 0, 10, 200), Box(110, 0, 120, 100), Box(10, 150, 110, 170)};
    level.polygons[2].id = 6;
    level.movers = {{6, 50.0f, {0, 0}, {0, -120}}};
    AddTrigger(TriggerKind::MoverGoToEndOnce, 6);
    const auto problems = [&](int left, int right) {
        level.polygons[2] = Box(left, 150, right, 170);
        level.polygons[2].id = 6;
        return Problems();
    };
    const std::string found = problems(10, 110);
    EXPECT_EQ(std::ranges::count(found, '\n'), 2) << found;
    for (const char* wall : {"0 near (10, 100)", "1 near (110, 65)"}) {
        EXPECT_NE(found.find("warning: polygon 2: slides along a side of polygon " +
                             std::string(wall) + push),
                  std::string::npos)
            << found;
    }
    // A gap is as bad as a side that is hardly in the wall; wider and deeper ones are harmless.
    EXPECT_EQ(std::ranges::count(problems(11, 111), '\n'), 2);
    EXPECT_EQ(problems(12, 112), "");

    // A slab that moves from one wall to the other.
    level.polygons = {Box(0, 0, 10, 200), Box(110, 0, 120, 200), Box(10, 50, 60, 70)};
    level.polygons[2].id = 6;
    level.polygons[1].points[3].x = 111;
    level.movers[0].end = {50, 0};
    const std::string ends = Problems();
    EXPECT_NE(ends.find("polygon 2: starts its way in line with a side of polygon 0 near (10, 60)"),
              std::string::npos)
        << ends;
    EXPECT_NE(ends.find("polygon 2: ends its way in line with a side of polygon 1 near (110, 60)"),
              std::string::npos)
        << ends;
    level.movers[0].end = {53, 0};
    level.polygons[2].points[0].x = level.polygons[2].points[3].x = 8;
    EXPECT_EQ(Problems(), "");
}

TEST_F(Check, FindsThinWallsButNoSpikesNorWallsOfTwoLeaves) {
    level.polygons = {Box(0, 0, 3, 100), Box(20, 0, 23, 100), Box(23, 0, 26, 100),
                      Box(40, 0, 44, 100), Box(60, 0, 160, 100)};
    level.polygons[4].points = {{60, 0}, {160, 50}, {60, 20}};
    EXPECT_EQ(Problems(),
              "warning: polygon 0: is thinner than 4 near (0, 50): drops pass through\n");
}

TEST_F(Check, FindsSeamsOfWhichOneSideIsJoined) {
    // Below 0.81 degrees the two lower sides become one, and those of the floor don't.
    level.polygons = {Box(0, 0, 1, 1), Box(0, 0, 1, 1), Box(0, 0, 1, 1)};
    level.polygons[0].points = {{0, 0}, {130, 6}, {140, 60}, {-10, 60}, {-10, 0}};
    level.polygons[0].points.insert(level.polygons[0].points.begin() + 1, {40, 2});
    level.polygons[1].points = {{0, 0}, {14, -9}, {30, -7}, {40, 2}};
    level.polygons[2].points = {{40, 2}, {60, -13}, {100, -11}, {130, 6}};
    level.polygons[0].surface = 3;
    const std::string found = Problems();
    EXPECT_NE(found.find("has an edge inside of another solid near ("), std::string::npos) << found;
    for (LevelFile::Polygon& polygon : level.polygons) {
        std::ranges::replace(polygon.points, LevelFile::Point{40, 2}, LevelFile::Point{40, 3});
    }
    EXPECT_EQ(Problems(), "");
}

TEST_F(Check, FindsLevelsWithoutFinishAndWithAnOpenBottom) {
    const std::string noFinish = "warning: level 0: has no finish: water reaches no Level_end_a\n";
    // A vessel whose floor has a hole 20 wide, behind a chicane.
    level.polygons = {Box(0, 0, 10, 200),      Box(190, 0, 200, 200),  Box(10, 190, 100, 200),
                      Box(120, 190, 190, 200), Box(60, 150, 190, 160), Box(10, 0, 190, 10)};
    level.waterStart = {100, 100};
    const std::string open = ProblemsOf(level);
    EXPECT_TRUE(open.starts_with(noFinish + "warning: level 0: is open at the bottom near ("))
        << open;
    EXPECT_EQ(Problems(), "");
    // Closed by a solid, by an area in the hole that kills, or by nothing that lasts.
    level.polygons.push_back(Box(100, 190, 120, 200));
    EXPECT_EQ(ProblemsOf(level), noFinish);
    level.polygons[6].id = 2;
    AddTrigger(TriggerKind::EntityRemove, 2);
    EXPECT_EQ(ProblemsOf(level), open);
    level.triggers.push_back({0, 702, 0.0f, {{100, 190}, {120, 190}, {120, 200}, {100, 200}}});
    EXPECT_EQ(ProblemsOf(level), noFinish);
}

TEST_F(Check, FindsMissingFiles) {
    Write("img/there.png", "x");
    Write("img/anim_frame1.png", "x");
    Write("cfg/spray.cfg", "texture1 img\\gone.png\n");
    level.polygons = {Box(0, 0, 10, 10), Box(20, 0, 30, 10)};
    level.polygons[0].texture = "IMG\\There.png";
    level.polygons[1].texture = "..\\img\\there.png";
    level.objects = {{0, "img\\anim_FRAME1.png", 0, {}, 0}, {0, "img\\other_FRAME.png", 0, {}, 0}};
    level.sounds = {{0, {}, 9, 0, "snd\\gone.wav"}};
    level.emitters = {{0, {}, {}, "cfg\\spray.cfg"}, {0, {}, {}, "cfg\\gone.cfg"}};
    EXPECT_EQ(Problems(),
              "error: polygon 1: texture \"..\\img\\there.png\" isn't there\n"
              "error: object 1: texture \"img\\other_FRAME.png\" isn't there\n"
              "error: sound 0: sound \"snd\\gone.wav\" isn't there\n"
              "error: emitter 0: texture \"img\\gone.png\" isn't there\n"
              "error: emitter 1: settings file \"cfg\\gone.cfg\" isn't there\n");
}

TEST_F(Check, FindsWaterThatStartsInOrAtASolid) {
    level.polygons = {Box(0, 0, 10, 10), Box(30, 0, 40, 10, 1)};
    level.waterStart = {5, 5};
    EXPECT_EQ(Problems(), "error: start 0: the water starts inside polygon 0\n");
    level.waterStart = {5, -11};
    EXPECT_EQ(Problems(), "warning: start 0: the water starts closer than 12 to polygon 0\n");
    level.waterStart = {35, 5};
    EXPECT_EQ(Problems(), "");
}

TEST_F(Check, PrintsTrianglesTreeAndCollisions) {
    level.polygons = {Box(0, 0, 10, 10), Box(20, 0, 30, 10, 1)};
    Write("cfg/surfaces.cfg", surfaces);
    WriteLevel("a.swah", level);
    EXPECT_EQ(Run("triangles a.swah").out,
              "POLYGON 0 1 2\n0 0 10 0 10 10\n0 0 10 10 0 10\n"
              "POLYGON 1 1 2\n20 0 30 0 30 10\n20 0 30 10 20 10\n");
    const std::string tree = Run("bsp a.swah --data .").out;
    EXPECT_TRUE(tree.starts_with("EDGES 4\nSIZE 4\nDEPTH 4\nNODE ")) << tree;
    EXPECT_EQ(std::count(tree.begin(), tree.end(), '\n'), 7);
    EXPECT_NE(tree.find("NODE 0 0 10 0 -0 1 10 "), std::string::npos) << tree;
    Write("queries", "5 -1 2\n\n5 -100 2\n");
    EXPECT_EQ(Run("collide a.swah queries --data .").out.substr(0, 14), "HIT 1 5 -2 0 1");
    EXPECT_NE(Read("out.txt").find("\nHIT 0 5 -100 0 0 1\n"), std::string::npos);
    Write("queries", "5 -1 2\n5 one 2\n");
    const Outcome bad = Run("collide a.swah queries");
    EXPECT_EQ(bad.status, 1);
    EXPECT_EQ(bad.error, "vantrel-level: queries:2: expected \"x y r\"\n");
}

using Arguments = ToolTest;

TEST_F(Arguments, TellUseVersionAndMistakes) {
    EXPECT_EQ(Run("--version").out, std::string("vantrel-level ") + programVersion + "\n");
    EXPECT_EQ(Run("compile --help").status, 0);
    for (const char* bad : {"", "melt a", "compile a", "compile -o b", "check", "check a b",
                            "check a --fast", "collide a", "bsp a --data", "check a -o b"}) {
        const Outcome outcome = Run(bad);
        EXPECT_EQ(outcome.status, 2) << bad;
        EXPECT_EQ(outcome.out, "") << bad;
        EXPECT_EQ(std::count(outcome.error.begin(), outcome.error.end(), '\n'), 1) << bad;
    }
}

TEST_F(Arguments, UnusableFilesGiveOneLineAndStatus1) {
    Write("short", "\x97\x13");
    Write("old", std::string("\x97\x13\x8F\x00\x0B\x00\x00\x00", 8));
    for (const char* command : {"check gone", "triangles short", "bsp old", "decompile gone -o x",
                                "collide short gone", "compile gone -o x"}) {
        const Outcome outcome = Run(command);
        EXPECT_EQ(outcome.status, 1) << command;
        EXPECT_EQ(std::count(outcome.error.begin(), outcome.error.end(), '\n'), 1) << command;
        EXPECT_FALSE(std::filesystem::exists(folder / "x"));
    }
    WriteLevel("a.swah", LevelFile());
    EXPECT_EQ(Run("decompile a.swah -o gone/x").error,
              "vantrel-level: gone/x: cannot be written\n");
    const std::string level = Read("a.swah");
    EXPECT_EQ(Run("decompile a.swah -o ./a.swah").status, 1);
    EXPECT_EQ(Read("a.swah"), level) << "the input is written over";
    EXPECT_EQ(Run("decompile a.swah -o a.tmj").status, 0);
    const std::string map = Read("a.tmj");
    std::filesystem::create_symlink("a.tmj", folder / "b");
    EXPECT_EQ(Run("compile a.tmj -o b").status, 1);
    EXPECT_EQ(Read("a.tmj"), map);
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(Run("decompile a.swah -o pipe").status, 1) << "no device is to become a file";
}

}  // namespace
