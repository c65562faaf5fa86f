#pragma once
// The state of OpenAlAudio: the samples, the voices, the sources they share and the
// thread that keeps device and music going.

#include <AL/al.h>

#include <condition_variable>
#include <mutex>
#include <thread>
#include <vector>

#include "platform/OpenAlAudio.h"
#include "platform/OpenAlDevice.h"
#include "platform/OpenAlMusic.h"
#include "platform/Slots.h"

namespace Platform {

struct OpenAlSample {
    PcmFormat format;
    std::vector<std::byte> data;  // kept, since a device that comes back has lost its samples
    ALuint buffer = 0;            // 0: no device
};

struct OpenAlVoice {
    SampleId sample = 0;
    ALuint source = 0;         // 0: not playing
    std::size_t position = 0;  // frame where it stands while it has no source
    int attenuation = loudest;
    std::uint32_t rate = 0;
    std::uint32_t sampleRate = 1;
};

/// The frame that a source has come to.
inline std::size_t PlayingFrame(ALuint source) {
    ALint offset = 0;
    alGetSourcei(source, AL_SAMPLE_OFFSET, &offset);
    return static_cast<std::size_t>(offset);
}

struct OpenAlAudio::State {
    explicit State(std::uint32_t renderRate) : device(renderRate) {}

    // The game's thread and the audio's take turns; neither holds it while a device opens.
    mutable std::mutex lock;
    bool attached = false;  // device and sources may be used
    Slots<OpenAlSample> samples;
    Slots<OpenAlVoice> voices;
    std::vector<ALuint> freeSources;
    std::vector<VoiceId> holders;  // voices that have a source
    std::size_t sourceCount = 0;
    bool sourcesExhausted = false;

    OpenAlDevice device;
    OpenAlMusic music;
    int starts = 0;
    int feedsSinceTry = 0;

    std::thread worker;
    std::mutex wakeLock;
    std::condition_variable wake;
    bool quit = false;

    void Upload(OpenAlSample& sample);
    bool Attach();
    void Detach();
    void Watch();
    void Work();
    void StartWorker();
    void StopWorker();
    ALuint TakeSource();
    bool TakeFromSilentVoice();
    void Sweep();
    void Release(OpenAlVoice& voice);
    void Halt(OpenAlVoice& voice);
    bool Refresh(OpenAlVoice& voice);
    void FreeVoice(VoiceId id);
    /// None for no voice.
    const OpenAlSample* SampleOf(const OpenAlVoice* voice) {
        return voice != nullptr ? samples.Find(voice->sample) : nullptr;
    }
};

}  // namespace Platform
