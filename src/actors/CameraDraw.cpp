// The camera's world transform.

#include <GL/gl.h>

#include "actors/Camera.h"
#include "graphics/GLWindow.h"

namespace Camera {

void ApplyView(const View& view) {
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    // Depth is flattened: layers are ordered by drawing order alone.
    glScalef(static_cast<float>(GLWindow::ClientWidth()) / view.width,
             static_cast<float>(GLWindow::ClientHeight()) / view.height, 0.0f);
    glTranslatef(view.width * 0.5f, view.height * 0.5f, 0.0f);
    glScalef(1.0f / view.zoom, 1.0f / view.zoom, 0.0f);
    glRotatef(-view.angle, 0.0f, 0.0f, 1.0f);
    glTranslatef(-view.centre.x, -view.centre.y, 0.0f);
}

}  // namespace Camera
