#pragma once
// The one OpenAL device and its context: opened, watched and lost. Part of OpenAlAudio.
// Not locked: only one thread at a time may open, close or ask.

#include <AL/al.h>
#include <AL/alc.h>

#include <cstdint>
#include <span>

namespace Platform {

class OpenAlDevice {
public:
    /// With a rate: no real device; sound comes out of `Render`.
    explicit OpenAlDevice(std::uint32_t renderRate) : rate(renderRate) {}
    ~OpenAlDevice() { Close(); }
    OpenAlDevice(const OpenAlDevice&) = delete;
    OpenAlDevice& operator=(const OpenAlDevice&) = delete;

    bool Renders() const { return rate != 0; }
    bool IsOpen() const { return device != nullptr; }
    bool Open();
    /// Ends everything that was made on the device.
    void Close();
    /// Whether the open device is still there.
    bool IsConnected() const;
    /// Whether an attempt to open could succeed, as far as can be told without making one:
    /// failed attempts write lines of their own to standard error.
    bool MayBeThere() const;

    void Render(std::span<float> stereo);
    /// For rendering: whether the pretended device is there.
    bool plugged = true;

private:
    bool OpenContext(const ALCint* attributes);

    std::uint32_t rate;
    ALCdevice* device = nullptr;
    ALCcontext* context = nullptr;
};

}  // namespace Platform
