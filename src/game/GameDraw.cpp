// One frame of the game, from the background to the console.

#include "game/GameDraw.h"

#include <GL/gl.h>

#include <cstdio>

#include "actors/Camera.h"
#include "actors/CheckPointTimesManager.h"
#include "actors/ForceManager.h"
#include "actors/LevelObjectsManager.h"
#include "actors/MoverManager.h"
#include "actors/SoundSourceManager.h"
#include "actors/TriggerManager.h"
#include "engine/Console.h"
#include "engine/Page.h"
#include "game/Game.h"
#include "game/GameState.h"
#include "game/LevelProgress.h"
#include "game/LoadingSplash.h"
#include "graphics/ConsoleDraw.h"
#include "graphics/GLWindow.h"
#include "graphics/GLWindowDraw.h"
#include "graphics/TexturingDraw.h"
#include "level/DynamicPolygonRenderer.h"
#include "level/LevelData.h"
#include "level/LevelGeometryRenderer.h"
#include "menus/GuiPainter.h"
#include "menus/MenuManager.h"
#include "platform/Clock.h"
#include "water/FxParticleManager.h"
#include "water/GroupedParticleMover.h"
#include "water/ParticleRenderer.h"

namespace {

void BeginFrame() {
    GLWindow::SetPixelProjection();
    ClearScreen(gameState.background);
    glEnable(GL_TEXTURE_2D);
    glDisable(GL_DEPTH_TEST);
}

void ApplyFreeCamera(const View& view) {
    glScalef(static_cast<float>(GLWindow::ClientWidth()) / view.width,
             static_cast<float>(GLWindow::ClientHeight()) / view.height, 0.0f);
    glTranslatef(view.width * 0.5f, view.height * 0.5f, 0.0f);
    glScalef(gameState.freeCameraZoom, gameState.freeCameraZoom, 0.0f);
    glTranslatef(-gameState.freeCameraX, -gameState.freeCameraY, 0.0f);
}

void SetWorldState() {
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glEnable(GL_TEXTURE_2D);
    glDisable(GL_CULL_FACE);
    glColor4f(1.0f, 1.0f, 1.0f, 1.0f);
}

void DrawLayer(int layer, void (*drawStatic)()) {
    DynamicPolygonRenderer::DrawLayer(layer);
    drawStatic();
    LevelObjectsManager::DrawLayer(layer);
}

/// Each draws only while its own console flag is on.
void DrawDebugViews(const View& view) {
    LevelData::Draw();
    ForceManager::Draw(view);
    GroupedParticleMover::Draw();
    TriggerManager::Draw(view);
    LevelObjectsManager::DrawIds(view);
    FxParticleManager::DrawEmitters();
    SoundSourceManager::Draw(view);
    MoverManager::Draw(view);
}

void DrawWorld(const View& view) {
    SetWorldState();
    LevelObjectsManager::PrepareDraw(view);
    DynamicPolygonRenderer::PrepareDraw(view);
    DrawLayer(0, LevelGeometryRenderer::DrawLayer0);
    DrawLayer(1, LevelGeometryRenderer::DrawLayer1);
    ParticleRenderer::Draw();
    glColor4f(1.0f, 1.0f, 1.0f, 1.0f);
    DrawLayer(2, LevelGeometryRenderer::DrawLayer2);
    DrawLayer(3, LevelGeometryRenderer::DrawLayer3);
    DrawLayer(4, LevelGeometryRenderer::DrawLayer4);

    FxParticleManager::Draw();
    DrawDebugViews(view);
}

/// Where the game's own camera looks while the free camera is on.
void DrawFreeCameraOverlay(const View& shown) {
    const Vector2 at{gameState.freeCameraX, gameState.freeCameraY};
    const float arm = 4.0f / gameState.freeCameraZoom;
    {
        const DebugDraw::State state;
        DebugDraw::Line(at - Vector2{arm, 0.0f}, at + Vector2{arm, 0.0f}, Colours::white);
        DebugDraw::Line(at - Vector2{0.0f, arm}, at + Vector2{0.0f, arm}, Colours::white);
        const ViewRectangle view = shown.Rectangle();
        for (int i = 0; i < 4; ++i) {
            DebugDraw::Line(view.corner[i], view.corner[(i + 1) % 4], Colours::green);
        }
    }
    char text[64];
    std::snprintf(text, sizeof text, "%1f , %2f", static_cast<double>(at.x),
                  static_cast<double>(at.y));
    Console::Font().DrawText(text, at.x, at.y + 16.0f / gameState.freeCameraZoom,
                             8.0f / gameState.freeCameraZoom, Colours::white);
}

/// On a page over the client area.
void DrawPausedText() {
    const Texture& font = *gameState.font;
    font.DrawTextCentred("Paused", 2.0f, 2.0f, Page::width, Page::height, 32.0f, Colours::black);
    font.DrawTextCentred("Paused", 0.0f, 0.0f, Page::width, Page::height, 32.0f, Colours::white);
}

/// At its own size in pixels, its shadow first.
void DrawMenuCursor() {
    const Texture& image = *gameState.cursorTexture;
    GuiPainter& painter = GuiPainter::Current();
    const auto draw = [&](float x, float y, const Colour& colour) {
        painter.DrawImage(
            image,
            {x, y, x + static_cast<float>(image.width), y + static_cast<float>(image.height)},
            wholeImage, colour);
    };
    constexpr float shadow = 2.0f;
    const auto x = static_cast<float>(GLWindow::MouseX());
    const auto y = static_cast<float>(GLWindow::MouseY());
    painter.BeginPage(0.0f, 0.0f, 1.0f, 1.0f);
    draw(x + shadow, y + shadow, Colours::black);
    draw(x, y, Colours::white);
    painter.EndPage();
}

void DrawMenu() {
    if (MenuManager::Current() == MenuManager::None) {
        return;
    }
    MenuManager::Draw();
    // The menu may just have been left, by a click that was still to be seen.
    if (MenuManager::Current() != MenuManager::None && gameState.cursorTexture) {
        DrawMenuCursor();
    }
}

void PrintDrawingCost(std::uint64_t begin) {
    if (gameState.drawingCost.Add(begin, Platform::TheClock().Counter()) &&
        gameState.showDrawSpeeds) {
        Console::Print("\nDrawing - clock tics: ");
        Console::PrintUnsigned(static_cast<std::uint32_t>(gameState.drawingCost.mean));
    }
}

}  // namespace

void GamePresentation::BeginLoading() {
    LoadingSplash::Start();
}

void GamePresentation::EndLoading() {
    LoadingSplash::Stop();
}

void GamePresentation::PrepareLevel() {
    Texturing::Initialise();
    LevelGeometryRenderer::Initialise();
}

void GamePresentation::ReleaseLevel() {
    LevelGeometryRenderer::Shutdown();
    Texturing::Shutdown();
}

void GamePresentation::PrepareWater() {
    ParticleRenderer::Initialise();
}

void GamePresentation::ReleaseWater() {
    ParticleRenderer::Shutdown();
}

void GamePresentation::DrawFrame() {
    const std::uint64_t begin = Platform::TheClock().Counter();
    BeginFrame();
    const View view = Game::CurrentView();
    if (gameState.freeCamera) {
        ApplyFreeCamera(view);
    } else {
        Camera::ApplyView(view);
    }
    const bool finished = LevelProgress::IsFinished();
    if (!finished) {
        DrawWorld(view);
    }
    if (gameState.freeCamera && !finished) {
        DrawFreeCameraOverlay(view);
    }
    LevelProgress::Draw();
    if (gameState.paused && !gameState.freeCamera && gameState.font) {
        DrawPausedText();
    }
    CheckPointTimesManager::Draw(LevelProgress::ElapsedMs());
    DrawMenu();
    PrintDrawingCost(begin);
    if (gameState.consoleOpen) {
        Console::Draw();
    }
    GLWindow::SwapBuffers();
}
