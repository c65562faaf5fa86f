// Queueing music and keeping its place.

#include "platform/OpenAlMusic.h"

#include <AL/alext.h>

#include <algorithm>

namespace Platform {

namespace {

using Guard = std::lock_guard<std::mutex>;

// Enough to fill the queue within moments, and little enough not to hold up the game.
constexpr int chunksPerFeed = 2;

ALint SourceValue(ALuint source, ALenum name) {
    ALint value = 0;
    alGetSourcei(source, name, &value);
    return value;
}

}  // namespace

bool OpenAlMusic::Open(const std::filesystem::path& file) {
    Close();
    auto opened = MusicDecoder::Open(file);
    if (opened == nullptr) {
        return false;
    }
    const Guard guard(lock);
    decoder = std::move(opened);
    scratch.resize(chunkFrames * 2);
    place = 0;
    decodeFrame = 0;
    seekPending = false;
    ended = false;
    playing = false;
    return true;
}

void OpenAlMusic::Close() {
    const Guard guard(lock);
    Flush();
    decoder.reset();
    playing = false;
    place = 0;
}

bool OpenAlMusic::IsOpen() const {
    const Guard guard(lock);
    return decoder != nullptr;
}

void OpenAlMusic::SetLooping(bool on) {
    const Guard guard(lock);
    looping = on;
}

void OpenAlMusic::Play() {
    const Guard guard(lock);
    if (decoder == nullptr || playing) {
        return;
    }
    playing = true;
    ended = false;
}

void OpenAlMusic::Stop() {
    const Guard guard(lock);
    if (playing) {
        RememberPlace();
        playing = false;
    }
}

bool OpenAlMusic::IsPlaying() const {
    const Guard guard(lock);
    return playing;
}

std::uint32_t OpenAlMusic::Position() const {
    const Guard guard(lock);
    return CurrentFrame();
}

void OpenAlMusic::SetPosition(std::uint32_t frame) {
    const Guard guard(lock);
    Flush();
    place = frame;
    seekPending = true;
    ended = false;
}

void OpenAlMusic::SetVolume(unsigned volume) {
    const Guard guard(lock);
    gain = static_cast<float>(std::min(volume, 255u)) / 255.0f;
    if (source != 0) {
        alSourcef(source, AL_GAIN, gain);
    }
}

void OpenAlMusic::Feed() {
    const Guard guard(lock);
    if (source == 0 || decoder == nullptr || !playing) {
        return;
    }
    Unqueue();
    for (int i = 0; i < chunksPerFeed && !ended && FillChunk(); ++i) {
    }
    if (queued.empty()) {
        playing = false;  // Heard to its end.
        place = 0;
        seekPending = true;
        return;
    }
    if (SourceValue(source, AL_SOURCE_STATE) != AL_PLAYING) {
        alSourcePlay(source);  // At a start, and when the thread came too late.
    }
    heard = CurrentFrame();
}

void OpenAlMusic::Attach() {
    const Guard guard(lock);
    std::array<ALuint, chunkCount> buffers{};
    alGetError();
    alGenSources(1, &source);
    alGenBuffers(static_cast<ALsizei>(buffers.size()), buffers.data());
    if (alGetError() != AL_NO_ERROR) {
        source = 0;
        return;
    }
    freeBuffers.assign(buffers.begin(), buffers.end());
    alSourcei(source, AL_DIRECT_CHANNELS_SOFT, AL_TRUE);
    alSourcef(source, AL_GAIN, gain);
}

void OpenAlMusic::Detach() {
    const Guard guard(lock);
    if (source == 0) {
        return;
    }
    RememberPlace();
    alDeleteSources(1, &source);
    source = 0;
    alDeleteBuffers(static_cast<ALsizei>(freeBuffers.size()), freeBuffers.data());
    freeBuffers.clear();
}

/// Decodes and queues one chunk; false at the end of what there is.
bool OpenAlMusic::FillChunk() {
    if (freeBuffers.empty()) {
        return false;
    }
    if (seekPending) {
        decodeFrame = decoder->Seek(place) ? place : decodeFrame;
        seekPending = false;
    }
    std::size_t samples = FillScratch();
    if (samples == 0 && looping && decoder->Seek(0)) {
        decodeFrame = 0;
        samples = FillScratch();
    }
    if (samples == 0) {
        ended = true;
        return false;
    }
    const PcmFormat& format = decoder->Format();
    const auto frames = static_cast<std::uint32_t>(samples / format.channels);
    const Chunk chunk{freeBuffers.back(), decodeFrame, frames};
    freeBuffers.pop_back();
    decodeFrame += frames;
    if (format.channels == 1) {
        SpreadToBothSides(samples);
    }
    alBufferData(chunk.buffer, AL_FORMAT_STEREO16, scratch.data(),
                 static_cast<ALsizei>(frames * 2 * sizeof(std::int16_t)),
                 static_cast<ALsizei>(format.rate));
    alSourceQueueBuffers(source, 1, &chunk.buffer);
    queued.push_back(chunk);
    return true;
}

/// Doubles the scratch's values in place, from the back. The device would pan a single channel in
/// its own way.
void OpenAlMusic::SpreadToBothSides(std::size_t samples) {
    for (std::size_t i = samples; i-- > 0;) {
        scratch[2 * i] = scratch[i];
        scratch[2 * i + 1] = scratch[i];
    }
}

/// Fills the scratch up to the piece's end; how many samples. A chunk never runs across the
/// end, so that each knows its place.
std::size_t OpenAlMusic::FillScratch() {
    const auto room = std::span(scratch).first(chunkFrames * decoder->Format().channels);
    std::size_t filled = 0;
    while (filled < room.size()) {
        const std::size_t read = decoder->Read(room.subspan(filled));
        if (read == 0) {
            break;
        }
        filled += read;
    }
    return filled;
}

/// Takes back the buffers that were heard.
void OpenAlMusic::Unqueue() {
    for (ALint count = SourceValue(source, AL_BUFFERS_PROCESSED); count > 0; --count) {
        ALuint buffer = 0;
        alSourceUnqueueBuffers(source, 1, &buffer);
        freeBuffers.push_back(buffer);
        queued.pop_front();
    }
}

/// Empties the queue.
void OpenAlMusic::Flush() {
    if (source != 0) {
        alSourceStop(source);
        alSourcei(source, AL_BUFFER, 0);
    }
    for (const Chunk& chunk : queued) {
        freeBuffers.push_back(chunk.buffer);
    }
    queued.clear();
}

void OpenAlMusic::RememberPlace() {
    place = CurrentFrame();
    Flush();
    seekPending = true;
    ended = false;
}

std::uint32_t OpenAlMusic::CurrentFrame() const {
    if (source == 0 || queued.empty()) {
        return place;
    }
    if (SourceValue(source, AL_SOURCE_STATE) == AL_STOPPED) {
        // The offset is 0 again. Before the end, a stop is the device's, which went away.
        return ended ? decodeFrame : heard;
    }
    // Counted from the front of the queue.
    auto offset = static_cast<std::uint32_t>(SourceValue(source, AL_SAMPLE_OFFSET));
    for (const Chunk& chunk : queued) {
        if (offset < chunk.frames) {
            return chunk.start + offset;
        }
        offset -= chunk.frames;
    }
    return decodeFrame;
}

}  // namespace Platform
