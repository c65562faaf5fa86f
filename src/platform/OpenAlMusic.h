#pragma once
// Music in an OpenAL queue. The game's thread says what is to play; `Feed`, on the audio's own
// thread, decodes and queues. Part of OpenAlAudio.

#include <AL/al.h>

#include <array>
#include <deque>
#include <memory>
#include <mutex>
#include <vector>

#include "platform/Audio.h"
#include "platform/MusicDecoder.h"

namespace Platform {

class OpenAlMusic : public MusicStream {
public:
    /// Frames in each buffer, and how many buffers wait in the queue: about a second.
    static constexpr std::size_t chunkFrames = 4096;
    static constexpr std::size_t chunkCount = 12;

    bool Open(const std::filesystem::path& file) override;
    void Close() override;
    bool IsOpen() const override;
    void SetLooping(bool on) override;
    void Play() override;
    void Stop() override;
    bool IsPlaying() const override;
    std::uint32_t Position() const override;
    void SetPosition(std::uint32_t frame) override;
    void SetVolume(unsigned volume) override;

    /// Queues what has room; call it many times a second.
    void Feed();
    /// A device is there: makes what playing needs.
    void Attach();
    /// The device goes: keeps the place.
    void Detach();

private:
    struct Chunk {
        ALuint buffer = 0;
        std::uint32_t start = 0;  // frame of the piece
        std::uint32_t frames = 0;
    };

    bool FillChunk();
    std::size_t FillScratch();
    void SpreadToBothSides(std::size_t samples);
    void Unqueue();
    void Flush();
    void RememberPlace();
    std::uint32_t CurrentFrame() const;

    // The game's thread and the audio's take turns with everything below. Two chunks may be
    // decoded under the lock: about two milliseconds.
    mutable std::mutex lock;
    std::unique_ptr<MusicDecoder> decoder;
    bool looping = false;
    bool playing = false;
    bool ended = false;             // nothing more to decode
    bool seekPending = false;       // the decoder stands elsewhere than at `place`
    std::uint32_t place = 0;        // frame to play on from, while nothing is queued
    std::uint32_t decodeFrame = 0;  // frame that the decoder gives next
    std::uint32_t heard = 0;        // frame that was heard at the last feed
    float gain = 1.0f;
    ALuint source = 0;  // 0: no device
    std::vector<ALuint> freeBuffers;
    std::deque<Chunk> queued;
    std::vector<std::int16_t> scratch;
};

}  // namespace Platform
