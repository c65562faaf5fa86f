#pragma once
// The words that level maps use where level files hold numbers, and the text form of file
// names, which are any bytes in a level file but must be Unicode in a map.

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace Names {

struct Word {
    std::int64_t number;
    std::string_view word;
};

extern const std::span<const Word> surfaces;
extern const std::span<const Word> flags;
extern const std::span<const Word> layers;

std::optional<std::int64_t> NumberOf(std::span<const Word> words, std::string_view word);
std::optional<std::string_view> WordOf(std::span<const Word> words, std::int64_t number);
/// All words with commas between, for messages.
std::string List(std::span<const Word> words);

/// Bytes as text: what isn't well-formed UTF-8, control characters and "%" become "%" and two
/// hexadecimal digits.
std::string ToText(std::string_view bytes);
/// The bytes behind a text, or none if a "%" has no two hexadecimal digits behind it.
std::optional<std::string> ToBytes(std::string_view text);

}  // namespace Names
