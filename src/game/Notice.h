#pragma once
// What the person who started the game is to know, where a terminal and the console show it.

#include <string>

/// One line on standard error and on the console.
void Notice(const std::string& line);
/// Prints on the console what was told before it started, which emptied it.
void RepeatNotices();
/// The last reason that the console gives, as one line.
std::string LastReason();
