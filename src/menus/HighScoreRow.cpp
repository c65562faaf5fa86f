#include "menus/HighScoreRow.h"

#include <algorithm>

HighScoreRow::HighScoreRow(std::string_view rowName, std::uint32_t rowScore) : score(rowScore) {
    const std::string_view text = rowName.substr(0, rowName.find('\0'));
    std::copy_n(text.begin(), std::min(text.size(), longestName), name.begin());
}

std::string HighScoreRow::Name() const {
    return {name.begin(), std::find(name.begin(), name.end(), '\0')};
}
