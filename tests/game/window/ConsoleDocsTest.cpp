// The console of the whole game, as the documentation tells of it.

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <set>
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
    std::ifstream file(VANTREL_SOURCE_DIR "/docs/console.md");
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with("| `")) {
            lines.push_back(line);
        }
    }
    return lines;
}

/// "< x : number > < y : number >" as {"x : number", "y : number"}.
Lines Parts(const std::string& arguments) {
    Lines parts;
    for (std::size_t at = 0; (at = arguments.find("< ", at)) != std::string::npos; ++at) {
        parts.push_back(arguments.substr(at + 2, arguments.find(" >", at) - at - 2));
    }
    return parts;
}

struct Sample {
    const char* form;
    const char* good;
    const char* bad;
};

/// Words that have the form that a part asks for, and that don't; any word is a text.
Sample SampleOf(const std::string& part) {
    const std::string form =
        part.substr(part.rfind(':') == std::string::npos ? 0 : part.rfind(':') + 2);
    for (const Sample& sample :
         {Sample{"integer", "2", "2.5"}, Sample{"integer number", "2", "2.5"},
          Sample{"number", "-.5", "one"}, Sample{"true OR false", "TRUE", "1"}}) {
        if (form == sample.form) {
            return sample;
        }
    }
    return {"", "x", ""};
}

std::string Line(const std::string& name, const Lines& words) {
    std::string line = name;
    for (const std::string& word : words) {
        line += ' ' + word;
    }
    return line;
}

std::string Reply(const std::string& line) {
    Console::Clear();
    Console::Execute(line);
    return Console::OutputText();
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

TEST_F(ConsoleOfTheGame, TakesTheArgumentsThatItsUsageLinesName) {
    const std::map<std::string, ConsoleCommand> commands = Console::Commands();
    for (const auto& [key, command] : commands) {
        const std::string usage = command.UsageLine();
        if (!std::holds_alternative<ConsoleCommand::Call>(command.function)) {
            continue;
        }
        const Lines parts = Parts(command.Arguments());
        Lines good;
        for (const std::string& part : parts) {
            good.push_back(SampleOf(part).good);
        }
        EXPECT_NE(Reply(Line(command.name, good)), usage) << command.name;
        EXPECT_EQ(Reply(Line(command.name, {good.begin(), good.end() - 1})), usage);
        for (std::size_t i = 0; i < parts.size(); ++i) {
            Lines words = good;
            words[i] = SampleOf(parts[i]).bad;
            EXPECT_TRUE(words[i].empty() || Reply(Line(command.name, words)) == usage)
                << command.name << ": " << parts[i];
        }
    }
}
