// Debug labels: finding room, backing and text.

#include "actors/DebugLabels.h"

#include <GL/gl.h>

#include <algorithm>
#include <span>

#include "graphics/GLWindowDraw.h"

namespace {

constexpr float margin = 1.0f;  // of the backing, world units
/// A label goes down at most this often: in a crowd it is better near its thing than alone.
constexpr int mostMoves = 12;
/// Labels further outside of the view than this, world units, aren't drawn.
constexpr float outside = 300.0f;

}  // namespace

void DebugLabels::Add(Vector2 at, std::string_view text) {
    if (rectangle.IsOutside(at, outside)) {
        return;
    }
    const Vector2 extent{size * static_cast<float>(text.size()), size};
    const std::span<const Label> others(labels.data(), used);
    for (int move = 0; move < mostMoves; ++move) {
        const auto covers = [&](const Label& other) {
            return at.x < other.end.x && other.at.x < at.x + extent.x &&
                   at.y < other.end.y + margin && other.at.y < at.y + extent.y + margin;
        };
        const auto covered = std::ranges::find_if(others, covers);
        if (covered == others.end()) {
            break;
        }
        at.y = covered->end.y + 2.0f * margin;
    }
    if (used == labels.size()) {
        labels.emplace_back();
    }
    Label& label = labels[used++];
    label.at = at;
    label.end = at + extent;
    label.text.assign(text);
}

void DebugLabels::Draw() {
    const std::span<const Label> all(labels.data(), used);
    glPushAttrib(GL_ENABLE_BIT | GL_COLOR_BUFFER_BIT | GL_CURRENT_BIT);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glColor4f(0.0f, 0.0f, 0.0f, 0.65f);
    glBegin(GL_QUADS);
    for (const Label& label : all) {
        glVertex2f(label.at.x - margin, label.at.y - margin);
        glVertex2f(label.end.x + margin, label.at.y - margin);
        glVertex2f(label.end.x + margin, label.end.y + margin);
        glVertex2f(label.at.x - margin, label.end.y + margin);
    }
    glEnd();
    glPopAttrib();
    for (const Label& label : all) {
        DebugDraw::Label(label.at, label.text.c_str(), size, Colours::white);
    }
    used = 0;
}
