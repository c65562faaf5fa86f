#pragma once
// The sample files: PCM WAV with the format chunk first. Other chunks may stand before the
// data; chunk sizes count as they are, without padding.

#include <cstddef>
#include <optional>
#include <span>

#include "platform/Audio.h"

struct WavFile {
    Platform::PcmFormat format;
    std::span<const std::byte> data;  ///< within the file's bytes

    /// None unless the file is whole and of a supported form.
    static std::optional<WavFile> Parse(std::span<const std::byte> file);
};
