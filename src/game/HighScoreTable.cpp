// The table in memory and in its file; see HighScoreTable.h.

#include "game/HighScoreTable.h"

#include <algorithm>
#include <cstring>
#include <optional>
#include <vector>

#include "engine/ByteReader.h"
#include "engine/ByteWriter.h"
#include "game/Notice.h"
#include "platform/FileUpdate.h"
#include "platform/Paths.h"
#include "platform/WholeFile.h"

namespace HighScoreTable {

namespace {

constexpr const char* fileName = "sav\\scores.sav";
constexpr std::uint32_t magic = 0x1231230F;
constexpr std::size_t rowBytes = 28;  // name, reserved bytes, score

using Table = std::array<HighScoreRow, rowCount>;

Table rows;
// Inserted since the file was last read or written. The file has the say about all other rows, so
// that games which run at the same time add to it and double nothing.
std::vector<HighScoreRow> unsaved;

template <std::size_t size>
void ReadText(ByteReader& reader, std::array<char, size>& text) {
    const auto bytes = reader.Bytes(size);
    if (bytes.size() == size) {
        std::memcpy(text.data(), bytes.data(), size);
    }
}

/// None if the block isn't a table.
std::optional<Table> Parse(std::span<const std::byte> block) {
    ByteReader reader(block);
    Table table;
    const bool isTable = reader.U32() == magic && reader.Remaining() >= rowCount * rowBytes;
    for (HighScoreRow& row : table) {
        ReadText(reader, row.name);
        ReadText(reader, row.reserved);
        row.score = reader.U32();
    }
    return isTable ? std::optional(table) : std::nullopt;
}

/// False if there is no place for the row.
bool InsertInto(Table& table, const HighScoreRow& row) {
    const auto place = std::find_if(table.begin(), table.end(), [&](const HighScoreRow& other) {
        return row.score > other.score;
    });
    if (place == table.end()) {
        return false;
    }
    std::move_backward(place, table.end() - 1, table.end());
    *place = row;
    return true;
}

bool Write(const Platform::FileUpdate& file, const Table& table) {
    ByteWriter writer;
    writer.U32(magic);
    for (const HighScoreRow& row : table) {
        writer.Bytes(std::as_bytes(std::span(row.name)));
        writer.Bytes(std::as_bytes(std::span(row.reserved)));
        writer.U32(row.score);
    }
    return file.Write(writer.Block().data(), writer.Block().size());
}

/// Renames what can't be read, which may hold a player's scores. False if it is still there.
bool SetAside(const Platform::FileUpdate& file) {
    const auto name = file.SetAside();
    if (name) {
        Notice("High scores that can't be read were kept as 'sav\\" + *name + "'");
    }
    return name.has_value();
}

/// The table with `unsaved` in it, on disk and here.
bool Update(const Platform::FileUpdate& file) {
    using State = Platform::FileUpdate::State;
    std::vector<std::byte> bytes;
    const State state = file.Read(bytes);
    Table merged = rows;
    if (const auto saved = Parse(bytes)) {
        merged = *saved;
        for (const HighScoreRow& row : unsaved) {
            InsertInto(merged, row);
        }
    } else if ((state == State::Unreadable || !bytes.empty()) && !SetAside(file)) {
        return false;
    }
    if (!Write(file, merged)) {
        return false;
    }
    rows = merged;
    unsaved.clear();
    return true;
}

}  // namespace

void Load() {
    rows.fill(HighScoreRow("NO NAME", 0));
    unsaved.clear();
    const auto path = Platform::FindFile(fileName);
    const auto bytes = path ? Platform::ReadWholeFile(*path) : std::nullopt;
    if (const auto saved = bytes ? Parse(*bytes) : std::nullopt) {
        rows = *saved;
    } else if (path && (!bytes || !bytes->empty())) {
        Notice("Unable to read high scores from '" + std::string(fileName) + "'");
    }
}

void Save() {
    if (unsaved.empty()) {
        return;
    }
    const auto path = Platform::WritablePath(fileName);
    if (!path || !Update(Platform::FileUpdate(*path))) {
        Notice("Unable to save high scores to '" + std::string(fileName) + "'");
    }
}

void Insert(const HighScoreRow& row) {
    const HighScoreRow placed = row;  // it may be one of the table's own
    if (InsertInto(rows, placed)) {
        unsaved.push_back(placed);
    }
}

bool Ranks(std::uint32_t score) {
    return std::any_of(rows.begin(), rows.end(),
                       [&](const HighScoreRow& row) { return row.score < score; });
}

std::span<const HighScoreRow, rowCount> Rows() {
    return rows;
}

}  // namespace HighScoreTable
