#pragma once
// The audio device as the game asks for it: sample data that is loaded once, voices that play
// it, and one music stream. A voice is one playing head with its own volume, rate and
// position, and costs nothing of the device while it is silent, so there may be any number.
//
// Order of calls: Start, then samples, then voices on them; Stop at the end. Without a device
// everything is accepted and nothing plays; once a device is there (again), what is asked to
// play from then on is heard, and the music goes on at its place. Main thread only.

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>

namespace Platform {

/// Plain PCM: unsigned 8-bit or signed 16-bit little-endian, channels interleaved.
struct PcmFormat {
    unsigned channels = 1;  ///< 1 or 2
    unsigned bits = 16;     ///< 8 or 16
    std::uint32_t rate = 44100;

    std::size_t FrameBytes() const { return std::size_t{channels} * (bits / 8); }
};

using SampleId = std::uint64_t;  ///< 0: none
using VoiceId = std::uint64_t;   ///< 0: none

/// Attenuation in hundredths of a decibel; the lowest is silence.
inline constexpr int loudest = 0;
inline constexpr int silence = -10000;
/// Playback rates, hertz.
inline constexpr std::uint32_t lowestRate = 100;
inline constexpr std::uint32_t highestRate = 200000;

/// One piece of music, streamed from its file. Positions are frames of the piece.
class MusicStream {
public:
    virtual ~MusicStream() = default;

    /// Takes the piece in place of an earlier one, stopped at its start; false and nothing
    /// open if the file can't be played.
    virtual bool Open(const std::filesystem::path& file) = 0;
    virtual void Close() = 0;
    virtual bool IsOpen() const = 0;
    /// Whether the piece starts over at its end.
    virtual void SetLooping(bool on) = 0;
    /// Plays on from the position.
    virtual void Play() = 0;
    /// The position stays.
    virtual void Stop() = 0;
    virtual bool IsPlaying() const = 0;
    virtual std::uint32_t Position() const = 0;
    /// Held within the piece.
    virtual void SetPosition(std::uint32_t frame) = 0;
    /// 0 to 255, in proportion to the amplitude; also for pieces opened later.
    virtual void SetVolume(unsigned volume) = 0;
};

class Audio {
public:
    virtual ~Audio() = default;

    /// Takes the default device; whether there is one now. Starts are counted: each needs its
    /// Stop, and the last one lets the device, all samples and voices go.
    virtual bool Start() = 0;
    virtual void Stop() = 0;
    virtual bool HasDevice() const = 0;

    /// Copies the data; 0 if the format can't be played or there isn't a single whole frame.
    virtual SampleId LoadSample(const PcmFormat& format, std::span<const std::byte> data) = 0;
    /// Voices on it fall silent for good.
    virtual void FreeSample(SampleId sample) = 0;
    /// Bytes of sample data; 0 for none.
    virtual std::size_t SampleBytes(SampleId sample) const = 0;

    /// A stopped voice at position 0, at full volume and the sample's own rate; 0 for none.
    virtual VoiceId MakeVoice(SampleId sample) = 0;
    virtual void FreeVoice(VoiceId voice) = 0;
    /// Plays on from the position; a voice that plays takes on `looped` alone. A voice that
    /// reached its end goes back to position 0.
    virtual void Play(VoiceId voice, bool looped) = 0;
    /// The position stays.
    virtual void Stop(VoiceId voice) = 0;
    virtual bool IsPlaying(VoiceId voice) const = 0;
    /// Bytes from the sample's start.
    virtual std::size_t Position(VoiceId voice) const = 0;
    /// Rounded down to a whole frame; past the end means the start. Acts at once.
    virtual void SetPosition(VoiceId voice, std::size_t bytes) = 0;
    /// Held within `silence` and `loudest`.
    virtual void SetAttenuation(VoiceId voice, int hundredthsOfDecibel) = 0;
    /// Held within `lowestRate` and `highestRate`.
    virtual void SetRate(VoiceId voice, std::uint32_t hertz) = 0;
    virtual std::uint32_t Rate(VoiceId voice) const = 0;

    virtual MusicStream& Music() = 0;
};

/// The audio in force; a silent one without a device unless another was set.
Audio& TheAudio();
/// Sets the audio, not owned; null goes back to the silent one.
void UseAudio(Audio* audio);

}  // namespace Platform
