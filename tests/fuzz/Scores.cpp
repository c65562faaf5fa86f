// Any bytes as the file of the scores: the table stays one that can be shown and added to.

#include <algorithm>

#include "fuzz/Harness.h"
#include "game/HighScoreTable.h"
#include "platform/Paths.h"
#include "support/TemporaryDirectory.h"

void Try(std::string_view input) {
    static const TemporaryDirectory directory;
    static const WorkingDirectoryGuard inside(directory.path);
    directory.Write("sav/scores.sav", input);
    HighScoreTable::Load();
    for (const HighScoreRow& row : HighScoreTable::Rows()) {
        Expect(row.Name().size() <= row.name.size());
    }
    const bool ranks = HighScoreTable::Ranks(1000);
    HighScoreTable::Insert(HighScoreRow("fuzz", 1000));
    Expect(!ranks || std::ranges::any_of(HighScoreTable::Rows(), [](const HighScoreRow& row) {
        return row.score == 1000 && row.Name() == "fuzz";
    }));
}
