// The audio's operations on samples and voices, and rendering.

#include "platform/OpenAlAudio.h"

#include <algorithm>
#include <cmath>

#include "platform/Assert.h"
#include "platform/OpenAlState.h"

namespace Platform {

namespace {

using Guard = std::lock_guard<std::mutex>;

constexpr std::size_t renderSlice = 1024;  // frames between two feeds

float GainOf(int attenuation) {
    return attenuation <= silence ? 0.0f
                                  : std::pow(10.0f, static_cast<float>(attenuation) / 2000.0f);
}

float PitchOf(const OpenAlVoice& voice) {
    return static_cast<float>(voice.rate) / static_cast<float>(voice.sampleRate);
}

bool IsPlayable(const PcmFormat& format) {
    return (format.channels == 1 || format.channels == 2) &&
           (format.bits == 8 || format.bits == 16) && format.rate >= lowestRate &&
           format.rate <= highestRate;
}

}  // namespace

OpenAlAudio::OpenAlAudio() : state(std::make_unique<State>(0)) {}

OpenAlAudio::OpenAlAudio(std::uint32_t renderRate) : state(std::make_unique<State>(renderRate)) {}

OpenAlAudio::~OpenAlAudio() {
    while (state->starts > 0) {
        Stop();
    }
}

bool OpenAlAudio::Start() {
    if (state->starts++ == 0) {
        state->Attach();
        if (!state->device.Renders()) {
            state->StartWorker();
        }
    }
    return HasDevice();
}

void OpenAlAudio::Stop() {
    VANTREL_ASSERT(state->starts > 0);
    if (state->starts == 0 || --state->starts > 0) {
        return;
    }
    state->StopWorker();
    state->music.Close();
    if (state->device.IsOpen()) {
        state->Detach();
    }
    state->voices.Clear();
    state->samples.Clear();
}

bool OpenAlAudio::HasDevice() const {
    const Guard guard(state->lock);
    return state->attached;
}

SampleId OpenAlAudio::LoadSample(const PcmFormat& format, std::span<const std::byte> data) {
    if (!IsPlayable(format)) {
        return 0;
    }
    const std::size_t bytes = data.size() - data.size() % format.FrameBytes();
    if (bytes == 0 || bytes > static_cast<std::size_t>(INT32_MAX) / 2) {
        return 0;
    }
    const Guard guard(state->lock);
    if (state->starts == 0) {
        return 0;
    }
    OpenAlSample sample{
        format, {data.begin(), data.begin() + static_cast<std::ptrdiff_t>(bytes)}, 0};
    if (state->attached) {
        state->Upload(sample);
    }
    return state->samples.Add(std::move(sample));
}

void OpenAlAudio::FreeSample(SampleId id) {
    const Guard guard(state->lock);
    OpenAlSample* const sample = state->samples.Find(id);
    if (sample == nullptr) {
        return;
    }
    state->voices.ForEach([&](OpenAlVoice& voice) {
        if (voice.sample == id && voice.source != 0) {
            state->Release(voice);
        }
    });
    if (sample->buffer != 0) {
        alDeleteBuffers(1, &sample->buffer);
    }
    state->samples.Remove(id);
}

std::size_t OpenAlAudio::SampleBytes(SampleId id) const {
    const Guard guard(state->lock);
    const OpenAlSample* const sample = state->samples.Find(id);
    return sample != nullptr ? sample->data.size() : 0;
}

VoiceId OpenAlAudio::MakeVoice(SampleId id) {
    const Guard guard(state->lock);
    const OpenAlSample* const sample = state->samples.Find(id);
    if (sample == nullptr) {
        return 0;
    }
    OpenAlVoice voice;
    voice.sample = id;
    voice.rate = sample->format.rate;
    voice.sampleRate = sample->format.rate;
    return state->voices.Add(voice);
}

void OpenAlAudio::FreeVoice(VoiceId id) {
    const Guard guard(state->lock);
    state->FreeVoice(id);
}

void OpenAlAudio::Play(VoiceId id, bool looped) {
    const Guard guard(state->lock);
    OpenAlVoice* const voice = state->voices.Find(id);
    const OpenAlSample* const sample = state->SampleOf(voice);
    if (!state->attached || sample == nullptr || sample->buffer == 0) {
        return;
    }
    if (state->Refresh(*voice)) {
        alSourcei(voice->source, AL_LOOPING, looped ? AL_TRUE : AL_FALSE);
        return;
    }
    const ALuint source = state->TakeSource();
    if (source == 0) {
        return;
    }
    voice->source = source;
    state->holders.push_back(id);
    alSourcei(source, AL_BUFFER, static_cast<ALint>(sample->buffer));
    alSourcei(source, AL_LOOPING, looped ? AL_TRUE : AL_FALSE);
    alSourcef(source, AL_GAIN, GainOf(voice->attenuation));
    alSourcef(source, AL_PITCH, PitchOf(*voice));
    alSourcei(source, AL_SAMPLE_OFFSET, static_cast<ALint>(voice->position));
    alSourcePlay(source);
}

void OpenAlAudio::Stop(VoiceId id) {
    const Guard guard(state->lock);
    if (OpenAlVoice* const voice = state->voices.Find(id)) {
        state->Halt(*voice);
    }
}

bool OpenAlAudio::IsPlaying(VoiceId id) const {
    const Guard guard(state->lock);
    OpenAlVoice* const voice = state->voices.Find(id);
    return voice != nullptr && state->Refresh(*voice);
}

std::size_t OpenAlAudio::Position(VoiceId id) const {
    const Guard guard(state->lock);
    OpenAlVoice* const voice = state->voices.Find(id);
    const OpenAlSample* const sample = state->SampleOf(voice);
    if (sample == nullptr) {
        return 0;
    }
    const std::size_t frame =
        state->Refresh(*voice) ? PlayingFrame(voice->source) : voice->position;
    return frame * sample->format.FrameBytes();
}

void OpenAlAudio::SetPosition(VoiceId id, std::size_t bytes) {
    const Guard guard(state->lock);
    OpenAlVoice* const voice = state->voices.Find(id);
    const OpenAlSample* const sample = state->SampleOf(voice);
    if (sample == nullptr) {
        return;
    }
    const std::size_t frame = bytes < sample->data.size() ? bytes / sample->format.FrameBytes() : 0;
    if (state->Refresh(*voice)) {
        alSourcei(voice->source, AL_SAMPLE_OFFSET, static_cast<ALint>(frame));
    } else {
        voice->position = frame;
    }
}

void OpenAlAudio::SetAttenuation(VoiceId id, int hundredthsOfDecibel) {
    const Guard guard(state->lock);
    OpenAlVoice* const voice = state->voices.Find(id);
    const int attenuation = std::clamp(hundredthsOfDecibel, silence, loudest);
    if (voice == nullptr || voice->attenuation == attenuation) {
        return;
    }
    voice->attenuation = attenuation;
    if (voice->source != 0) {
        alSourcef(voice->source, AL_GAIN, GainOf(attenuation));
    }
}

void OpenAlAudio::SetRate(VoiceId id, std::uint32_t hertz) {
    const Guard guard(state->lock);
    OpenAlVoice* const voice = state->voices.Find(id);
    if (voice == nullptr) {
        return;
    }
    voice->rate = std::clamp(hertz, lowestRate, highestRate);
    if (voice->source != 0) {
        alSourcef(voice->source, AL_PITCH, PitchOf(*voice));
    }
}

std::uint32_t OpenAlAudio::Rate(VoiceId id) const {
    const Guard guard(state->lock);
    const OpenAlVoice* const voice = state->voices.Find(id);
    return voice != nullptr ? voice->rate : 0;
}

MusicStream& OpenAlAudio::Music() {
    return state->music;
}

void OpenAlAudio::Render(std::span<float> stereo) {
    while (!stereo.empty()) {
        const auto slice = stereo.first(std::min(stereo.size(), renderSlice * 2));
        std::ranges::fill(slice, 0.0f);
        state->Work();
        state->device.Render(slice);
        stereo = stereo.subspan(slice.size());
    }
}

void OpenAlAudio::PlugDevice(bool there) {
    state->device.plugged = there;
}

std::size_t OpenAlAudio::SourceCount() const {
    const Guard guard(state->lock);
    return state->sourceCount;
}

}  // namespace Platform
