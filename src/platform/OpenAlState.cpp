// Device, sources and thread of the real audio.

#include "platform/OpenAlState.h"

#include <algorithm>
#include <chrono>

namespace Platform {

namespace {

using Guard = std::lock_guard<std::mutex>;

constexpr auto feedInterval = std::chrono::milliseconds(20);
constexpr std::size_t usualSources = 1024;
constexpr int feedsPerTry = 100;  // two seconds between asking for a lost device

ALenum FormatOf(const PcmFormat& format) {
    if (format.channels == 1) {
        return format.bits == 8 ? AL_FORMAT_MONO8 : AL_FORMAT_MONO16;
    }
    return format.bits == 8 ? AL_FORMAT_STEREO8 : AL_FORMAT_STEREO16;
}

}  // namespace

// Device

void OpenAlAudio::State::Upload(OpenAlSample& sample) {
    alGetError();
    alGenBuffers(1, &sample.buffer);
    alBufferData(sample.buffer, FormatOf(sample.format), sample.data.data(),
                 static_cast<ALsizei>(sample.data.size()),
                 static_cast<ALsizei>(sample.format.rate));
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

/// A source that nobody uses; 0 if all are audible.
ALuint OpenAlAudio::State::TakeSource() {
    if (freeSources.empty() && !sourcesExhausted) {
        ALuint source = 0;
        alGetError();
        alGenSources(1, &source);
        if (alGetError() == AL_NO_ERROR) {
            ++sourceCount;
            alSourcei(source, AL_SOURCE_RELATIVE, AL_TRUE);
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
        ALint offset = 0;
        alGetSourcei(voice.source, AL_BYTE_OFFSET, &offset);
        voice.position = static_cast<std::size_t>(offset);
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
