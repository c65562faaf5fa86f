// The two decoders. Vorbis has one of its own, since the general library loses its place in
// the last half second of such files.

#include "platform/MusicDecoder.h"

#include <sndfile.h>
#include <vorbis/vorbisfile.h>

#include <algorithm>
#include <bit>

namespace Platform {

namespace {

bool IsPlayable(long rate, int channels) {
    return (channels == 1 || channels == 2) && rate >= static_cast<long>(lowestRate) &&
           rate <= static_cast<long>(highestRate);
}

class VorbisDecoder : public MusicDecoder {
public:
    ~VorbisDecoder() override {
        if (isOpen) {
            ov_clear(&file);
        }
    }

    bool Open(const std::filesystem::path& path) {
        isOpen = ov_fopen(path.c_str(), &file) == 0;
        const vorbis_info* const info = isOpen ? ov_info(&file, 0) : nullptr;
        if (info == nullptr || !IsPlayable(info->rate, info->channels)) {
            return false;
        }
        format = {static_cast<unsigned>(info->channels), 16,
                  static_cast<std::uint32_t>(info->rate)};
        return true;
    }

    std::size_t Read(std::span<std::int16_t> samples) override {
        std::size_t filled = 0;
        while (filled < samples.size()) {
            const long bytes = ReadSome(samples.subspan(filled));
            if (bytes == OV_HOLE) {
                continue;  // Damage in the middle: the next page goes on.
            }
            if (bytes <= 0) {
                break;
            }
            filled += static_cast<std::size_t>(bytes) / sizeof(std::int16_t);
        }
        return filled;
    }

    bool Seek(std::uint32_t frame) override {
        const ogg_int64_t total = ov_pcm_total(&file, -1);
        return total >= 0 && ov_pcm_seek(&file, std::min<ogg_int64_t>(frame, total)) == 0;
    }

private:
    long ReadSome(std::span<std::int16_t> samples) {
        constexpr long mostBytes = 1 << 20;
        const long room = std::min(static_cast<long>(samples.size_bytes()), mostBytes);
        const int bigEndian = std::endian::native == std::endian::big ? 1 : 0;
        int section = 0;
        const long bytes = ov_read(&file, reinterpret_cast<char*>(samples.data()),
                                   static_cast<int>(room), bigEndian, 2, 1, &section);
        // A later link of a chained file may have another form, which ends the piece.
        const vorbis_info* const info = ov_info(&file, -1);
        const bool same = info != nullptr && info->rate == static_cast<long>(format.rate) &&
                          info->channels == static_cast<int>(format.channels);
        return same || bytes == OV_HOLE ? bytes : 0;
    }

    OggVorbis_File file{};
    bool isOpen = false;
};

class SoundFileDecoder : public MusicDecoder {
public:
    ~SoundFileDecoder() override {
        if (file != nullptr) {
            sf_close(file);
        }
    }

    bool Open(const std::filesystem::path& path) {
        SF_INFO info{};
        file = sf_open(path.c_str(), SFM_READ, &info);
        if (file == nullptr || !IsPlayable(info.samplerate, info.channels)) {
            return false;
        }
        format = {static_cast<unsigned>(info.channels), 16,
                  static_cast<std::uint32_t>(info.samplerate)};
        frames = std::max<sf_count_t>(info.frames, 0);
        return true;
    }

    std::size_t Read(std::span<std::int16_t> samples) override {
        const auto channels = static_cast<sf_count_t>(format.channels);
        const auto room = static_cast<sf_count_t>(samples.size()) / channels;
        const sf_count_t read = sf_readf_short(file, samples.data(), room);
        return static_cast<std::size_t>(std::max<sf_count_t>(read, 0) * channels);
    }

    bool Seek(std::uint32_t frame) override {
        return sf_seek(file, std::min<sf_count_t>(frame, frames), SEEK_SET) >= 0;
    }

private:
    SNDFILE* file = nullptr;
    sf_count_t frames = 0;  // as the file says; nothing is allocated by it
};

}  // namespace

std::unique_ptr<MusicDecoder> MusicDecoder::Open(const std::filesystem::path& file) {
    auto vorbis = std::make_unique<VorbisDecoder>();
    if (vorbis->Open(file)) {
        return vorbis;
    }
    auto general = std::make_unique<SoundFileDecoder>();
    if (general->Open(file)) {
        return general;
    }
    return nullptr;
}

}  // namespace Platform
