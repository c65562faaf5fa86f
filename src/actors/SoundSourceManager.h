#pragma once
// Samples placed in the level. Looping sources grow louder as the camera nears them; others
// play once, at full volume, when a trigger says so. Copies of one sample are kept in phase.
//
// Order of calls: Initialise, Add, StartLooping, then Steps; Reset and StartLooping again for
// a restart; Shutdown.

#include <cstdint>
#include <list>
#include <map>
#include <span>
#include <vector>

#include "actors/TriggerEvents.h"
#include "audio/Sound.h"
#include "engine/Vector2.h"
#include "level/View.h"

struct SoundSource {
    float x = 0.0f;
    float y = 0.0f;
    float strength = 0.0f;  ///< distance from the camera at which it falls silent
    Sound sound;
    std::uint8_t looping = 0;
    std::uint8_t stopped = 1;  ///< silent until it is started
    std::uint32_t id = 0;      ///< what triggers address; not unique
};

namespace SoundSourceManager {

using SourceMap = std::map<std::uint32_t, std::list<SoundSource>>;
extern SourceMap loopingSources;  ///< by id
extern SourceMap oneShotSources;
extern bool soundSourceDraw;

void Initialise();
void Shutdown();
/// Adds a copy at the front of its id's list; a looping one that isn't stopped starts.
void Add(const SoundSource& source);
/// All sources back to their starts, stopped.
void Reset();
/// Starts all looping sources, silent until the next step, but for those of the listed ids,
/// which wait for their triggers.
void StartLooping(std::vector<std::uint32_t> waitingIds);
/// Once per module step: loudness by the distance from the listener, if there is one to hear it.
void Step(Vector2 listener, bool mayBeHeard);
void Play(std::uint32_t id);
void Stop(std::uint32_t id);
/// Plays and stops what triggers say, in order.
void Follow(std::span<const SoundCue> cues);
/// Silences all sources; looping ones come back in the next step that lets them.
void StopAll();
/// Debug view (SoundSourceManagerDraw.cpp).
void Draw(const View& view);

}  // namespace SoundSourceManager
