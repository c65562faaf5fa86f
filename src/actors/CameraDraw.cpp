// The camera's world transform.

#include <GL/gl.h>

#include "actors/Camera.h"
#include "game/Game.h"
#include "graphics/GLWindow.h"

namespace Camera {

void ApplyView() {
    const float width = Game::ViewWidth();
    const float height = Game::ViewHeight();
    const Vector2 centre = position + shakeOffset;
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    // Depth is flattened: layers are ordered by drawing order alone.
    glScalef(static_cast<float>(GLWindow::ClientWidth()) / width,
             static_cast<float>(GLWindow::ClientHeight()) / height, 0.0f);
    glTranslatef(width * 0.5f, height * 0.5f, 0.0f);
    glScalef(1.0f / zoom, 1.0f / zoom, 0.0f);
    glRotatef(-angle, 0.0f, 0.0f, 1.0f);
    glTranslatef(-centre.x, -centre.y, 0.0f);
}

}  // namespace Camera
