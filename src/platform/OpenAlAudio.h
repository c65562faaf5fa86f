#pragma once
// The real audio, on OpenAL Soft, whose types stay within the .cpp files.
//
// A voice takes one of the device's sources only while it plays. When all are taken a silent
// voice gives up its own; if none is silent the new voice doesn't start. A thread of its own
// feeds the music, notices when the device goes away and tries to have it back.
//
// What OpenAL can't do exactly: it plays at steps of the device's rate / 4096 (10.8 Hz at
// 44,100), rounded down, so that the lowest rates are off by up to a tenth; and below -100 dB
// there is nothing, so `silence` is a gain of 0.

#include <memory>

#include "platform/Audio.h"

namespace Platform {

class OpenAlAudio : public Audio {
public:
    /// Plays on the default device.
    OpenAlAudio();
    /// Plays on no device: the sound comes out of `Render`, in stereo at this rate, and there
    /// is no thread. For tests and for measuring.
    explicit OpenAlAudio(std::uint32_t renderRate);
    ~OpenAlAudio() override;
    OpenAlAudio(const OpenAlAudio&) = delete;
    OpenAlAudio& operator=(const OpenAlAudio&) = delete;

    bool Start() override;
    void Stop() override;
    bool HasDevice() const override;
    SampleId LoadSample(const PcmFormat& format, std::span<const std::byte> data) override;
    void FreeSample(SampleId sample) override;
    std::size_t SampleBytes(SampleId sample) const override;
    VoiceId MakeVoice(SampleId sample) override;
    void FreeVoice(VoiceId voice) override;
    void Play(VoiceId voice, bool looped) override;
    void Stop(VoiceId voice) override;
    bool IsPlaying(VoiceId voice) const override;
    std::size_t Position(VoiceId voice) const override;
    void SetPosition(VoiceId voice, std::size_t bytes) override;
    void SetAttenuation(VoiceId voice, int hundredthsOfDecibel) override;
    void SetRate(VoiceId voice, std::uint32_t hertz) override;
    std::uint32_t Rate(VoiceId voice) const override;
    MusicStream& Music() override;

    /// The next frames of sound, left and right in turn. Only on audio made to render.
    void Render(std::span<float> stereo);
    /// Takes the device away, or gives it back, as a cable would. Only on audio made to render.
    void PlugDevice(bool there);
    /// Device sources that exist, for watching that they stay few.
    std::size_t SourceCount() const;

private:
    struct State;
    std::unique_ptr<State> state;
};

}  // namespace Platform
