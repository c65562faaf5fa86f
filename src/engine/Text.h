#pragma once
// Text forms that cfg files, the command line, the console and the preference store share.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// Digits, with at most one minus sign, at the front. A lone minus sign has the form.
bool IsInteger(std::string_view text);
/// Digits, at most one point, and a minus sign only at the front. No exponent.
bool IsNumber(std::string_view text);
/// "TRUE" or "FALSE" in any case.
bool IsBoolean(std::string_view text);

/// 0 without integer form; held at the limits of the type beyond 32 bits.
std::int32_t ToInteger(std::string_view text);
/// 0 without number form.
float ToNumber(std::string_view text);
/// False without boolean form; digits and yes/no are no booleans.
bool ToBoolean(std::string_view text);

/// A copy with a to z in upper case; other bytes stay as they are, whatever the locale.
std::string UpperCased(std::string_view text);
/// The same, in place.
void UpperCase(std::string& text);

/// Blank, carriage return, line feed, tab or backspace: what parts words.
constexpr bool IsSeparator(char c) {
    return c == ' ' || c == '\r' || c == '\n' || c == '\t' || c == '\b';
}

/// The words of `text`; runs of separators count as one, there is no quoting.
std::vector<std::string> SplitWords(std::string_view text);
std::string_view WithoutLeadingBlanks(std::string_view text);
