// What the two polygon renderers put on a real window, read back pixel by pixel.

#include <array>
#include <string>
#include <utility>

#include "engine/Console.h"
#include "graphics/window/WindowFixture.h"
#include "level/DynamicPolygonRenderer.h"
#include "level/LevelData.h"
#include "level/LevelGeometryRenderer.h"
#include "support/TestLevel.h"

namespace {

class LevelWindowTest : public WindowFixture {
protected:
    /// The sample's quarters are red and green above, blue and white below.
    void SetUp() override {
        WindowFixture::SetUp();
        glScalef(1.0f, 1.0f, 0.0f);  // as the camera's view does
        glDisable(GL_DEPTH_TEST);
        glDisable(GL_BLEND);
        glEnable(GL_TEXTURE_2D);
        glColor4f(1.0f, 1.0f, 1.0f, 1.0f);
    }
    void TearDown() override {
        LevelGeometryRenderer::Shutdown();
        DynamicPolygonRenderer::Shutdown();
        LevelData::Clear();
        WindowFixture::TearDown();
    }

    static LevelPolygon& Add(float left, float top, float right, float bottom) {
        LevelPolygon& polygon = LevelData::Add(TestLevel::Box(left, top, right, bottom));
        polygon.texture = Texture("samples\\rgb.png", nullptr);
        return polygon;
    }
    static void Draw() {
        glClear(GL_COLOR_BUFFER_BIT);
        DynamicPolygonRenderer::PrepareDraw({});
        constexpr std::array<void (*)(), 5> fixedLayers{
            LevelGeometryRenderer::DrawLayer0, LevelGeometryRenderer::DrawLayer1,
            LevelGeometryRenderer::DrawLayer2, LevelGeometryRenderer::DrawLayer3,
            LevelGeometryRenderer::DrawLayer4};
        for (int layer = 0; layer < 5; ++layer) {
            DynamicPolygonRenderer::DrawLayer(layer);
            fixedLayers[static_cast<std::size_t>(layer)]();
        }
    }
    /// The colour at a place as three letters, one for each channel that is bright.
    static std::string ColourAt(int x, int y) {
        std::string colour;
        constexpr std::array<std::pair<GLenum, char>, 3> channels{
            {{GL_RED, 'r'}, {GL_GREEN, 'g'}, {GL_BLUE, 'b'}}};
        for (const auto& [channel, letter] : channels) {
            colour += ReadChannel(channel, x, y, 1, 1)[0] > 128 ? letter : '-';
        }
        return colour;
    }
    /// The four quarters of the sample's tile whose top left is at (x, y).
    static std::string TileAt(const Texture& texture, int x, int y) {
        const int near = static_cast<int>(texture.width) / 4;
        const int far = static_cast<int>(texture.width) - 1 - near;
        return ColourAt(x + near, y + near) + " " + ColourAt(x + far, y + near) + " " +
               ColourAt(x + near, y + far) + " " + ColourAt(x + far, y + far);
    }
    static constexpr const char* tile = "r-- -g- --b rgb";
    static constexpr const char* nothing = "--- --- --- ---";
};

TEST_F(LevelWindowTest, TilesTexturesFromTheWorldsOrigin) {
    const LevelPolygon& polygon = Add(0, 0, 160, 160);
    const int size = static_cast<int>(polygon.texture.width);
    LevelGeometryRenderer::Initialise();
    Draw();
    EXPECT_EQ(TileAt(polygon.texture, 0, 0), tile);
    EXPECT_EQ(TileAt(polygon.texture, size, 2 * size), tile);
    EXPECT_EQ(TileAt(polygon.texture, 200, 0), nothing);
}

TEST_F(LevelWindowTest, CarriesTheTextureWithAMovedPolygon) {
    LevelPolygon& polygon = Add(0, 0, 64, 64);
    polygon.movedByMover = 1;
    LevelGeometryRenderer::Initialise();
    DynamicPolygonRenderer::Initialise();
    LevelData::StateOf(polygon).offset = {101.0f, 53.0f};
    Draw();
    EXPECT_EQ(TileAt(polygon.texture, 101, 53), tile);
    EXPECT_EQ(TileAt(polygon.texture, 0, 0), nothing);
    LevelData::StateOf(polygon).enabled = 0;
    Draw();
    EXPECT_EQ(TileAt(polygon.texture, 101, 53), nothing);
}

TEST_F(LevelWindowTest, HidesOnlyFixedPolygonsByCommand) {
    const Texture texture = Add(0, 0, 64, 64).texture;
    Add(128, 0, 192, 64).movedByMover = 1;
    LevelGeometryRenderer::Initialise();
    DynamicPolygonRenderer::Initialise();
    Console::Execute("DrawLevelGeometry false");
    Draw();
    EXPECT_EQ(TileAt(texture, 0, 0), nothing);
    EXPECT_EQ(TileAt(texture, 128, 0), tile);
    Console::Execute("DrawLevelGeometry true");
    Draw();
    EXPECT_EQ(TileAt(texture, 0, 0), tile);
}

TEST_F(LevelWindowTest, DrawsLaterLayersOverEarlierOnes) {
    Add(0, 0, 64, 64).layer = 3;
    LevelPolygon& behind = Add(0, 0, 64, 64);
    behind.layer = 1;
    behind.texture = Texture();
    const Texture texture = LevelData::polygons.front().texture;
    LevelGeometryRenderer::Initialise();
    Draw();
    EXPECT_EQ(TileAt(texture, 0, 0), tile);
    EXPECT_EQ(TileAt(texture, 32, 32), tile);
}

TEST_F(LevelWindowTest, ShowsTheSidesOfTriangles) {
    LevelPolygon& polygon = Add(10, 10, 90, 60);
    polygon.visible = 0;
    LevelData::StateOf(polygon).offset = {5.0f, 0.0f};
    LevelData::drawTriangles = true;
    glClear(GL_COLOR_BUFFER_BIT);
    LevelData::Draw();
    LevelData::drawTriangles = false;
    int red = 0;
    for (int y = 5; y < 15; ++y) {
        red += ColourAt(50, y) == "r--" ? 1 : 0;
    }
    EXPECT_EQ(red, 1);
    EXPECT_EQ(glIsEnabled(GL_TEXTURE_2D), GL_TRUE);
}

}  // namespace
