#pragma once
// The ten best scores, common to all levels: read from sav\scores.sav at program start and
// written back at program end. Nothing saves in between. Whatever the file holds, the table
// stays valid; no failure prints.

#include <cstdint>
#include <span>

#include "menus/HighScoreRow.h"

class GuiScreen;

namespace HighScoreTable {

inline constexpr std::size_t rowCount = 10;

/// The default table, then the file's rows over it, if they can be had.
void Load();
/// Through a temporary file, so that a failure costs nothing that was there.
void Save();
/// Puts the row before the first one with a lower score; the last row drops out. Does nothing
/// if there is no such row.
void Insert(const HighScoreRow& row);
/// Whether a row with that score would find a place.
bool Ranks(std::uint32_t score);
/// If the score ranks: lets the player type a name over `background`, which may be null, in a
/// loop of its own, then inserts the row. The listener is restored before it returns.
void Submit(std::uint32_t score, GuiScreen* background);
/// Best first.
std::span<const HighScoreRow, rowCount> Rows();

}  // namespace HighScoreTable
