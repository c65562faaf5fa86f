#pragma once
// No audio at all, for programs without a device: nothing loads and nothing plays.

#include "platform/Audio.h"

namespace Platform {

class SilentMusic : public MusicStream {
public:
    bool Open(const std::filesystem::path& /*file*/) override { return false; }
    void Close() override {}
    bool IsOpen() const override { return false; }
    void SetLooping(bool /*on*/) override {}
    void Play() override {}
    void Stop() override {}
    bool IsPlaying() const override { return false; }
    std::uint32_t Position() const override { return 0; }
    void SetPosition(std::uint32_t /*frame*/) override {}
    void SetVolume(unsigned /*volume*/) override {}
};

class SilentAudio : public Audio {
public:
    bool Start() override { return false; }
    void Stop() override {}
    bool HasDevice() const override { return false; }
    SampleId LoadSample(const PcmFormat& /*format*/, std::span<const std::byte> /*data*/) override {
        return 0;
    }
    void FreeSample(SampleId /*sample*/) override {}
    std::size_t SampleBytes(SampleId /*sample*/) const override { return 0; }
    VoiceId MakeVoice(SampleId /*sample*/) override { return 0; }
    void FreeVoice(VoiceId /*voice*/) override {}
    void Play(VoiceId /*voice*/, bool /*looped*/) override {}
    void Stop(VoiceId /*voice*/) override {}
    bool IsPlaying(VoiceId /*voice*/) const override { return false; }
    std::size_t Position(VoiceId /*voice*/) const override { return 0; }
    void SetPosition(VoiceId /*voice*/, std::size_t /*bytes*/) override {}
    void SetAttenuation(VoiceId /*voice*/, int /*hundredthsOfDecibel*/) override {}
    void SetRate(VoiceId /*voice*/, std::uint32_t /*hertz*/) override {}
    std::uint32_t Rate(VoiceId /*voice*/) const override { return 0; }
    MusicStream& Music() override { return music; }

private:
    SilentMusic music;
};

}  // namespace Platform
