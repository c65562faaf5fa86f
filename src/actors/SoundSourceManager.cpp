// Placed sounds: starting, stopping and loudness.

#include "actors/SoundSourceManager.h"

#include <algorithm>
#include <string>

#include "engine/Console.h"
#include "engine/ConsoleCommands.h"

namespace SoundSourceManager {

SourceMap loopingSources;
SourceMap oneShotSources;
bool soundSourceDraw = false;

namespace {

constexpr float inaudible = 0.0001f;

// Of the last step; a source made from the console is heard as that one was.
Vector2 lastListener;
bool lastMayBeHeard = false;

template <class Visit>
void ForEachOf(SourceMap& sources, std::uint32_t id, Visit visit) {
    const auto entry = sources.find(id);
    if (entry == sources.end()) {
        return;
    }
    for (SoundSource& source : entry->second) {
        visit(source);
    }
}

template <class Visit>
void ForEach(SourceMap& sources, Visit visit) {
    for (auto& [id, list] : sources) {
        for (SoundSource& source : list) {
            visit(source);
        }
    }
}

void Create(float x, float y, float strength, bool looping, std::uint32_t id,
            const std::string& fileName) {
    Add({x, y, strength, Sound(fileName), static_cast<std::uint8_t>(looping ? 1 : 0), 1, id});
    Step(lastListener, lastMayBeHeard);
}

int CountIds() {
    return static_cast<int>(loopingSources.size() + oneShotSources.size());
}

const Console::CommandTable commands{
    {"SoundSourceCreate", Console::Words<Create>,
     "Places a sound, which a trigger with its id may start.",
     "< x : number > < y : number > < strenght : number > < looping : true OR false > "
     "< id : integer > < fileName > "},
    {"SoundSourceCount", CountIds,
     "How many ids placed sounds have; several under one id count once."},
    {"SoundSourceDraw", Console::Variable<soundSourceDraw>,
     "Shows the placed sounds, with id and file."},
};

/// Sets the source's sound to where other copies of its sample are. A copy that rests ends the
/// search: where sources rest, there is nothing to be in phase with.
void Align(SoundSource& source) {
    for (const auto& [id, list] : loopingSources) {
        for (const SoundSource& other : list) {
            if (&other == &source) {
                continue;
            }
            if (!other.sound.IsPlaying()) {
                return;
            }
            if (other.sound.Name() == source.sound.Name()) {
                source.sound.CopyPositionFrom(other.sound);
            }
        }
    }
}

void StepSource(SoundSource& source, Vector2 listener, bool mayBeHeard) {
    const float distance = Length(Vector2{source.x, source.y} - listener);
    // Not a number for a source without reach at the listener's place: not heard either.
    const float volume = 1.0f - distance / source.strength;
    const bool isPlaying = source.sound.IsPlaying();
    if (mayBeHeard && volume >= inaudible) {
        if (!isPlaying) {
            Align(source);
            source.sound.PlayLooped();
        }
        source.sound.SetVolume(volume);
    } else if (isPlaying) {
        source.sound.Stop();
        Align(source);
    }
}

}  // namespace

void Initialise() {
    Shutdown();
    Console::Print("\nInitialising sound source manager..");
    soundSourceDraw = false;
    commands.Add();
}

void Shutdown() {
    Console::Print("\nShutting down sound source manager..");
    loopingSources.clear();
    oneShotSources.clear();
    commands.Remove();
}

void Add(const SoundSource& source) {
    auto& list = (source.looping ? loopingSources : oneShotSources)[source.id];
    list.push_front(source);
    if (source.looping && !source.stopped) {
        list.front().sound.PlayLooped();
    }
}

void Reset() {
    soundSourceDraw = false;
    for (SourceMap* const sources : {&loopingSources, &oneShotSources}) {
        ForEach(*sources, [](SoundSource& source) {
            source.stopped = 1;
            source.sound.Stop();
            source.sound.Rewind();
        });
    }
}

void StartLooping(std::vector<std::uint32_t> waitingIds) {
    std::ranges::sort(waitingIds);
    for (auto& [id, list] : loopingSources) {
        if (std::ranges::binary_search(waitingIds, id)) {
            continue;
        }
        for (SoundSource& source : list) {
            source.sound.SetVolume(0.0f);
            source.sound.PlayLooped();
            source.stopped = 0;
        }
    }
}

void Step(Vector2 listener, bool mayBeHeard) {
    lastListener = listener;
    lastMayBeHeard = mayBeHeard;
    ForEach(loopingSources, [&](SoundSource& source) {
        if (!source.stopped) {
            StepSource(source, listener, mayBeHeard);
        }
    });
}

void Play(std::uint32_t id) {
    ForEachOf(loopingSources, id, [](SoundSource& source) {
        source.stopped = 0;
        source.sound.PlayLooped();
    });
    ForEachOf(oneShotSources, id, [](SoundSource& source) {
        source.stopped = 0;
        source.sound.Play();
    });
}

void Stop(std::uint32_t id) {
    for (SourceMap* const sources : {&loopingSources, &oneShotSources}) {
        ForEachOf(*sources, id, [](SoundSource& source) {
            source.stopped = 1;
            source.sound.Stop();
        });
    }
}

void Follow(std::span<const SoundCue> cues) {
    for (const SoundCue& cue : cues) {
        cue.plays ? Play(cue.id) : Stop(cue.id);
    }
}

void StopAll() {
    for (SourceMap* const sources : {&loopingSources, &oneShotSources}) {
        ForEach(*sources, [](SoundSource& source) { source.sound.Stop(); });
    }
}

}  // namespace SoundSourceManager
