// What the game does with window events, what the player gives to a step, and the debug free
// camera's keys.

#include <algorithm>

#include "actors/Camera.h"
#include "engine/Console.h"
#include "game/Game.h"
#include "game/GameState.h"
#include "game/RunRecorder.h"
#include "graphics/GLWindow.h"
#include "menus/MenuManager.h"
#include "platform/VirtualKeys.h"

namespace {

constexpr int rightButton = 2;

/// Escape leads out of most menus; from the first one it leads out of the game, by a question.
void LeaveMenu() {
    switch (MenuManager::Current()) {
        case MenuManager::Main:
            MenuManager::Show(MenuManager::QuitGame);
            break;
        case MenuManager::LevelFinished:
            break;
        default:
            MenuManager::Show(MenuManager::Previous());
    }
}

void HandleMenuKey(int virtualKey) {
    if (virtualKey == VirtualKey::escape) {
        LeaveMenu();
    } else {
        MenuManager::OnKeyDown(virtualKey);
    }
}

bool IsPauseKey(int virtualKey) {
    const char character = GLWindow::KeyToChar(virtualKey);
    return virtualKey == VirtualKey::pause || character == 'P' || character == 'p';
}

}  // namespace

void Game::OnMouseMove(int x, int y) {
    MenuManager::OnMouseMove(x, y);
}

/// With the mouse alone, too, a player can leave the game and come back to one that is paused.
void Game::OnMouseDown(int x, int y, int button) {
    if (MenuManager::Current() != MenuManager::None) {
        MenuManager::OnMouseDown(x, y, button);
    } else if (gameState.consoleOpen) {
        return;
    } else if (button == rightButton) {
        MenuManager::Show(MenuManager::InGame);
    } else {
        SetPaused(false);
    }
}

void Game::OnMouseUp(int x, int y, int button) {
    MenuManager::OnMouseUp(x, y, button);
}

void Game::OnKeyUp(int virtualKey) {
    MenuManager::OnKeyUp(virtualKey);
}

void Game::OnKeyDown(int virtualKey) {
    if (virtualKey == VirtualKey::console) {
        gameState.consoleOpen = !gameState.consoleOpen;
    } else if (gameState.consoleOpen) {
        Console::HandleKey(virtualKey);
    } else if (MenuManager::Current() != MenuManager::None) {
        HandleMenuKey(virtualKey);
    } else if (virtualKey == VirtualKey::escape) {
        MenuManager::Show(MenuManager::InGame);
    } else if (IsPauseKey(virtualKey)) {
        SetPaused(!gameState.paused);
    }
}

void Game::OnClose() {
    GLWindow::Close();
}

void Game::OnFocusLost() {
    if (MenuManager::Current() == MenuManager::None) {
        SetPaused(true);
    }
}

RunStep LiveStep(float dt) {
    RunStep step{RunRecorder::IsRecording() ? std::min(dt, RunStep::longest) : dt};
    const auto set = [&step](RunStep::Flags flag, bool on) {
        step.flags = static_cast<std::uint8_t>(step.flags | (on ? flag : 0));
    };
    set(RunStep::Menu, MenuManager::Current() != MenuManager::None);
    set(RunStep::Paused, gameState.paused);
    set(RunStep::Unsteered, gameState.freeCamera || gameState.consoleOpen);
    if ((step.flags & (RunStep::Menu | RunStep::Unsteered)) == 0) {
        step.turn = Camera::WantedTurn();
    }
    return step;
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
