// The sample cache and the device's life.

#include "audio/SoundManager.h"

#include <algorithm>
#include <map>

#include "audio/AudioPreference.h"
#include "audio/WavFile.h"
#include "engine/Console.h"
#include "engine/ConsoleCommands.h"
#include "engine/Text.h"
#include "platform/Assert.h"
#include "platform/Paths.h"
#include "platform/WholeFile.h"

namespace SoundManager {

namespace {

bool started = false;
float masterVolume = 1.0f;

/// Set when the cache has gone at the end of the process: sounds that are static in other
/// modules may outlive it.
bool cacheGone = false;

struct Cache {
    std::map<std::string, SoundSample> byName;  // upper-cased
    ~Cache() { cacheGone = true; }
};

/// Made at first use, as static sounds may also come before this file's own statics.
std::map<std::string, SoundSample>& Samples() {
    static Cache cache;
    return cache.byName;
}

Platform::SampleId Load(const std::string& name) {
    const auto path = started ? Platform::FindFile(name) : std::nullopt;
    const auto bytes = path ? Platform::ReadWholeFile(*path) : std::nullopt;
    const auto wav = bytes ? WavFile::Parse(*bytes) : std::nullopt;
    return wav ? Platform::TheAudio().LoadSample(wav->format, wav->data) : 0;
}

void ReleaseAll() {
    for (const auto& [name, sample] : Samples()) {
        Platform::TheAudio().FreeSample(sample.buffer);
    }
    Samples().clear();
}

void ListSounds() {
    Console::PrintBanner("Sounds in use");
    for (const auto& [name, sample] : Samples()) {
        Console::Print("\n" + name);
        if (sample.buffer == 0 || !HasDevice()) {
            Console::Print(" (loading failed)");
        }
    }
}

void PrintMemory() {
    std::size_t bytes = 0;
    for (const auto& [name, sample] : Samples()) {
        bytes += HasDevice() ? Platform::TheAudio().SampleBytes(sample.buffer) : 0;
    }
    Console::PrintBanner("Sound memory used");
    Console::PrintUnsigned(bytes);
    Console::Print(" bytes.");
}

const Console::CommandTable commands{
    {"SoundList", ListSounds,
     "Lists the samples in use; \"(loading failed)\" marks those that can't be heard."},
    {"SoundMemory", PrintMemory, "Tells how much memory the samples take."},
};

}  // namespace

void Initialise() {
    if (HasDevice()) {
        return;
    }
    masterVolume = 1.0f;
    if (!started) {
        Platform::TheAudio().Start();
        started = true;
    }
    Console::Print(HasDevice() ? "\nSound subsystem initialised successfully."
                               : "\nError initialising sound subsystem.");
    if (const auto on = AudioPreference("Sound")) {
        SetMasterVolume(*on ? 1.0f : 0.0f);
    }
}

void Shutdown() {
    if (started) {
        Platform::TheAudio().Stop();
        started = false;
    }
}

bool HasDevice() {
    return started && Platform::TheAudio().HasDevice();
}

void InitialiseCache() {
    ReleaseAll();
    commands.Add();
}

void ShutdownCache() {
    ReleaseAll();
    commands.Remove();
}

void SetMasterVolume(float volume) {
    masterVolume = std::clamp(volume, 0.0f, 1.0f);
}

float MasterVolume() {
    return masterVolume;
}

const SoundSample& Acquire(std::string_view name) {
    const std::string key = UpperCased(name);
    const auto [entry, isNew] = Samples().try_emplace(key);
    if (isNew) {
        entry->second.buffer = Load(key);
    }
    ++entry->second.referenceCount;
    return entry->second;
}

void Release(std::string_view name) {
    if (cacheGone) {
        return;
    }
    const auto entry = Samples().find(UpperCased(name));
    VANTREL_ASSERT(entry == Samples().end() || entry->second.referenceCount > 0);
    if (entry == Samples().end() || --entry->second.referenceCount > 0) {
        return;
    }
    Platform::TheAudio().FreeSample(entry->second.buffer);
    Samples().erase(entry);
}

}  // namespace SoundManager
