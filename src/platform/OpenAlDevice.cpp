// Opening and losing the device.

#include "platform/OpenAlDevice.h"

#include <AL/alext.h>
#include <dlfcn.h>

#include <cstdlib>
#include <filesystem>
#include <string>

namespace Platform {

namespace {

// Voices that can be heard at one time; the library's own default is 256.
constexpr ALCint sourceLimit = 512;

LPALCLOOPBACKOPENDEVICESOFT OpenLoopback() {
    static const auto function = reinterpret_cast<LPALCLOOPBACKOPENDEVICESOFT>(
        alcGetProcAddress(nullptr, "alcLoopbackOpenDeviceSOFT"));
    return function;
}

LPALCRENDERSAMPLESSOFT RenderSamples() {
    static const auto function = reinterpret_cast<LPALCRENDERSAMPLESSOFT>(
        alcGetProcAddress(nullptr, "alcRenderSamplesSOFT"));
    return function;
}

void SayNothing(const char* /*file*/, int /*line*/, const char* /*function*/, int /*error*/,
                const char* /*format*/, ...) {}

/// Where there is no sound card, the audio library and the driver below it would write nine lines
/// to standard error; the game has one of its own. A user who asks for the library's log gets all
/// of it.
void SilenceLibraries() {
    if (std::getenv("ALSOFT_LOGLEVEL") != nullptr) {
        return;
    }
    setenv("ALSOFT_LOGLEVEL", "0", 0);
    // The audio library loads it in the same way, and keeps it.
    void* const alsa = dlopen("libasound.so.2", RTLD_NOW);
    void* const setHandler = alsa != nullptr ? dlsym(alsa, "snd_lib_error_set_handler") : nullptr;
    if (setHandler != nullptr) {
        reinterpret_cast<int (*)(decltype(&SayNothing))>(setHandler)(SayNothing);
    }
}

bool Exists(const std::filesystem::path& path) {
    std::error_code ignored;
    return std::filesystem::exists(path, ignored);
}

/// Whether the kernel knows a card that can play.
bool HasSoundCard() {
    std::error_code ignored;
    for (const auto& entry : std::filesystem::directory_iterator("/dev/snd", ignored)) {
        const std::string name = entry.path().filename();
        if (name.starts_with("pcm") && name.ends_with('p')) {
            return true;
        }
    }
    return false;
}

}  // namespace

bool OpenAlDevice::OpenContext(const ALCint* attributes) {
    context = device != nullptr ? alcCreateContext(device, attributes) : nullptr;
    if (context == nullptr || alcMakeContextCurrent(context) == ALC_FALSE) {
        Close();
        return false;
    }
    return true;
}

bool OpenAlDevice::Open() {
    if (!Renders()) {
        const ALCint attributes[] = {ALC_MONO_SOURCES, sourceLimit, ALC_STEREO_SOURCES, 64, 0};
        SilenceLibraries();
        device = alcOpenDevice(nullptr);
        return OpenContext(attributes);
    }
    if (!plugged || OpenLoopback() == nullptr || RenderSamples() == nullptr) {
        return false;
    }
    const ALCint attributes[] = {ALC_FORMAT_CHANNELS_SOFT,
                                 ALC_STEREO_SOFT,
                                 ALC_FORMAT_TYPE_SOFT,
                                 ALC_FLOAT_SOFT,
                                 ALC_FREQUENCY,
                                 static_cast<ALCint>(rate),
                                 ALC_MONO_SOURCES,
                                 sourceLimit,
                                 ALC_HRTF_SOFT,
                                 ALC_FALSE,
                                 0};
    device = OpenLoopback()(nullptr);
    return OpenContext(attributes);
}

void OpenAlDevice::Close() {
    if (context != nullptr) {
        alcMakeContextCurrent(nullptr);
        alcDestroyContext(context);
        context = nullptr;
    }
    if (device != nullptr) {
        alcCloseDevice(device);
        device = nullptr;
    }
}

bool OpenAlDevice::IsConnected() const {
    if (Renders()) {
        return plugged;
    }
    ALCint connected = ALC_TRUE;
    if (alcIsExtensionPresent(device, "ALC_EXT_disconnect") != ALC_FALSE) {
        alcGetIntegerv(device, ALC_CONNECTED, 1, &connected);
    }
    return connected != ALC_FALSE;
}

bool OpenAlDevice::MayBeThere() const {
    if (Renders()) {
        return plugged;
    }
    const char* const runtime = std::getenv("XDG_RUNTIME_DIR");
    const bool hasServer =
        runtime != nullptr && (Exists(std::filesystem::path(runtime) / "pulse" / "native") ||
                               Exists(std::filesystem::path(runtime) / "pipewire-0"));
    // A driver named by the user may need neither.
    const bool isNamed =
        std::getenv("PULSE_SERVER") != nullptr || std::getenv("ALSOFT_DRIVERS") != nullptr;
    return hasServer || isNamed || HasSoundCard();
}

void OpenAlDevice::Render(std::span<float> stereo) {
    if (device != nullptr && Renders()) {
        RenderSamples()(device, stereo.data(), static_cast<ALCsizei>(stereo.size() / 2));
    }
}

}  // namespace Platform
