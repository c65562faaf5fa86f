#pragma once
// Plays the pictures of one AVI file over the whole height of the window, without sound. The
// caller's loop calls Update and Draw once per pass, on the thread that has the GL context;
// each frame that is due is decoded there and goes into one texture.
//
// A frame is shown for at least its duration and until the pass after that, and none is left
// out: a slow machine plays the film slower.

#include <cstdint>
#include <memory>
#include <string>

#include "engine/Timer.h"
#include "platform/Video.h"

class AviPlayer {
public:
    static constexpr std::uint32_t mostFrames = 65535;

    explicit AviPlayer(const std::string& fileName);
    ~AviPlayer();
    AviPlayer(const AviPlayer&) = delete;
    AviPlayer& operator=(const AviPlayer&) = delete;

    /// Shows frame 0. A file that can't be played is reported on the console and leaves the player
    /// closed.
    void Open(const std::string& fileName);
    void Close();
    bool IsOpen() const { return video != nullptr; }
    /// After the last frame's time, and while closed.
    bool IsFinished() const { return !IsOpen() || currentFrame >= frameCount; }
    void Restart();
    /// Goes on by a frame at most. A frame that can't be decoded closes the player.
    void Update();
    /// Clears the window, draws the frame centred, and swaps; while closed, nothing. A film
    /// that is wider than the window hangs over left and right.
    void Draw() const;

    std::uint32_t CurrentFrame() const { return currentFrame; }
    std::uint32_t FrameCount() const { return frameCount; }
    int FrameMilliseconds() const { return frameDurationMs; }
    std::uint32_t TextureWidth() const { return textureWidth; }
    std::uint32_t TextureHeight() const { return textureHeight; }

private:
    bool TryOpen(const std::string& fileName);
    void Show(std::uint32_t number);

    // With GL, in AviPlayerDraw.cpp.
    bool MakeTexture();
    void ReleaseTexture();
    void Upload(const unsigned char* pixels) const;

    std::uint32_t currentFrame = 0;
    std::uint32_t frameElapsedMs = 0;
    std::uint32_t frameCount = 0;
    int frameDurationMs = 0;
    std::uint32_t glName = 0;
    std::uint32_t textureWidth = 0;  ///< the film's, raised to a power of two
    std::uint32_t textureHeight = 0;
    Timer timer;
    std::unique_ptr<Platform::Video> video;
};
