// Device, sources and thread of the real audio.

#include "platform/OpenAlState.h"

#include <AL/alext.h>

#include <algorithm>
#include <chrono>
#include <span>

namespace Platform {

namespace {

using Guard = std::lock_guard<std::mutex>;

constexpr auto feedInterval = std::chrono::milliseconds(20);
constexpr std::size_t usualSources = 1024;
constexpr int feedsPerTry = 100;  // two seconds between asking for a lost device

ALenum StereoFormat(unsigned bits) {
    return bits == 8 ? AL_FORMAT_STEREO8 : AL_FORMAT_STEREO16;
}

/// Each value of a single channel twice.
std::vector<std::byte> BothSides(const OpenAlSample& mono) {
    const std::size_t valueBytes = mono.format.FrameBytes();
    std::vector<std::byte> stereo;
    stereo.reserve(mono.data.size() * 2);
    for (std::size_t i = 0; i < mono.data.size(); i += valueBytes) {
        const auto value = std::span(mono.data).subspan(i, valueBytes);
        stereo.insert(stereo.end(), value.begin(), value.end());
        stereo.insert(stereo.end(), value.begin(), value.end());
    }
    return stereo;
}

}  // namespace

// Device

/// Gives the device a sample, in stereo: it would pan a single channel in its own way, to a
/// loudness that depends on the speakers.
void OpenAlAudio::State::Upload(OpenAlSample& sample) {
    const bool isMono = sample.format.channels == 1;
    const std::vector<std::byte> doubled = isMono ? BothSides(sample) : std::vector<std::byte>();
    const std::span<const std::byte> bytes = isMono ? doubled : sample.data;
    alGetError();
    alGenBuffers(1, &sample.buffer);
    alBufferData(sample.buffer, StereoFormat(sample.format.bits), bytes.data(),
                 static_cast<ALsizei>(bytes.size()), static_cast<ALsizei>(sample.format.rate));
    if (alGetError() != AL_NO_ERROR) {
        sample.buffer = 0;
    }
}

/// Opens the device and hands it all samples; whether there is one.
bool OpenAlAudio::State::Attach() {
    if (!device.Open()) {
        return false;
    }
    music.Attach();
    const Guard guard(lock);
    samples.ForEach([this](OpenAlSample& sample) { Upload(sample); });
    sourcesExhausted = false;
    // Playing and stopping are not to allocate.
    holders.reserve(usualSources);
    freeSources.reserve(usualSources);
    attached = true;
    return true;
}

/// Stops all voices where they are, and lets the device go.
void OpenAlAudio::State::Detach() {
    music.Detach();
    {
        const Guard guard(lock);
        while (!holders.empty()) {
            OpenAlVoice* const voice = voices.Find(holders.back());
            Halt(*voice);
        }
        freeSources.clear();
        sourceCount = 0;
        samples.ForEach([](OpenAlSample& sample) { sample.buffer = 0; });
        attached = false;
    }
    device.Close();
}

/// Notices that the device went, and asks for a lost one now and then.
void OpenAlAudio::State::Watch() {
    if (device.IsOpen()) {
        feedsSinceTry = 0;
        if (!device.IsConnected()) {
            Detach();
        }
    } else if (++feedsSinceTry >= feedsPerTry) {
        feedsSinceTry = 0;
        if (device.MayBeThere()) {
            Attach();
        }
    }
}

void OpenAlAudio::State::Work() {
    Watch();
    music.Feed();
}

void OpenAlAudio::State::StartWorker() {
    quit = false;
    worker = std::thread([this] {
        std::unique_lock<std::mutex> waiting(wakeLock);
        while (!quit) {
            waiting.unlock();
            Work();
            waiting.lock();
            wake.wait_for(waiting, feedInterval, [this] { return quit; });
        }
    });
}

void OpenAlAudio::State::StopWorker() {
    {
        const Guard guard(wakeLock);
        quit = true;
    }
    wake.notify_all();
    if (worker.joinable()) {
        worker.join();
    }
}

// Sources

/// Lets go of the sources whose voices reached their ends.
void OpenAlAudio::State::Sweep() {
    for (std::size_t i = holders.size(); i-- > 0;) {
        Refresh(*voices.Find(holders[i]));
    }
}

bool OpenAlAudio::State::TakeFromSilentVoice() {
    const auto silent = std::ranges::find_if(
        holders, [this](VoiceId id) { return voices.Find(id)->attenuation <= silence; });
    if (silent == holders.end()) {
        return false;
    }
    Halt(*voices.Find(*silent));
    return true;
}

/// A free source, or that of a silent voice; 0 if all are audible.
ALuint OpenAlAudio::State::TakeSource() {
    if (freeSources.empty() && !sourcesExhausted) {
        ALuint source = 0;
        alGetError();
        alGenSources(1, &source);
        if (alGetError() == AL_NO_ERROR) {
            ++sourceCount;
            alSourcei(source, AL_DIRECT_CHANNELS_SOFT, AL_TRUE);
            freeSources.push_back(source);
        } else {
            sourcesExhausted = true;
        }
    }
    if (freeSources.empty()) {
        Sweep();
    }
    if (freeSources.empty() && !TakeFromSilentVoice()) {
        return 0;
    }
    const ALuint source = freeSources.back();
    freeSources.pop_back();
    return source;
}

/// Gives the voice's source back.
void OpenAlAudio::State::Release(OpenAlVoice& voice) {
    alSourceStop(voice.source);
    alSourcei(voice.source, AL_BUFFER, 0);
    freeSources.push_back(voice.source);
    const auto holder =
        std::ranges::find_if(holders, [&](VoiceId id) { return voices.Find(id) == &voice; });
    *holder = holders.back();
    holders.pop_back();
    voice.source = 0;
}

/// Stops the voice and keeps its position.
void OpenAlAudio::State::Halt(OpenAlVoice& voice) {
    if (Refresh(voice)) {
        voice.position = PlayingFrame(voice.source);
        Release(voice);
    }
}

/// Whether the voice plays; one that reached its end gives its source back.
bool OpenAlAudio::State::Refresh(OpenAlVoice& voice) {
    if (voice.source == 0) {
        return false;
    }
    ALint status = 0;
    alGetSourcei(voice.source, AL_SOURCE_STATE, &status);
    if (status == AL_PLAYING) {
        return true;
    }
    voice.position = 0;
    Release(voice);
    return false;
}

void OpenAlAudio::State::FreeVoice(VoiceId id) {
    OpenAlVoice* const voice = voices.Find(id);
    if (voice != nullptr && voice->source != 0) {
        Release(*voice);
    }
    voices.Remove(id);
}

}  // namespace Platform
