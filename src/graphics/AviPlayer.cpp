// The player's time: which frame is due. What it looks like is in AviPlayerDraw.cpp.

#include "graphics/AviPlayer.h"

#include <bit>

#include "engine/Console.h"
#include "platform/Assert.h"
#include "platform/Paths.h"

AviPlayer::AviPlayer(const std::string& fileName) {
    Open(fileName);
}

AviPlayer::~AviPlayer() {
    Close();
}

bool AviPlayer::TryOpen(const std::string& fileName) {
    const auto path = Platform::FindFile(fileName);
    if (!path) {
        return false;
    }
    video = Platform::Video::Open(*path);
    if (!video || video->FrameCount() > mostFrames || video->FrameMilliseconds() < 1) {
        return false;
    }
    frameCount = video->FrameCount();
    frameDurationMs = video->FrameMilliseconds();
    textureWidth = std::bit_ceil(static_cast<std::uint32_t>(video->Width()));
    textureHeight = std::bit_ceil(static_cast<std::uint32_t>(video->Height()));
    return MakeTexture();
}

void AviPlayer::Open(const std::string& fileName) {
    Close();
    if (!TryOpen(fileName)) {
        Console::Print("\nUnable to open AVI file '");
        Console::Print(fileName);
        Console::Print("'");
        Close();
        return;
    }
    Show(0);
    timer.Reset();
}

void AviPlayer::Close() {
    video.reset();
    ReleaseTexture();
    currentFrame = 0;
    frameElapsedMs = 0;
    frameCount = 0;
}

void AviPlayer::Restart() {
    if (IsOpen()) {
        Show(0);
        currentFrame = 0;
        frameElapsedMs = 0;
        timer.Reset();
    }
}

void AviPlayer::Update() {
    if (IsFinished()) {
        return;
    }
    timer.Tick();
    frameElapsedMs += timer.deltaMs;
    if (frameElapsedMs <= static_cast<std::uint32_t>(frameDurationMs)) {
        return;
    }
    frameElapsedMs = 0;
    if (++currentFrame < frameCount) {
        Show(currentFrame);
    }
}

void AviPlayer::Show(std::uint32_t number) {
    VANTREL_ASSERT(IsOpen());
    const unsigned char* const pixels = video->Frame(number);
    if (pixels != nullptr) {
        Upload(pixels);
    } else {
        Close();
    }
}
