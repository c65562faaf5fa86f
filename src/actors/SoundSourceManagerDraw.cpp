// Debug view of the sound sources.

#include <cstdio>

#include "actors/DebugLabels.h"
#include "actors/SoundSourceManager.h"
#include "graphics/GLWindowDraw.h"

namespace SoundSourceManager {

namespace {

DebugLabels labels;

void DrawSource(const SoundSource& source) {
    const Vector2 position{source.x, source.y};
    DebugDraw::Point(position, Colours::white, 4.0f);
    char text[160];
    std::snprintf(text, sizeof text, "id: %1i sound: %1s ", static_cast<int>(source.id),
                  source.sound.Name().c_str());
    labels.Add(position + Vector2{0.0f, 4.0f}, text);
}

}  // namespace

void Draw(const View& view) {
    if (!soundSourceDraw) {
        return;
    }
    const DebugDraw::State state;
    labels.Begin(view);
    for (const SourceMap* const sources : {&loopingSources, &oneShotSources}) {
        for (const auto& [id, list] : *sources) {
            for (const SoundSource& source : list) {
                DrawSource(source);
            }
        }
    }
    labels.Draw();
}

}  // namespace SoundSourceManager
