// A bar of the time that is used up; see ProgressLine.h.

#include "ProgressLine.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>

ProgressLine::ProgressLine(double secondsInAll)
    : total(secondsInAll), isTerminal(isatty(STDERR_FILENO) != 0), last(begin) {}

ProgressLine::~ProgressLine() {
    if (drawn && isTerminal) {
        std::fputc('\n', stderr);
    }
}

void ProgressLine::Restart() {
    begin = Clock::now();
    last = begin;
}

double ProgressLine::Seconds() const {
    return std::chrono::duration<double>(Clock::now() - begin).count();
}

void ProgressLine::Show(const std::string& text) {
    const Clock::time_point now = Clock::now();
    const std::chrono::milliseconds pause(isTerminal ? 200 : 5000);
    if (now - last < pause) {
        return;
    }
    last = now;
    if (!isTerminal) {
        std::fprintf(stderr, "%4.0f s  %s\n", Seconds(), text.c_str());
        return;
    }
    constexpr double width = 24.0;
    const auto filled = static_cast<std::size_t>(std::clamp(Seconds() / total, 0.0, 1.0) * width);
    const std::string bar =
        std::string(filled, '#') + std::string(static_cast<std::size_t>(width) - filled, '.');
    std::fprintf(stderr, "\r[%s] %4.0f s  %s\033[K", bar.c_str(), Seconds(), text.c_str());
    std::fflush(stderr);
    drawn = true;
}
