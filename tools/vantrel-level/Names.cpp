#include "Names.h"

#include <algorithm>
#include <array>

namespace Names {

namespace {

constexpr std::array surfaceWords = {
    Word{1, "metal"}, Word{2, "wood"}, Word{3, "stone"}, Word{4, "cloth"}, Word{5, "sand"},
};

constexpr std::array flagWords = {
    Word{0, "solid"},
    Word{1, "scenery"},
    Word{2, "invisible"},
    Word{3, "cutting"},
};

constexpr std::array layerWords = {
    Word{0, "0 far back"}, Word{1, "1 behind the water"}, Word{2, "2 before the water"},
    Word{3, "3 front"},    Word{4, "4 foremost"},
};

constexpr std::string_view hexDigits = "0123456789ABCDEF";

int HexValue(char c) {
    if (c >= '0' && c <= '9') {
        return c - '0';
    }
    if (c >= 'A' && c <= 'F') {
        return c - 'A' + 10;
    }
    return c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
}

bool IsContinuation(std::string_view bytes, std::size_t at) {
    return at < bytes.size() && (static_cast<unsigned char>(bytes[at]) & 0xC0u) == 0x80u;
}

/// Length of the well-formed character of two to four bytes at `at`, or 0. Overlong forms,
/// surrogates and numbers beyond Unicode are no characters.
std::size_t CharacterLength(std::string_view bytes, std::size_t at) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(bytes[at + i]); };
    const unsigned first = byte(0);
    std::size_t length = 0;
    if (first >= 0xC2 && first <= 0xDF) {
        length = 2;
    } else if (first >= 0xE0 && first <= 0xEF) {
        length = 3;
    } else if (first >= 0xF0 && first <= 0xF4) {
        length = 4;
    }
    for (std::size_t i = 1; i < length; ++i) {
        if (!IsContinuation(bytes, at + i)) {
            return 0;
        }
    }
    const bool isWrong = (first == 0xE0 && byte(1) < 0xA0) || (first == 0xED && byte(1) > 0x9F) ||
                         (first == 0xF0 && byte(1) < 0x90) || (first == 0xF4 && byte(1) > 0x8F);
    return isWrong ? 0 : length;
}

}  // namespace

const std::span<const Word> surfaces = surfaceWords;
const std::span<const Word> flags = flagWords;
const std::span<const Word> layers = layerWords;

std::optional<std::int64_t> NumberOf(std::span<const Word> words, std::string_view word) {
    const auto found = std::ranges::find(words, word, &Word::word);
    return found == words.end() ? std::nullopt : std::optional(found->number);
}

std::optional<std::string_view> WordOf(std::span<const Word> words, std::int64_t number) {
    const auto found = std::ranges::find(words, number, &Word::number);
    return found == words.end() ? std::nullopt : std::optional(found->word);
}

std::string List(std::span<const Word> words) {
    std::string list;
    for (const Word& entry : words) {
        list += (list.empty() ? "" : ", ") + std::string(entry.word);
    }
    return list;
}

std::string ToText(std::string_view bytes) {
    std::string text;
    for (std::size_t at = 0; at < bytes.size();) {
        const auto byte = static_cast<unsigned char>(bytes[at]);
        const bool isPlain = byte >= 0x20 && byte < 0x7F && byte != '%';
        const std::size_t length = isPlain ? 1 : CharacterLength(bytes, at);
        if (length > 0) {
            text += bytes.substr(at, length);
            at += length;
        } else {
            text += {'%', hexDigits[byte >> 4], hexDigits[byte & 15]};
            ++at;
        }
    }
    return text;
}

std::optional<std::string> ToBytes(std::string_view text) {
    std::string bytes;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] != '%') {
            bytes += text[at];
            continue;
        }
        const int high = at + 2 < text.size() ? HexValue(text[at + 1]) : -1;
        const int low = at + 2 < text.size() ? HexValue(text[at + 2]) : -1;
        if (high < 0 || low < 0) {
            return std::nullopt;
        }
        bytes += static_cast<char>(high * 16 + low);
        at += 2;
    }
    return bytes;
}

}  // namespace Names
