// Text forms and conversions, the same in every locale.

#include "engine/Text.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace {

constexpr bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

constexpr char Upper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

std::string_view WithoutSign(std::string_view text) {
    return text.starts_with('-') ? text.substr(1) : text;
}

// Whether `text` is `upper`, which is in upper case, in any case of its letters.
bool Means(std::string_view text, std::string_view upper) {
    return std::ranges::equal(text, upper, {}, [](char c) { return Upper(c); });
}

}  // namespace

bool IsInteger(std::string_view text) {
    return !text.empty() && std::ranges::all_of(WithoutSign(text), IsDigit);
}

bool IsNumber(std::string_view text) {
    const std::string_view digits = WithoutSign(text);
    return !text.empty() && std::ranges::count(digits, '.') <= 1 &&
           std::ranges::all_of(digits, [](char c) { return IsDigit(c) || c == '.'; });
}

bool IsBoolean(std::string_view text) {
    return Means(text, "TRUE") || Means(text, "FALSE");
}

std::int32_t ToInteger(std::string_view text) {
    if (!IsInteger(text)) {
        return 0;
    }
    std::int32_t value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        using Limits = std::numeric_limits<std::int32_t>;
        return text.front() == '-' ? Limits::min() : Limits::max();
    }
    return value;
}

float ToNumber(std::string_view text) {
    if (!IsNumber(text)) {
        return 0.0f;
    }
    double value = 0.0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        // Too long for a double: either so large that it is infinite, or so small that it is 0.
        const std::string_view digits = WithoutSign(text);
        const bool isLarge =
            digits.substr(0, digits.find('.')).find_first_not_of('0') != std::string_view::npos;
        value = isLarge ? std::numeric_limits<double>::infinity() : 0.0;
        value = text.front() == '-' ? -value : value;
    }
    return static_cast<float>(value);
}

bool ToBoolean(std::string_view text) {
    return Means(text, "TRUE");
}

std::string UpperCased(std::string_view text) {
    std::string upper(text);
    UpperCase(upper);
    return upper;
}

void UpperCase(std::string& text) {
    for (char& c : text) {
        c = Upper(c);
    }
}

std::vector<std::string> SplitWords(std::string_view text) {
    std::vector<std::string> words;
    auto at = text.begin();
    while ((at = std::find_if_not(at, text.end(), IsSeparator)) != text.end()) {
        const auto wordEnd = std::find_if(at, text.end(), IsSeparator);
        words.emplace_back(at, wordEnd);
        at = wordEnd;
    }
    return words;
}

std::string_view WithoutLeadingBlanks(std::string_view text) {
    return text.substr(std::min(text.find_first_not_of(' '), text.size()));
}
