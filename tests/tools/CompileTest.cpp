// What becomes of maps as authors draw them, what they are told when a map can't be expressed,
// and levels as maps and back.
//
// JSON lists of one element are written with Json::array and Json::object: compilers differ in
// whether braces round a single value make a list of it or the value itself.

#include <nlohmann/json.hpp>

#include "ToolRun.h"
#include "support/Places.h"

namespace {

using Json = nlohmann::json;
using Points = std::vector<LevelFile::Point>;

class CompileMap : public ToolTest {
protected:
    CompileMap() {
        Add({{"type", "WaterStart"}, {"point", true}, {"x", 1}, {"y", 2}});
        Add({{"type", "CameraStart"}, {"point", true}, {"x", 3}, {"y", 4}});
    }

    /// Puts the object into the last group; Tiled's id counts from 1.
    Json& Add(Json object) {
        object["id"] = ++lastId;
        Json& objects = layers.back()["objects"];
        objects.push_back(std::move(object));
        return objects.back();
    }
    Json& AddPolygon(Json points) {
        return Add({{"type", "Polygon"}, {"x", 0}, {"y", 0}, {"polygon", std::move(points)}});
    }
    static Json Property(const char* name, Json value) {
        return {{"name", name}, {"type", "string"}, {"value", std::move(value)}};
    }
    LevelFile Compile() {
        WriteMap();
        const Outcome outcome = Run("compile map.tmj -o level.swah");
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.error, "");
        return ReadLevel("level.swah");
    }
    /// The message; the output file must stay as it was.
    std::string CompileBadly() {
        WriteMap();
        Write("level.swah", "old");
        const Outcome outcome = Run("compile map.tmj -o level.swah");
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(std::count(outcome.error.begin(), outcome.error.end(), '\n'), 1);
        EXPECT_EQ(Read("level.swah"), "old");
        EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder), {}), 4);
        return outcome.error;
    }
    /// Of the last object, which goes.
    void ExpectRefusal(const std::string& name, const char* expected) {
        const std::string message = CompileBadly();
        EXPECT_NE(message.find("map.tmj: object " + std::to_string(lastId) + name),
                  std::string::npos)
            << message;
        EXPECT_NE(message.find(expected), std::string::npos) << message;
        layers.back()["objects"].erase(layers.back()["objects"].size() - 1);
    }
    void WriteMap() { Write("map.tmj", Json{{"type", "map"}, {"layers", layers}}.dump()); }

    Json layers =
        Json::array({{{"type", "objectgroup"}, {"name", "all"}, {"objects", Json::array()}}});
    int lastId = 0;
};

Json XY(double x, double y) {
    return {{"x", x}, {"y", y}};
}

TEST_F(CompileMap, TidiesOutlines) {
    // Wrong way round, starting in the middle of a side, with straight points and a repeat.
    AddPolygon(
        {XY(5, 0), XY(0, 0), XY(0, 5), XY(0, 10), XY(0, 5), XY(10, 10), XY(10, 0), XY(7, 0)});
    const Points expected = {{0, 0}, {10, 0}, {10, 10}, {0, 10}};
    EXPECT_EQ(Compile().polygons[0].points, expected);
    EXPECT_TRUE(Run("triangles level.swah").out.starts_with("POLYGON 0 1 2\n"));
}

TEST_F(CompileMap, FindsAStartThatNeedlesCanBeCutFrom) {
    AddPolygon({XY(348, 238), XY(229, 222), XY(150, 211)});
    Compile();
    EXPECT_TRUE(Run("triangles level.swah").out.starts_with("POLYGON 0 1 1\n"));
}

TEST_F(CompileMap, WorksInRotationOffsetsAndRounding) {
    layers.push_back({{"type", "group"}, {"name", "Layer 3 things"}, {"offsetx", 100}});
    layers.back()["layers"] = Json::array({{{"type", "objectgroup"},
                                            {"name", "inner"},
                                            {"offsety", 0.4},
                                            {"objects", Json::array()}}});
    Json rectangle = {{"type", ""},    {"id", 9},     {"x", 10},         {"y", 20},
                      {"width", 30.4}, {"height", 5}, {"rotation", 90.0}};
    layers.back()["layers"][0]["objects"].push_back(rectangle);
    const LevelFile level = Compile();
    const Points expected = {{110, 20}, {110, 51}, {105, 51}, {105, 20}};
    EXPECT_EQ(level.polygons[0].points, expected);
    EXPECT_EQ(level.polygons[0].layer, 3);
    EXPECT_EQ(level.polygons[0].surface, 3u);
    EXPECT_EQ(level.waterStart, (LevelFile::Point{1, 2}));
    EXPECT_EQ(level.cameraStart, (LevelFile::Point{3, 4}));
}

TEST_F(CompileMap, TakesActorsInTheFormsThatAuthorsDraw) {
    Add({{"type", "Force"}, {"x", 5}, {"y", 5}, {"polyline", {XY(0, 0), XY(0, -50)}}});
    Add({{"type", "Sound"}, {"x", 0}, {"y", 0}, {"width", 80}, {"height", 80}, {"ellipse", true}});
    Add({{"type", "Trigger"}, {"x", 1}, {"y", 2}, {"width", 30}, {"height", 40}})["properties"] =
        Json::array({Property("type", "Level_end_a")});
    const LevelFile level = Compile();
    EXPECT_EQ(level.forces[0].direction, (Vector2{0.0f, -50.0f}));
    EXPECT_EQ(level.forces[0].strength, 10.0f);
    EXPECT_EQ(level.sounds[0].position, (LevelFile::Point{40, 40}));
    EXPECT_EQ(level.sounds[0].strength, 40);
    EXPECT_EQ(level.triggers[0].type, 801u);
    EXPECT_EQ(level.triggers[0].corners[2], (LevelFile::Point{31, 42}));
}

TEST_F(CompileMap, TakesEveryMemberAndWordOfTheProjectFile) {
    std::ifstream file(SourceDirectory() / "levels/vantrel.tiled-project");
    const Json project = Json::parse(file);
    std::map<std::string, Json> words;
    std::size_t polygons = 0;
    for (const Json& type : project["propertyTypes"]) {
        if (type["type"] == "enum") {
            words[type["name"]] = type["values"];
            continue;
        }
        for (const Json& member : type["members"]) {
            const Json only = Json::array({member["value"]});
            const bool isEnum = member.contains("propertyType");
            for (const Json& value : isEnum ? words[member["propertyType"]] : only) {
                Json shape = {{"type", type["name"]}, {"x", 0}, {"y", 0}};
                const bool isArea = type["name"] == "Polygon" || type["name"] == "Trigger";
                if (type["name"] == "Mover") {
                    shape["polyline"] = {XY(0, 0), XY(1, 1)};
                } else if (!isArea) {
                    shape["point"] = true;
                }
                shape["properties"] =
                    Json::array({Property(std::string(member["name"]).c_str(), value)});
                polygons += type["name"] == "Polygon" ? 1 : 0;
                Add(shape);
            }
        }
    }
    const LevelFile level = Compile();
    EXPECT_EQ(level.polygons.size(), polygons);
    EXPECT_GT(level.triggers.size(), 36u);
}

TEST_F(CompileMap, NamesTheObjectOfAWrongValue) {
    const std::pair<Json, const char*> cases[] = {
        {Property("surface", "wod"), "is none of metal, wood, stone, cloth, sand"},
        {Property("flags", 4294967296), "must be a whole number from 0 to 4294967295"},
        {Property("layer", 5), "must be a whole number from 0 to 4"},
        {Property("id", -1), "must be a whole number"},
        {Property("id", 1.5), "must be a whole number"},
        {Property("exact", "yes"), "must be true or false"},
        {Property("texture", "100%.png"), "write \"%25\" for a \"%\""},
        {Property("texture", std::string(65536, 'x')), "is longer than 65535 bytes"},
        {Property("frction", 1), "a Polygon has no property \"frction\""},
        {Property("texture", Json::array()), "has no plain value"},
    };
    for (const auto& [property, expected] : cases) {
        Json& polygon = AddPolygon({XY(0, 0), XY(9, 0), XY(0, 9)});
        polygon["name"] = "bad\none";
        polygon["properties"] = Json::array({property});
        ExpectRefusal(" \"bad one\": ", expected);
    }
}

TEST_F(CompileMap, RefusesWhatALevelCannotHold) {
    const Json line = {XY(0, 0), XY(9, 9), XY(20, 0)};
    const std::pair<Json, const char*> cases[] = {
        {Json::object({{"type", "Wall"}}), "there is no class \"Wall\""},
        {{{"type", ""}, {"point", true}}, "has no class"},
        {{{"type", "Polygon"}, {"point", true}}, "must be a polygon or a rectangle"},
        {{{"type", "Mover"}, {"polyline", line}}, "must be a line of two points"},
        {{{"type", "Trigger"}, {"polygon", line}}, "a polygon of four points"},
        {{{"type", "WaterStart"}, {"point", true}}, "is a second WaterStart"},
        {{{"type", "Object"}, {"point", true}, {"x", 3e9}}, "a coordinate is too large"},
        {{{"type", "Sound"}, {"ellipse", true}, {"width", 8}, {"height", 9}}, "must be a circle"},
        {{{"type", "Object"}, {"gid", 3}}, "is a tile"},
        {Json::object({{"template", "a.tj"}}), "templates aren't supported"},
    };
    for (const auto& [object, expected] : cases) {
        Add(object);
        ExpectRefusal(": ", expected);
    }
    layers.back()["name"] = "layer 7";
    Add({{"type", "Object"}, {"point", true}});
    EXPECT_NE(CompileBadly().find("drawing layer 7 is outside 0 to 4"), std::string::npos);
}

TEST_F(CompileMap, RefusesTooManyRecords) {
    for (int i = 0; i < 65536; ++i) {
        Add({{"type", "Mover"}, {"polyline", {XY(0, 0), XY(1, 1)}}});
    }
    EXPECT_NE(CompileBadly().find("object 65538: too many objects"), std::string::npos);
}

TEST_F(CompileMap, RefusesFilesThatAreNoMaps) {
    layers.back()["objects"].erase(1);
    EXPECT_NE(CompileBadly().find("the map has no CameraStart point"), std::string::npos);
    for (const char* text : {"", "{", "[1]", "{\"layers\":[{\"type\":\"objectgroup\"}]}",
                             "{\"layers\":[{\"type\":\"tilelayer\",\"data\":[0,1]}]}"}) {
        Write("map.tmj", text);
        EXPECT_EQ(Run("compile map.tmj -o level.swah").status, 1) << text;
    }
    std::string nested;
    for (int i = 0; i < 100000; ++i) {
        nested += "{\"type\":\"group\",\"layers\":[";
    }
    Write("map.tmj", nested);
    EXPECT_EQ(Run("compile map.tmj -o level.swah").status, 1);
}

TEST_F(CompileMap, PassesOverNotesAndEmptyTileLayers) {
    Add(Json::object({{"text", Json::object({{"text", "to do"}})}}));
    layers.push_back({{"type", "tilelayer"}, {"data", {0, 0}}});
    layers.push_back(Json::object({{"type", "imagelayer"}}));
    Compile();
}

// The corpus of the fuzzing program LevelTool does the same with levels that nobody would draw.
TEST_F(CompileMap, GivesTheBytesOfADecompiledLevelBack) {
    for (const auto& entry : std::filesystem::directory_iterator(SourceDirectory() / "data/lev")) {
        std::filesystem::copy_file(entry.path(), folder / "a.swah",
                                   std::filesystem::copy_options::overwrite_existing);
        ASSERT_EQ(Run("decompile a.swah -o a.tmj").error, "") << entry.path();
        ASSERT_EQ(Run("compile a.tmj -o b.swah").error, "") << entry.path();
        ASSERT_EQ(Read("a.swah"), Read("b.swah")) << entry.path();
    }
}

TEST_F(CompileMap, MarksOnlyOutlinesThatTidyingWouldChange) {
    LevelFile level;
    level.polygons = {Box(0, 0, 10, 10), Box(20, 0, 30, 10)};
    std::swap(level.polygons[1].points[1], level.polygons[1].points[3]);
    WriteLevel("a.swah", level);
    Run("decompile a.swah -o a.tmj");
    const std::string map = Read("a.tmj");
    EXPECT_NE(map.find("\"exact\""), std::string::npos);
    EXPECT_EQ(map.find("\"exact\""), map.rfind("\"exact\""));
}

}  // namespace
