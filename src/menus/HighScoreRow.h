#pragma once
// One row of the table of high scores.

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

/// Holds the bytes of its name as the file has them: foreign files may hold any.
struct HighScoreRow {
    static constexpr std::size_t longestName = 20;

    std::array<char, longestName + 1> name{};  ///< zeros behind the text
    std::array<char, 3> reserved{};
    std::uint32_t score = 0;

    HighScoreRow() = default;
    /// The name is cut to 20 characters, and at its first zero.
    HighScoreRow(std::string_view rowName, std::uint32_t rowScore);

    /// The name up to its zero, or all of it if it has none.
    std::string Name() const;
};
