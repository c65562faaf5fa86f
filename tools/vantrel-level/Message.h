#pragma once
// Texts for people, put together from parts.

#include <sstream>
#include <string>

/// All parts one after the other, numbers in decimal form.
template <typename... Parts>
std::string Message(const Parts&... parts) {
    std::ostringstream text;
    (text << ... << parts);
    return std::move(text).str();
}
