// The choice of the audio in force.

#include "platform/Audio.h"

#include "platform/SilentAudio.h"

namespace Platform {

namespace {

Audio* audioInForce = nullptr;

}  // namespace

Audio& TheAudio() {
    static SilentAudio silent;
    return audioInForce != nullptr ? *audioInForce : silent;
}

void UseAudio(Audio* audio) {
    audioInForce = audio;
}

}  // namespace Platform
