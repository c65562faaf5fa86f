// The console of the whole game, as the documentation tells of it.

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <string>
#include <vector>

#include "engine/Console.h"
#include "engine/ConsoleCommands.h"
#include "game/Game.h"
#include "game/GameScreen.h"
#include "game/Services.h"
#include "platform/GlfwWindow.h"
#include "platform/Paths.h"
#include "platform/SilentAudio.h"
#include "support/Places.h"
#include "support/TemporaryDirectory.h"
#include "support/TestLevelFile.h"

namespace {

using Lines = std::vector<std::string>;

/// A game with all its modules up, in a level.
class ConsoleOfTheGame : public testing::Test {
protected:
    ConsoleOfTheGame() {
        directory.Write("a.swah", TestLevelFile::Text(LevelFile().Serialise()));
        Platform::ForgetListings();
        Game::Initialise("a.swah");
    }

    TemporaryDirectory directory;
    WorkingDirectoryGuard guard{directory.path};
    Platform::GlfwWindow window;
    Platform::SilentAudio audio;
    GameScreen screen;
    Services services{{.window = &window, .screen = screen.Parts(), .audio = &audio}};
};

std::string Trimmed(std::string text) {
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
}

/// What the tables say, in the documentation's form.
Lines FromTheTables() {
    Lines lines;
    for (const auto& [key, command] : Console::Commands()) {
        const std::string typed = Trimmed(command.name + ' ' + command.Arguments());
        lines.push_back("| `" + typed + "` | " + command.description + " |");
    }
    return lines;
}

Lines FromTheDocumentation() {
    Lines lines;
    std::ifstream file(SourceDirectory() / "docs/console.md");
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with("| `")) {
            lines.push_back(line);
        }
    }
    return lines;
}

}  // namespace

TEST_F(ConsoleOfTheGame, IsWhatItsDocumentationSays) {
    const Lines tables = FromTheTables();
    const Lines documentation = FromTheDocumentation();
    EXPECT_GT(tables.size(), 70u);
    for (const std::string& line : tables) {
        EXPECT_EQ(std::ranges::count(documentation, line), 1) << "missing: " << line;
    }
    for (const std::string& line : documentation) {
        EXPECT_EQ(std::ranges::count(tables, line), 1) << "invented: " << line;
    }
}
