// Any bytes as the file of the scores: the table stays one that can be shown and added to.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "game/HighScoreTable.h"
#include "platform/Paths.h"
#include "support/TemporaryDirectory.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const TemporaryDirectory directory;
    static const WorkingDirectoryGuard inside(directory.path);
    directory.Write("sav/scores.sav", {reinterpret_cast<const char*>(data), size});
    HighScoreTable::Load();
    for (const HighScoreRow& row : HighScoreTable::Rows()) {
        if (row.Name().size() > row.name.size()) {
            std::abort();
        }
    }
    const bool ranks = HighScoreTable::Ranks(1000);
    HighScoreTable::Insert(HighScoreRow("fuzz", 1000));
    const auto rows = HighScoreTable::Rows();
    bool found = false;
    for (const HighScoreRow& row : rows) {
        found = found || (row.score == 1000 && row.Name() == "fuzz");
    }
    if (ranks && !found) {
        std::abort();
    }
    return 0;
}
