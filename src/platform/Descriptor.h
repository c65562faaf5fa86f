#pragma once
// A file descriptor that closes itself.

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace Platform {

class Descriptor {
public:
    /// Takes over an open descriptor; a negative one is none.
    explicit Descriptor(int opened) : number(opened) {}
    ~Descriptor() { Close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    bool IsOpen() const { return number >= 0; }
    int Number() const { return number; }
    /// Closing may be what reports a failed write. An interrupted close has closed.
    bool Close() {
        const int closing = number;
        number = -1;
        return closing >= 0 && (close(closing) == 0 || errno == EINTR);
    }

private:
    int number;
};

/// The call's result, made again for as long as a signal interrupts it.
template <typename Call>
auto Uninterrupted(Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR) {
        result = call();
    }
    return result;
}

}  // namespace Platform
