// Starting, pausing and ending the music.

#include "audio/MusicPlayer.h"

#include <algorithm>

#include "audio/AudioPreference.h"
#include "engine/Console.h"
#include "engine/ConsoleCommands.h"
#include "platform/Audio.h"
#include "platform/Paths.h"

namespace MusicPlayer {

namespace {

bool started = false;        // asked for the device
bool initialised = false;    // and had it
std::uint32_t position = 0;  // frame of the piece, kept by Pause
std::uint8_t volume = 255;

Platform::MusicStream& Stream() {
    return Platform::TheAudio().Music();
}

void MusicPlay(const std::string& fileName) {
    Console::Print(Play(fileName, true) ? "\nFile opened successfully." : "\nFailed to open file.");
}

void ApplyPreference() {
    if (const auto on = AudioPreference("Music")) {
        SetVolume(*on ? 255 : 0);
    }
}

int MusicVolume(int value, bool isSet) {
    if (isSet) {
        SetVolume(static_cast<std::uint8_t>(std::clamp(value, 0, 255)));
    }
    return Volume();
}

const Console::CommandTable commands{
    {"MusicSystemInitialised", [] { return initialised; },
     "Tells whether there is a device for music."},
    {"MusicPlay", Console::SomeText<MusicPlay>, "Plays a piece over and over.", "< file name >"},
    {"MusicVolume", MusicVolume, "How loud the music is, 0 to 255."},
};

}  // namespace

void Initialise() {
    if (!started) {
        Platform::TheAudio().Start();
        started = true;
    }
    initialised = Platform::TheAudio().HasDevice();
    position = 0;
    Console::Print(initialised ? "\nMusic subsystem initialised successfully."
                               : "\nError initialising music subsystem.");
    volume = 255;
    commands.Add();
    ApplyPreference();
}

void Shutdown() {
    if (started) {
        Stream().Close();
        Platform::TheAudio().Stop();
        started = false;
        initialised = false;
    }
    commands.Remove();
}

bool Play(const std::string& fileName, bool loop) {
    position = 0;
    if (started && !initialised && Platform::TheAudio().HasDevice()) {
        initialised = true;  // A device has come since the start.
        ApplyPreference();
    }
    if (!initialised || fileName.empty() || !Stop()) {
        return false;
    }
    const auto path = Platform::FindFile(fileName);
    if (!path || !Stream().Open(*path)) {
        return false;
    }
    Stream().SetLooping(loop);
    Stream().SetVolume(volume);
    Stream().Play();
    return true;
}

bool Stop() {
    if (initialised) {
        Stream().Close();
    }
    return true;
}

bool Pause() {
    if (!Stream().IsOpen()) {
        return false;
    }
    position = Stream().Position();
    Stream().Stop();
    return true;
}

bool Resume() {
    if (!Stream().IsOpen()) {
        return false;
    }
    Stream().SetPosition(position);
    Stream().Play();
    return true;
}

void SetVolume(std::uint8_t value) {
    if (initialised) {
        volume = value;
        Stream().SetVolume(volume);
    }
}

std::uint8_t Volume() {
    return initialised ? volume : 0;
}

}  // namespace MusicPlayer
