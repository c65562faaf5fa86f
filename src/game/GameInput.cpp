// What the game does with window events, and the debug free camera's keys.

#include <algorithm>

#include "engine/Console.h"
#include "game/Game.h"
#include "game/GameState.h"
#include "graphics/GLWindow.h"
#include "platform/VirtualKeys.h"

void Game::OnKeyDown(int virtualKey) {
    if (virtualKey == VirtualKey::console) {
        gameState.consoleOpen = !gameState.consoleOpen;
        return;
    }
    if (gameState.consoleOpen) {
        Console::HandleKey(virtualKey);
        return;
    }
    if (virtualKey == VirtualKey::escape) {
        RequestQuit();
        return;
    }
    const char character = GLWindow::KeyToChar(virtualKey);
    if (virtualKey == VirtualKey::pause || character == 'P' || character == 'p') {
        SetPaused(!gameState.paused);
    }
}

void Game::OnClose() {
    GLWindow::Close();
}

void Game::OnFocusLost() {
    SetPaused(true);
}

void StepFreeCamera() {
    if (gameState.consoleOpen) {
        return;
    }
    const float speed = 500.0f / gameState.freeCameraZoom * gameState.frameTime;
    if (GLWindow::IsKeyDown(VirtualKey::up)) {
        gameState.freeCameraY -= speed;
    }
    if (GLWindow::IsKeyDown(VirtualKey::down)) {
        gameState.freeCameraY += speed;
    }
    if (GLWindow::IsKeyDown(VirtualKey::left)) {
        gameState.freeCameraX -= speed;
    }
    if (GLWindow::IsKeyDown(VirtualKey::right)) {
        gameState.freeCameraX += speed;
    }
    const float factor = 1.0f + 5.0f * gameState.frameTime;
    if (GLWindow::IsKeyDown(VirtualKey::pageUp)) {
        gameState.freeCameraZoom *= factor;
    }
    if (GLWindow::IsKeyDown(VirtualKey::pageDown)) {
        gameState.freeCameraZoom /= factor;
    }
    gameState.freeCameraZoom = std::clamp(gameState.freeCameraZoom, 0.01f, 100.0f);
}
