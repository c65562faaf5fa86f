#pragma once
// Whether the window counts as being in the foreground. The focus flickers while other windows
// come and go, so a loss counts only after it has lasted for a while and over a few polls; a
// gain counts at once.

#include <cstdint>

namespace Platform {

class FocusFilter {
public:
    static constexpr std::uint32_t lossMilliseconds = 60;
    static constexpr int lossPolls = 3;

    /// Takes what one poll has found.
    void Update(bool focused, std::uint32_t milliseconds) {
        if (focused) {
            foreground = true;
            polls = 0;
        } else if (foreground) {
            if (polls++ == 0) {
                lostSince = milliseconds;
            }
            foreground = polls < lossPolls || milliseconds - lostSince < lossMilliseconds;
        }
    }
    bool IsForeground() const { return foreground; }

private:
    bool foreground = false;
    int polls = 0;  ///< since the focus went
    std::uint32_t lostSince = 0;
};

}  // namespace Platform
