#pragma once
// The ten best scores, common to all levels: read from sav\scores.sav at program start and saved
// as soon as one is entered. Several games may run at once: each adds its own to what the file
// holds by then. Whatever the file holds, the table stays valid; one that can't be read is told,
// and kept under another name before anything is written in its place.

#include <cstdint>
#include <span>

#include "menus/HighScoreRow.h"

class GuiScreen;

namespace HighScoreTable {

inline constexpr std::size_t rowCount = 10;

/// The default table, then the file's rows over it, if they can be had.
void Load();
/// Brings the rows inserted since the last time into the file, and its other rows here; does
/// nothing if there are none. A failure is told and costs nothing: a later call tries again.
void Save();
/// Puts the row before the first one with a lower score; the last row drops out. Does nothing
/// if there is no such row.
void Insert(const HighScoreRow& row);
/// Whether a row with that score would find a place.
bool Ranks(std::uint32_t score);
/// If the score ranks: lets the player type a name over `background`, which may be null, in a
/// loop of its own, then inserts and saves the row. The listener is restored before it returns.
void Submit(std::uint32_t score, GuiScreen* background);
/// Best first.
std::span<const HighScoreRow, rowCount> Rows();

}  // namespace HighScoreTable
