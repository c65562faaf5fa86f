#pragma once
// One line on standard error that says how far the search is: redrawn in place on a terminal,
// else a new line every few seconds.

#include <chrono>
#include <string>

class ProgressLine {
public:
    explicit ProgressLine(double secondsInAll);
    ~ProgressLine();
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    /// The time begins anew.
    void Restart();
    /// Shows the time used up and the text, unless the last time was a moment ago.
    void Show(const std::string& text);
    double Seconds() const;

private:
    using Clock = std::chrono::steady_clock;

    double total;
    bool isTerminal;
    bool drawn = false;
    Clock::time_point begin = Clock::now();
    Clock::time_point last;
};
