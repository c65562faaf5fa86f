#pragma once
// Reads a music file piece by piece into 16-bit PCM: Ogg Vorbis, FLAC, MP3, WAV and whatever
// else the system's sound file library takes, of one or two channels.

#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>

#include "platform/Audio.h"

namespace Platform {

class MusicDecoder {
public:
    virtual ~MusicDecoder() = default;

    const PcmFormat& Format() const { return format; }
    /// Fills whole frames from the front; how many samples (not frames). 0 at the end, or
    /// where the rest of the file can't be read.
    virtual std::size_t Read(std::span<std::int16_t> samples) = 0;
    /// Goes to a frame, held within the piece; false if the file doesn't let it.
    virtual bool Seek(std::uint32_t frame) = 0;

    /// The file's decoder, at its start; null if it can't be played.
    static std::unique_ptr<MusicDecoder> Open(const std::filesystem::path& file);

protected:
    PcmFormat format;
};

}  // namespace Platform
