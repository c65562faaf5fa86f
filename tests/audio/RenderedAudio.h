#pragma once
// The real audio with a device that renders into memory, in a directory of its own, and what
// can be measured on the result.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <numbers>
#include <string>
#include <vector>

#include "audio/MusicPlayer.h"
#include "audio/SoundManager.h"
#include "engine/ByteWriter.h"
#include "engine/Console.h"
#include "platform/OpenAlAudio.h"
#include "platform/Paths.h"
#include "support/TemporaryDirectory.h"

namespace Signal {

/// A 16-bit mono WAV of a sine; whole periods loop without a click.
inline std::string SineWav(double hertz, double seconds, double amplitude = 0.5,
                           std::uint32_t rate = 44100) {
    ByteWriter writer;
    const auto frames = static_cast<std::uint32_t>(seconds * rate);
    const auto mark = [&](const char* text) { writer.Bytes(std::as_bytes(std::span(text, 4))); };
    mark("RIFF");
    writer.U32(36 + frames * 2);
    mark("WAVE");
    mark("fmt ");
    writer.U32(16);
    writer.U16(1);
    writer.U16(1);
    writer.U32(rate);
    writer.U32(rate * 2);
    writer.U16(2);
    writer.U16(16);
    mark("data");
    writer.U32(frames * 2);
    for (std::uint32_t i = 0; i < frames; ++i) {
        const double x = amplitude * std::sin(2.0 * std::numbers::pi * hertz * i / rate);
        writer.U16(static_cast<std::uint16_t>(std::lround(x * 32767.0)));
    }
    const auto& block = writer.Block();
    return {reinterpret_cast<const char*>(block.data()), block.size()};
}

/// Root of the mean square of the left channel.
inline double Loudness(const std::vector<float>& stereo) {
    double sum = 0.0;
    for (std::size_t i = 0; i < stereo.size(); i += 2) {
        sum += static_cast<double>(stereo[i]) * static_cast<double>(stereo[i]);
    }
    return std::sqrt(sum * 2.0 / static_cast<double>(stereo.size()));
}

inline double Decibels(double ratio) {
    return 20.0 * std::log10(ratio);
}

/// Frequency of a sine on the left channel, from its rising zero crossings.
inline double Pitch(const std::vector<float>& stereo, double rate = 44100.0) {
    double first = -1.0;
    double last = -1.0;
    int count = 0;
    for (std::size_t i = 2; i < stereo.size(); i += 2) {
        const double before = static_cast<double>(stereo[i - 2]);
        const double here = static_cast<double>(stereo[i]);
        if (before < 0.0 && here >= 0.0) {
            last = static_cast<double>(i) / 2.0 - here / (here - before);
            first = count++ == 0 ? last : first;
        }
    }
    return count > 1 ? (count - 1) * rate / (last - first) : 0.0;
}

/// What the audio plays next, on both channels.
inline std::vector<float> Render(Platform::OpenAlAudio& audio, double seconds,
                                 std::uint32_t rate = 44100) {
    std::vector<float> stereo(2 * static_cast<std::size_t>(seconds * rate));
    audio.Render(stereo);
    return stereo;
}

/// The largest step between neighbouring samples of the left channel: a click stands out.
inline double LargestJump(const std::vector<float>& stereo) {
    double largest = 0.0;
    for (std::size_t i = 2; i < stereo.size(); i += 2) {
        largest = std::max(largest, std::fabs(static_cast<double>(stereo[i] - stereo[i - 2])));
    }
    return largest;
}

}  // namespace Signal

class RenderedAudio : public testing::Test {
protected:
    explicit RenderedAudio(std::uint32_t rate = 44100) : renderRate(rate), audio(rate) {
        Platform::UseAudio(&audio);
        Platform::ForgetListings();
        Console::Initialise();
        MusicPlayer::Initialise();
        SoundManager::Initialise();
        SoundManager::InitialiseCache();
        SoundManager::SetMasterVolume(1.0f);
        MusicPlayer::SetVolume(255);
    }
    ~RenderedAudio() override {
        SoundManager::ShutdownCache();
        SoundManager::Shutdown();
        MusicPlayer::Shutdown();
        Console::Shutdown();
        Platform::UseAudio(nullptr);
        Platform::ForgetListings();
    }

    void Write(const std::string& name, const std::string& bytes) {
        directory.Write(name, bytes);
        Platform::ForgetListings();
    }
    std::vector<float> Render(double seconds) { return Signal::Render(audio, seconds, renderRate); }
    double LoudnessOf(double seconds) { return Signal::Loudness(Render(seconds)); }

    std::uint32_t renderRate;
    TemporaryDirectory directory;
    WorkingDirectoryGuard inDirectory{directory.path};
    Platform::OpenAlAudio audio;
};
