// Draws the water as textured quads in six batches; see ParticleRenderer.h.

#include "water/ParticleRenderer.h"

#include <GL/gl.h>

#include <algorithm>
#include <cmath>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "engine/ConfigFile.h"
#include "engine/Console.h"
#include "engine/ConsoleCommands.h"
#include "graphics/Texture.h"
#include "graphics/TexturingDraw.h"
#include "water/GroupedParticleMover.h"
#include "water/ParticleManager.h"

namespace {

/// What one state of matter looks like. Sizes are added to half sizes of quads, world units.
struct Look {
    std::optional<Texture> texture;
    Colour fill;
    Colour outline;
    float outlineSize = 0.0f;
    float expansion = 0.0f;  ///< on all quads
};

Look water;
Look steam;
Look ice;
float velocityExpansion = 0.0f;     // half size gained per unit of speed
float maxVelocityExpansion = 0.0f;  // the most that speed can add
bool drawParticles = false;

/// Half size of the trail's quads, without expansion: a little more than the particle.
constexpr float trailSize = 3.0f;
/// Alpha of the trail's quads, the newest first. That of steam thins out at once at its end.
constexpr float waterTrail[3] = {0.5f, 0.25f, 0.125f};
constexpr float steamTrail[3] = {0.5f, 0.25f, 0.0125f};

/// Less alpha than this changes no pixel of 8 bits: the end of steam's trail, say.
constexpr float invisibleAlpha = 0.5f / 255.0f;

struct Vertex {
    float u, v;
    Colour colour;
    Vector2 position;
};

// What there is to draw in this frame, in drawing order; storage kept from frame to frame.
std::vector<const Particle*> waterList;
std::vector<const Particle*> steamList;
std::vector<const Particle*> iceList;
std::vector<Vertex> vertices;

void ReadLook(const ConfigFile& config, const std::string& name, Look& look) {
    look.fill = config.GetColour(name + "_color");
    look.outline = config.GetColour(name + "_outline_color");
    look.outlineSize = config.GetFloat(name + "_outline_size");
}

/// Free particles by state, then ice. Each list runs against the order of its source.
void CollectParticles() {
    waterList.clear();
    steamList.clear();
    iceList.clear();
    const ParticleList& free = ParticleManager::particles;
    for (auto particle = free.rbegin(); particle != free.rend(); ++particle) {
        (particle->temperature < boilingPoint ? waterList : steamList).push_back(&*particle);
    }
    const GroupList& groups = GroupedParticleMover::groups;
    for (auto group = groups.rbegin(); group != groups.rend(); ++group) {
        const ParticleList& members = group->particles;
        for (auto particle = members.rbegin(); particle != members.rend(); ++particle) {
            iceList.push_back(&*particle);
        }
    }
}

/// Half size that speed adds.
float Stretch(const Particle& particle) {
    return std::min(particle.speed * velocityExpansion, maxVelocityExpansion);
}

/// Factor on alpha: killed particles fade out over their last seconds.
float Fade(const Particle& particle) {
    if (particle.dying != 1) {
        return 1.0f;
    }
    return std::max(particle.killTimer / ParticleManager::particleKillTime, 0.0f);
}

void AddQuad(Vector2 centre, float halfSize, Colour colour, float alpha) {
    colour.a *= alpha;
    if (colour.a < invisibleAlpha) {
        return;
    }
    const float left = centre.x - halfSize;
    const float right = centre.x + halfSize;
    const float top = centre.y - halfSize;
    const float bottom = centre.y + halfSize;
    vertices.push_back({0.0f, 0.0f, colour, {left, top}});
    vertices.push_back({1.0f, 0.0f, colour, {right, top}});
    vertices.push_back({1.0f, 1.0f, colour, {right, bottom}});
    vertices.push_back({0.0f, 1.0f, colour, {left, bottom}});
}

void DrawBatch(const Look& look) {
    glBindTexture(GL_TEXTURE_2D, look.texture->glName);
    if (!vertices.empty()) {
        glTexCoordPointer(2, GL_FLOAT, sizeof(Vertex), &vertices[0].u);
        glColorPointer(4, GL_FLOAT, sizeof(Vertex), &vertices[0].colour);
        glVertexPointer(2, GL_FLOAT, sizeof(Vertex), &vertices[0].position);
        glDrawArrays(GL_QUADS, 0, static_cast<GLsizei>(vertices.size()));
    }
    vertices.clear();
}

void DrawOutlines(const Look& look, const std::vector<const Particle*>& particles) {
    const float size = Particle::radius + look.outlineSize + look.expansion;
    for (const Particle* const particle : particles) {
        AddQuad(particle->position, size + Stretch(*particle), look.outline, Fade(*particle));
    }
    DrawBatch(look);
}

/// The fill of each particle, with its trail right on top of it.
void DrawFills(const Look& look, const std::vector<const Particle*>& particles,
               std::span<const float> trail) {
    for (const Particle* const particle : particles) {
        const float stretch = Stretch(*particle);
        const float fade = Fade(*particle);
        AddQuad(particle->position, Particle::radius + look.expansion + stretch, look.fill, fade);
        for (std::size_t i = 0; i < trail.size(); ++i) {
            AddQuad(particle->positionHistory[i], trailSize + look.expansion + stretch, look.fill,
                    trail[i] * fade);
        }
    }
    DrawBatch(look);
}

const Console::CommandTable commands{
    {"ParticleDraw", Console::Variable<drawParticles>, "Shows or hides the water."},
};

}  // namespace

void ParticleRenderer::Initialise() {
    Shutdown();
    Console::Print("\nInitialising particle renderer..");
    drawParticles = true;
    const ConfigFile config("cfg//water.cfg");
    water.texture.emplace(config.GetString("waterTexture"), "DEFAULT_SPRITE");
    steam.texture.emplace(config.GetString("steamTexture"), "DEFAULT_SPRITE");
    ice.texture.emplace(config.GetString("iceTexture"), "DEFAULT_SPRITE");
    ReadLook(config, "ice", ice);
    ReadLook(config, "water", water);
    ReadLook(config, "steam", steam);
    steam.expansion = config.GetFloat("steamExpansion");
    ice.expansion = config.GetFloat("iceExpansion");
    velocityExpansion = std::fabs(config.GetFloat("velocityExpansion"));
    maxVelocityExpansion = std::fabs(config.GetFloat("maxVelocityExpansion"));
    commands.Add();
}

void ParticleRenderer::Shutdown() {
    Console::Print("\nShutting down particle renderer..");
    for (Look* const look : {&water, &steam, &ice}) {
        look->texture.reset();
    }
    commands.Remove();
}

void ParticleRenderer::Draw() {
    if (!drawParticles || !water.texture) {
        return;
    }
    glEnable(GL_TEXTURE_2D);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    CollectParticles();
    glEnableClientState(GL_VERTEX_ARRAY);
    glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    glEnableClientState(GL_COLOR_ARRAY);
    Texturing::Begin(Texturing::Source::Tinted);
    // All outlines lie below all fills: no outline covers the fill of another state.
    DrawOutlines(water, waterList);
    DrawOutlines(steam, steamList);
    DrawOutlines(ice, iceList);
    DrawFills(water, waterList, waterTrail);
    DrawFills(steam, steamList, steamTrail);
    DrawFills(ice, iceList, {});
    Texturing::End();
    glDisableClientState(GL_VERTEX_ARRAY);
    glDisableClientState(GL_TEXTURE_COORD_ARRAY);
    glDisableClientState(GL_COLOR_ARRAY);
}
