// Video on the FFmpeg libraries. Only AVI files on the disk are taken: the libraries would
// also follow play lists and addresses that stand in a file.

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libswscale/swscale.h>
}

#include <algorithm>
#include <cstddef>
#include <new>
#include <optional>
#include <vector>

#include "platform/ImageBounds.h"
#include "platform/Video.h"

namespace Platform {

namespace {

struct Release {
    void operator()(AVFormatContext* context) const { avformat_close_input(&context); }
    void operator()(AVCodecContext* context) const { avcodec_free_context(&context); }
    void operator()(AVPacket* packet) const { av_packet_free(&packet); }
    void operator()(AVFrame* frame) const { av_frame_free(&frame); }
    void operator()(SwsContext* context) const { sws_freeContext(context); }
};
template <class Type>
using Owned = std::unique_ptr<Type, Release>;

class FfmpegVideo : public Video {
public:
    bool Open(const std::filesystem::path& file);
    const unsigned char* Frame(std::uint32_t number) override;

private:
    bool OpenFile(const std::filesystem::path& file);
    bool OpenDecoder();
    bool ReadDimensions();
    void CountFrames();
    bool Rewind();
    bool DecodeNext();
    bool Feed();
    bool Convert();

    Owned<AVFormatContext> format;
    Owned<AVCodecContext> decoder;
    Owned<SwsContext> scaler;
    Owned<AVPacket> packet{av_packet_alloc()};
    Owned<AVFrame> frame{av_frame_alloc()};
    AVStream* stream = nullptr;  // the format's
    std::vector<unsigned char> pixels;

    std::uint32_t decoded = 0;           // frames that came out since the start
    std::uint32_t frameNumber = 0;       // of what is in `frame`
    bool waiting = false;                // it isn't in `pixels` yet
    std::optional<std::uint32_t> shown;  // number of what is in `pixels`
    bool drained = false;                // the file's end was handed to the decoder
};

bool FfmpegVideo::OpenFile(const std::filesystem::path& file) {
    AVDictionary* options = nullptr;
    av_dict_set(&options, "protocol_whitelist", "file", 0);
    AVFormatContext* opened = nullptr;
    const int result = avformat_open_input(&opened, ("file:" + file.string()).c_str(),
                                           av_find_input_format("avi"), &options);
    av_dict_free(&options);
    format.reset(opened);
    if (result < 0 || avformat_find_stream_info(format.get(), nullptr) < 0) {
        return false;
    }
    for (unsigned i = 0; i < format->nb_streams; ++i) {
        AVStream* const candidate = format->streams[i];
        if (stream == nullptr && candidate->codecpar->codec_type == AVMEDIA_TYPE_VIDEO) {
            stream = candidate;
        } else {
            candidate->discard = AVDISCARD_ALL;
        }
    }
    return stream != nullptr;
}

bool FfmpegVideo::OpenDecoder() {
    const AVCodec* const codec = avcodec_find_decoder(stream->codecpar->codec_id);
    if (codec == nullptr) {
        return false;
    }
    decoder.reset(avcodec_alloc_context3(codec));
    if (!decoder || avcodec_parameters_to_context(decoder.get(), stream->codecpar) < 0) {
        return false;
    }
    // More threads would hold frames back.
    decoder->thread_count = 1;
    decoder->max_pixels = mostImagePixels;
    decoder->pkt_timebase = stream->time_base;
    return avcodec_open2(decoder.get(), codec, nullptr) >= 0;
}

bool FfmpegVideo::ReadDimensions() {
    width = stream->codecpar->width;
    height = stream->codecpar->height;
    // An AVI stream counts time in frames.
    const AVRational unit = stream->time_base;
    if (unit.num > 0 && unit.den > 0) {
        const std::int64_t duration = std::int64_t{unit.num} * 1000 / unit.den;
        frameMilliseconds = static_cast<int>(std::min<std::int64_t>(duration, 1 << 30));
    }
    return width > 0 && height > 0 &&
           IsBearableImage(static_cast<std::uint64_t>(width), static_cast<std::uint64_t>(height));
}

/// By its packets: the header of a file that was cut off still tells of all its frames.
void FfmpegVideo::CountFrames() {
    std::int64_t count = 0;
    while (av_read_frame(format.get(), packet.get()) >= 0) {
        if (packet->stream_index == stream->index) {
            count = std::max(count, packet->dts != AV_NOPTS_VALUE ? packet->dts : count) + 1;
        }
        av_packet_unref(packet.get());
    }
    frameCount = static_cast<std::uint32_t>(std::clamp<std::int64_t>(count, 0, UINT32_MAX));
}

bool FfmpegVideo::Rewind() {
    avcodec_flush_buffers(decoder.get());
    decoded = 0;
    drained = false;
    waiting = false;
    shown.reset();
    const std::int64_t start = stream->start_time != AV_NOPTS_VALUE ? stream->start_time : 0;
    return av_seek_frame(format.get(), stream->index, start, AVSEEK_FLAG_BACKWARD) >= 0;
}

bool FfmpegVideo::Open(const std::filesystem::path& file) {
    if (!packet || !frame || !OpenFile(file) || !OpenDecoder() || !ReadDimensions()) {
        return false;
    }
    CountFrames();
    return frameCount > 0 && Rewind();
}

/// Hands the decoder the next packet, or the end. False if it can't be decoded.
bool FfmpegVideo::Feed() {
    while (av_read_frame(format.get(), packet.get()) >= 0) {
        const bool wanted = packet->stream_index == stream->index;
        const int result = wanted ? avcodec_send_packet(decoder.get(), packet.get()) : 0;
        av_packet_unref(packet.get());
        if (wanted) {
            return result >= 0;
        }
    }
    if (drained) {
        return false;
    }
    drained = true;
    return avcodec_send_packet(decoder.get(), nullptr) >= 0;
}

/// Gets the next frame out of the decoder, and its number.
bool FfmpegVideo::DecodeNext() {
    for (;;) {
        const int result = avcodec_receive_frame(decoder.get(), frame.get());
        if (result >= 0) {
            break;
        }
        if (result != AVERROR(EAGAIN) || !Feed()) {
            return false;
        }
    }
    // Times tell of frames that the file leaves out. Where frames come out in another order
    // than they lie in, AVI files have no true times, and only counting is right.
    const std::int64_t time = frame->best_effort_timestamp;
    frameNumber = decoded;
    if (decoder->has_b_frames == 0 && time > decoded && time < frameCount) {
        frameNumber = static_cast<std::uint32_t>(time);
    }
    decoded = frameNumber + 1;
    return true;
}

bool FfmpegVideo::Convert() {
    if (pixels.empty()) {
        // With padding, as the converter may write beyond the end of a row.
        pixels.resize(static_cast<std::size_t>(RowBytes()) * static_cast<std::size_t>(height) + 64);
    }
    scaler.reset(sws_getCachedContext(scaler.release(), frame->width, frame->height,
                                      static_cast<AVPixelFormat>(frame->format), width, height,
                                      AV_PIX_FMT_BGR24, SWS_BILINEAR | SWS_ACCURATE_RND, nullptr,
                                      nullptr, nullptr));
    if (!scaler) {
        return false;
    }
    // From the last row in memory upwards, which turns the picture over.
    unsigned char* const planes[4] = {
        &pixels[static_cast<std::size_t>(RowBytes()) * static_cast<std::size_t>(height - 1)]};
    const int strides[4] = {-RowBytes()};
    return sws_scale(scaler.get(), frame->data, frame->linesize, 0, frame->height, planes,
                     strides) == height;
}

const unsigned char* FfmpegVideo::Frame(std::uint32_t number) {
    if (number >= frameCount || (shown && number < *shown && !Rewind())) {
        return nullptr;
    }
    while (!shown || *shown < number) {
        if (!waiting && !DecodeNext()) {
            return nullptr;
        }
        waiting = true;
        if (shown && frameNumber > number) {
            break;  // the file leaves this one out
        }
        if (!Convert()) {
            return nullptr;
        }
        shown = frameNumber;
        waiting = false;
    }
    return pixels.data();
}

}  // namespace

std::unique_ptr<Video> Video::Open(const std::filesystem::path& file) {
    // The libraries' own messages are discarded: the caller says what can't be opened.
    av_log_set_level(AV_LOG_QUIET);
    try {
        auto video = std::make_unique<FfmpegVideo>();
        if (video->Open(file)) {
            return video;
        }
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
    return nullptr;
}

}  // namespace Platform
