#pragma once
// The picture stream of an AVI file, frame by frame; its sound is never read. Frames are asked
// for by number, best in ascending order: a step back decodes the file again from its start.

#include <cstdint>
#include <filesystem>
#include <memory>

namespace Platform {

class Video {
public:
    virtual ~Video() = default;

    int Width() const { return width; }  ///< pixels
    int Height() const { return height; }
    /// Frames that the file really holds, whatever its header says. A dropped frame counts, and
    /// repeats the one before it.
    std::uint32_t FrameCount() const { return frameCount; }
    /// How long a frame is on show, in whole milliseconds, rounded down.
    int FrameMilliseconds() const { return frameMilliseconds; }
    /// From one row of a frame to the next: the pixels, filled up to a multiple of 4.
    int RowBytes() const { return (width * 3 + 3) / 4 * 4; }

    /// The pixels of a frame: blue, green and red bytes, the bottom row first. They last until
    /// the next call. Null if the frame can't be decoded.
    virtual const unsigned char* Frame(std::uint32_t number) = 0;

    /// The first picture stream of the file; null if there is none that can be played.
    static std::unique_ptr<Video> Open(const std::filesystem::path& file);

protected:
    int width = 0;
    int height = 0;
    std::uint32_t frameCount = 0;
    int frameMilliseconds = 0;
};

}  // namespace Platform
