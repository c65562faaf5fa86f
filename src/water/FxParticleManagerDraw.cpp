// Draws the effect particles: one array of quads for each texture and way of blending.

#include <GL/gl.h>

#include <algorithm>
#include <cstdio>

#include "graphics/GLWindowDraw.h"
#include "graphics/TexturingDraw.h"
#include "water/FxParticleManager.h"

namespace FxParticleManager {

namespace {

/// A particle with what decides its batch; those of one batch keep their order.
struct Entry {
    std::uint32_t glName;
    std::uint32_t number;
    const FxParticle* particle;
};
struct Vertex {
    float u, v;
    Colour colour;
    Vector2 position;
};
// Storage kept from frame to frame.
std::vector<Entry> entries;
std::vector<Vertex> vertices;

/// Textures one after the other, and within each first what covers, then what adds light.
bool ComesBefore(const Entry& a, const Entry& b) {
    if (a.glName != b.glName) {
        return a.glName > b.glName;
    }
    if (a.particle->useAlphaBlending != b.particle->useAlphaBlending) {
        return a.particle->useAlphaBlending > b.particle->useAlphaBlending;
    }
    return a.number < b.number;
}

bool ShareBatch(const Entry& a, const Entry& b) {
    return a.glName == b.glName && a.particle->useAlphaBlending == b.particle->useAlphaBlending;
}

void Collect() {
    entries.clear();
    for (const FxParticle& particle : particles) {
        entries.push_back(
            {particle.texture->glName, static_cast<std::uint32_t>(entries.size()), &particle});
    }
    std::ranges::sort(entries, ComesBefore);
}

void AddQuad(const FxParticle& particle) {
    Colour colour = particle.color;
    colour.a *= particle.timeLeft / particle.liveTime;
    const float half = particle.size * 0.5f;
    const float left = particle.position.x - half;
    const float right = particle.position.x + half;
    const float top = particle.position.y - half;
    const float bottom = particle.position.y + half;
    vertices.push_back({0.0f, 0.0f, colour, {left, top}});
    vertices.push_back({1.0f, 0.0f, colour, {right, top}});
    vertices.push_back({1.0f, 1.0f, colour, {right, bottom}});
    vertices.push_back({0.0f, 1.0f, colour, {left, bottom}});
}

/// Draws the collected quads. The way of blending can't change within an array.
void DrawBatch(const Entry& entry) {
    glBlendFunc(GL_SRC_ALPHA, entry.particle->useAlphaBlending ? GL_ONE_MINUS_SRC_ALPHA : GL_ONE);
    glBindTexture(GL_TEXTURE_2D, entry.glName);
    glTexCoordPointer(2, GL_FLOAT, sizeof(Vertex), &vertices.front().u);
    glColorPointer(4, GL_FLOAT, sizeof(Vertex), &vertices.front().colour);
    glVertexPointer(2, GL_FLOAT, sizeof(Vertex), &vertices.front().position);
    glDrawArrays(GL_QUADS, 0, static_cast<GLsizei>(vertices.size()));
    vertices.clear();
}

}  // namespace

void Draw() {
    if (particles.empty()) {
        return;
    }
    Collect();
    glEnable(GL_TEXTURE_2D);
    glEnable(GL_BLEND);
    glEnableClientState(GL_VERTEX_ARRAY);
    glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    glEnableClientState(GL_COLOR_ARRAY);
    Texturing::Begin(Texturing::Source::Tinted);
    for (std::size_t i = 0; i < entries.size(); ++i) {
        AddQuad(*entries[i].particle);
        if (i + 1 == entries.size() || !ShareBatch(entries[i], entries[i + 1])) {
            DrawBatch(entries[i]);
        }
    }
    Texturing::End();
    glDisableClientState(GL_VERTEX_ARRAY);
    glDisableClientState(GL_TEXTURE_COORD_ARRAY);
    glDisableClientState(GL_COLOR_ARRAY);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glColor4f(1.0f, 1.0f, 1.0f, 1.0f);
}

void DrawEmitters() {
    if (!drawEmitters) {
        return;
    }
    const DebugDraw::State state;
    for (const Emitter& emitter : emitters) {
        const Colour colour = emitter.running ? Colours::green : Colours::red;
        constexpr float length = 32.0f;
        DebugDraw::Point(emitter.position, colour, 3.0f);
        DebugDraw::Arrow(emitter.position, emitter.position + emitter.direction * length, colour);
        for (const float side : {-0.5f, 0.5f}) {
            Vector2 edge = emitter.direction * (length * 0.75f);
            Rotate(edge, emitter.spread * side);
            DebugDraw::Line(emitter.position, emitter.position + edge, colour);
        }
        char text[32];
        std::snprintf(text, sizeof text, "Id: %1i ", static_cast<int>(emitter.id));
        DebugDraw::Label(emitter.position + Vector2{0.0f, 4.0f}, text, 8.0f, Colours::white);
    }
}

}  // namespace FxParticleManager
