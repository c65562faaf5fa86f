// The table in memory and in its file; see HighScoreTable.h.

#include "game/HighScoreTable.h"

#include <algorithm>
#include <cstring>

#include "engine/BufferedFile.h"
#include "engine/ByteReader.h"
#include "engine/ByteWriter.h"
#include "platform/Paths.h"

namespace HighScoreTable {

namespace {

constexpr const char* fileName = "sav\\scores.sav";
constexpr std::uint32_t magic = 0x1231230F;
constexpr std::size_t rowBytes = 28;  // name, reserved bytes, score

std::array<HighScoreRow, rowCount> rows;

template <std::size_t size>
void ReadText(ByteReader& reader, std::array<char, size>& text) {
    const auto bytes = reader.Bytes(size);
    if (bytes.size() == size) {
        std::memcpy(text.data(), bytes.data(), size);
    }
}

void ReadRows(ByteReader& reader) {
    for (HighScoreRow& row : rows) {
        ReadText(reader, row.name);
        ReadText(reader, row.reserved);
        row.score = reader.U32();
    }
}

}  // namespace

void Load() {
    rows.fill(HighScoreRow("NO NAME", 0));
    DiskFile file;
    file.Open(fileName);
    if (!file.IsOpen()) {
        return;
    }
    ByteReader reader({file.Cursor(), file.Remaining()});
    if (reader.U32() == magic && reader.Remaining() >= rowCount * rowBytes) {
        ReadRows(reader);
    }
}

void Save() {
    ByteWriter writer;
    writer.U32(magic);
    for (const HighScoreRow& row : rows) {
        writer.Bytes(std::as_bytes(std::span(row.name)));
        writer.Bytes(std::as_bytes(std::span(row.reserved)));
        writer.U32(row.score);
    }
    if (const auto path = Platform::WritablePath(fileName)) {
        Platform::WriteWholeFile(*path, writer.Block().data(), writer.Block().size());
    }
}

void Insert(const HighScoreRow& row) {
    const auto place = std::find_if(rows.begin(), rows.end(), [&](const HighScoreRow& other) {
        return row.score > other.score;
    });
    if (place == rows.end()) {
        return;
    }
    // The row is copied first: it may be one of the table's own.
    const HighScoreRow placed = row;
    std::move_backward(place, rows.end() - 1, rows.end());
    *place = placed;
}

bool Ranks(std::uint32_t score) {
    return std::any_of(rows.begin(), rows.end(),
                       [&](const HighScoreRow& row) { return row.score < score; });
}

std::span<const HighScoreRow, rowCount> Rows() {
    return rows;
}

}  // namespace HighScoreTable
