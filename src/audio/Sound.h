#pragma once
// A private playing copy of a cached sample, with its own volume, pitch and position: one file
// can be heard several times at once. A value: copies play on their own. Silent, not invalid,
// when its file or the device is missing; every operation then does nothing.
//
// No operation but construction and assignment allocates.

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/Audio.h"

class Sound {
public:
    Sound() : Sound("snd\\default.wav") {}
    explicit Sound(std::string_view fileName);
    /// The same sample, volume and pitch, stopped at its start.
    Sound(const Sound& other);
    Sound& operator=(const Sound& other);
    ~Sound();

    /// Once, from the current position.
    void Play();
    void PlayLooped();
    /// The position stays.
    void Stop();
    void Rewind();
    bool IsPlaying() const;
    /// Held within 0..1; the master volume is multiplied in.
    void SetVolume(float value);
    /// Held within -1..1: from 100 Hz over the sample's own rate at 0 to 200,000 Hz, along a
    /// straight line on each side.
    void SetPitch(float value);
    /// Takes the other's position; false if either is silent.
    bool CopyPositionFrom(const Sound& other);

    /// The file name, upper-cased.
    const std::string& Name() const { return name; }
    float Volume() const { return volume; }
    float Pitch() const { return pitch; }

private:
    void Duplicate();
    void Drop();
    void ApplyVolume();
    void ApplyPitch();
    bool CanPlay() const;

    Platform::VoiceId buffer = 0;  // 0: loading failed, or there was nothing to load to
    std::string name;
    std::uint32_t frequency = 0;  // the sample's own rate, hertz
    float volume = 1.0f;
    float pitch = 0.0f;
};
