// Playing copies; see Sound.h.

#include "audio/Sound.h"

#include <algorithm>
#include <cmath>

#include "audio/SoundManager.h"
#include "engine/Text.h"

namespace {

/// Equal steps of volume are to sound alike: a half lies 13 decibels down.
constexpr float volumeCurve = 0.2f;

int AttenuationOf(float volume) {
    const float share = 1.0f - std::pow(volume, volumeCurve);
    return static_cast<int>(share * static_cast<float>(Platform::silence));
}

}  // namespace

Sound::Sound(std::string_view fileName) : name(UpperCased(fileName)) {
    Duplicate();
    ApplyVolume();
}

Sound::Sound(const Sound& other) : name(other.name), volume(other.volume), pitch(other.pitch) {
    Duplicate();
    ApplyVolume();
    ApplyPitch();
}

Sound& Sound::operator=(const Sound& other) {
    if (this == &other) {
        return *this;
    }
    Drop();
    name = other.name;
    volume = other.volume;
    pitch = other.pitch;
    Duplicate();
    ApplyVolume();
    ApplyPitch();
    return *this;
}

Sound::~Sound() {
    Drop();
}

void Sound::Duplicate() {
    const SoundSample& sample = SoundManager::Acquire(name);
    buffer = Platform::TheAudio().MakeVoice(sample.buffer);
    frequency = Platform::TheAudio().Rate(buffer);
}

void Sound::Drop() {
    if (buffer != 0) {
        Platform::TheAudio().FreeVoice(buffer);
        buffer = 0;
    }
    SoundManager::Release(name);
}

bool Sound::CanPlay() const {
    return buffer != 0 && SoundManager::HasDevice();
}

void Sound::ApplyVolume() {
    const float v = std::clamp(volume * SoundManager::MasterVolume(), 0.0f, 1.0f);
    Platform::TheAudio().SetAttenuation(buffer, AttenuationOf(v));
}

void Sound::ApplyPitch() {
    const auto own = static_cast<float>(frequency);
    constexpr auto low = static_cast<float>(Platform::lowestRate);
    constexpr auto high = static_cast<float>(Platform::highestRate);
    const float rate =
        pitch <= 0.0f ? own * (1.0f + pitch) - pitch * low : own * (1.0f - pitch) + pitch * high;
    Platform::TheAudio().SetRate(buffer, static_cast<std::uint32_t>(rate));
}

void Sound::Play() {
    ApplyVolume();
    Platform::TheAudio().Play(buffer, false);
}

void Sound::PlayLooped() {
    ApplyVolume();
    Platform::TheAudio().Play(buffer, true);
}

void Sound::Stop() {
    Platform::TheAudio().Stop(buffer);
}

void Sound::Rewind() {
    Platform::TheAudio().SetPosition(buffer, 0);
}

bool Sound::IsPlaying() const {
    return Platform::TheAudio().IsPlaying(buffer);
}

void Sound::SetVolume(float value) {
    volume = std::clamp(value, 0.0f, 1.0f);
    ApplyVolume();
}

void Sound::SetPitch(float value) {
    pitch = std::clamp(value, -1.0f, 1.0f);
    ApplyPitch();
}

bool Sound::CopyPositionFrom(const Sound& other) {
    if (!CanPlay() || !other.CanPlay()) {
        return false;
    }
    Platform::TheAudio().SetPosition(buffer, Platform::TheAudio().Position(other.buffer));
    return true;
}
