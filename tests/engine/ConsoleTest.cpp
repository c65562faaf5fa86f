// The console: what is printed, what a typed line does, and how a line is typed.

#include "engine/Console.h"
#include "engine/ConsoleCommands.h"

#include <gtest/gtest.h>

#include "WorkingFolder.h"
#include "platform/HeadlessWindow.h"
#include "platform/VirtualKeys.h"

namespace fs = std::filesystem;

namespace {

// Printing must work before any initialisation, static ones included.
const bool printedEarly = [] {
    Console::Print("\nearly");
    return Console::OutputText() == "\nearly";
}();

int integer = 0;
bool flag = false;
float number = 0.0f;
int actions = 0;
std::string heard;

void DoWords(std::uint32_t id, const std::string& word) {
    heard = word + std::to_string(id);
}
void DoSome(const std::string& text) {
    heard = text;
}

void AddOneCommandOfEachKind() {
    using Text = ConsoleCommand::Text;
    Console::AddCommand("Act", [] { ++actions; });
    Console::AddCommand("GetInt", [] { return 5; });
    Console::AddCommand("GetString", [] { return std::string("s"); });
    Console::AddCommand("GetText", []() -> Text { return std::nullopt; });
    Console::AddCommand("DoInt", [](int value) { integer = value; });
    Console::AddCommand("DoFloat", [](float value) { number = value; });
    Console::AddCommand("DoString", [](std::string text) { heard = std::move(text); });
    Console::AddCommand("DoText", [](const char* text) { heard = text; });
    Console::AddCommand("Int", Console::Variable<integer>);
    Console::AddCommand("Bool", Console::Variable<flag>);
    Console::AddCommand("Float", Console::Variable<number>);
    Console::AddCommand("Filter", [](std::string text) { return std::move(text) + '!'; });
    Console::AddCommand("TextFilter", [](const char* text) -> Text { return text; });
    Console::AddCommand({"DoWords", Console::Words<DoWords>, "", "< id : integer > < word > "});
    Console::AddCommand({"DoSome", Console::SomeText<DoSome>, "", "\nUSAGE: Do < some >"});
}

class ConsoleTest : public testing::Test {
protected:
    ConsoleTest() {
        window.Create({});
        Platform::UseWindow(&window);
        Console::Initialise();
        Console::Clear();
    }
    ~ConsoleTest() override {
        Console::Shutdown();
        Platform::UseWindow(nullptr);
    }

    // What running the line prints.
    static std::string Reply(std::string_view line) {
        Console::Clear();
        Console::Execute(line);
        return Console::OutputText();
    }

    void Press(int key) { Console::HandleKey(key); }
    void Type(std::string_view text) {
        constexpr int anyKey = 'A';
        for (const char c : text) {
            window.SetKey(anyKey, true, c);
            for (Platform::Event event; window.TakeEvent(event);) {
                Press(event.key);
            }
        }
    }
    static std::string Line() { return Console::inputLine.data(); }

    WorkingFolder directory;
    Platform::HeadlessWindow window;
};

}  // namespace

TEST_F(ConsoleTest, PrintsAtAnyMoment) {
    EXPECT_TRUE(printedEarly);
    Console::Print(static_cast<const char*>(nullptr));
    Console::PrintChar('c');
    Console::PrintUnsigned(4000000000u);
    Console::PrintInt(-3);
    Console::PrintBool(false);
    Console::PrintFloat(0.5f);
    Console::PrintDouble(-1.0 / 3.0);
    EXPECT_EQ(Console::OutputText(), "c4000000000-3false0.500000-0.333333");
    Console::Clear();
    Console::PrintBanner("x");
    const std::string line = "\n\n" + std::string(64, '*') + "\n\n";
    EXPECT_EQ(Console::OutputText(), line + "x" + line);
}

TEST_F(ConsoleTest, LogsWhatIsPrintedUnchanged) {
    directory.Write("ConsoleLog.txt", "an older log");
    EXPECT_EQ(Reply("LogConsole"), "\nLogConsole is false");
    Reply("LogConsole true");
    Console::Print("\nkept\r");
    EXPECT_EQ(Reply("LogConsole 0"),
              "\nLogging stopped. All output saved to ConsoleLog.txt\nLogConsole is now false");
    EXPECT_EQ(directory.Read("ConsoleLog.txt"),
              "\nCommencing console log to ConsoleLog.txt\nLogConsole is now true\nkept\r");
}

TEST_F(ConsoleTest, StopsALogThatCannotBeWritten) {
    fs::create_symlink("/dev/full", directory.path / "ConsoleLog.txt");
    Console::SetLogging(true);
    EXPECT_FALSE(Console::IsLogging());
    EXPECT_EQ(Console::OutputText(),
              "\nLogging to ConsoleLog.txt stopped because of a write error."
              "\nCommencing console log to ConsoleLog.txt");

    fs::remove(directory.path / "ConsoleLog.txt");
    fs::create_directory(directory.path / "ConsoleLog.txt");
    Console::Clear();
    Console::SetLogging(true);
    EXPECT_EQ(Console::OutputText(), "\nUnable to write log to ConsoleLog.txt");
}

TEST_F(ConsoleTest, RunsEveryKindOfFunction) {
    AddOneCommandOfEachKind();
    actions = integer = 0;
    number = 0.0f;
    flag = false;
    const std::pair<const char*, const char*> replies[] = {
        {"  aCT", ""},
        {"Act now", "\nUSAGE: Act < nothing >"},
        {"getint", "\nGetInt is 5"},
        {"GetString  ", "\nUSAGE: GetString < nothing >"},
        {"GetText", "\nGetText is "},
        {"DoInt   7.9", ""},
        {"Int -3.7", "\nInt is now -3"},
        {"Int 1 2", "\nUSAGE: Int < integer number OR nothing >"},
        {"Bool 1", "\nBool is now true"},
        {"Bool 0.9", "\nBool is now false"},
        {"Bool yes", "\nUSAGE: Bool < true OR false OR nothing >"},
        {"DoFloat .25", ""},
        {"Float", "\nFloat is 0.250000"},
        {"Float 1e3", "\nUSAGE: Float < number OR nothing >"},
        {"Filter  a b ", "\nFilter is now  a b !"},
        {"TextFilter t", "\nTextFilter is now t"},
        {"DoWords 1.5 x", "\nUSAGE: DoWords < id : integer > < word > "},
        {"DoWords 1 x y", "\nUSAGE: DoWords < id : integer > < word > "},
        {"DoSome", "\nUSAGE: Do < some >"},
        {"   ", ""},
        {"None", "\nUNKNOWN COMMAND. USE 'COMMANDS' FOR A LIST OF AVAILABLE COMMANDS."},
    };
    for (const auto& [line, reply] : replies) {
        EXPECT_EQ(Reply(line), reply) << line;
    }
    EXPECT_EQ(actions, 1);
    Reply("DoString  one  two ");
    EXPECT_EQ(heard, " one  two ");
    Reply("DoText");
    EXPECT_EQ(heard, "");
    Reply("DoWords -1  y");
    EXPECT_EQ(heard, "y4294967295");
    Reply("DoSome  one ");
    EXPECT_EQ(heard, " one ");
}

TEST_F(ConsoleTest, ListsCommandsByTheirBeginning) {
    const std::string line = "\n\n" + std::string(64, '*') + "\n\n";
    const std::string heading =
        line + "Command list: Use Commands < term > to filter listings" + line;
    EXPECT_EQ(Reply("Commands"), heading + "\nClear\nCommands\nLogConsole\nMemory\n");
    EXPECT_EQ(Reply("Commands   c"), heading + "\nClear\nCommands\n");
    EXPECT_EQ(Reply("Commands zz"), heading + "\n");
    EXPECT_NE(Reply("Memory").find("\nSystem memory usage: \n\nTotal : "), std::string::npos);
}

TEST_F(ConsoleTest, EditsTheLineInBothModes) {
    Type("cat");
    Press(VirtualKey::home);
    Type("b");
    EXPECT_EQ(Line(), "bat");
    window.SetToggled(VirtualKey::insert, true);
    Type("o");
    EXPECT_EQ(Line(), "boat");
    Press(VirtualKey::deleteKey);
    EXPECT_EQ(Line(), "bot");
    Press(VirtualKey::right);
    Press(VirtualKey::right);
    EXPECT_EQ(Console::inputCursor, 3u);
    Press(VirtualKey::backspace);
    Press(VirtualKey::left);
    Press(VirtualKey::end);
    Press(VirtualKey::deleteKey);
    EXPECT_EQ(Line(), "bo");
    Press(VirtualKey::escape);
    Press(VirtualKey::backspace);
    EXPECT_EQ(Line(), "");
}

TEST_F(ConsoleTest, AFullLineTakesNoMore) {
    Type(std::string(300, 'x'));
    EXPECT_EQ(Console::inputCursor, 256u);
    EXPECT_EQ(Line(), std::string(256, 'x'));
    Press(VirtualKey::right);
    Press(VirtualKey::deleteKey);
    EXPECT_EQ(Line().size(), 256u);
    window.SetToggled(VirtualKey::insert, true);
    Press(VirtualKey::home);
    Type("y");
    EXPECT_EQ(Line(), 'y' + std::string(255, 'x'));
}

TEST_F(ConsoleTest, WalksThroughTheHistory) {
    for (int i = 0; i < 17; ++i) {
        Type("line" + std::to_string(i));
        Press(VirtualKey::enter);
    }
    for (int i = 0; i < 20; ++i) {
        Press(VirtualKey::up);
    }
    EXPECT_EQ(Line(), "line1");
    EXPECT_EQ(Console::inputCursor, 5u);
    for (int i = 0; i < 20; ++i) {
        Press(VirtualKey::down);
    }
    EXPECT_EQ(Line(), "line16");
    // An empty line hides what is older.
    Press(VirtualKey::escape);
    Press(VirtualKey::enter);
    Press(VirtualKey::up);
    EXPECT_EQ(Line(), "");
    Console::Shutdown();
    Press(VirtualKey::up);
    EXPECT_EQ(Line(), "");
}

TEST_F(ConsoleTest, CompletesNamesInTurn) {
    for (const char* name : {"TextureReload", "TextureList", "TextureMemory", "Tilt"}) {
        Console::AddCommand(name, [] {});
    }
    Type("te");
    for (const char* name : {"TextureList", "TextureMemory", "TextureReload", "TextureList"}) {
        Press(VirtualKey::tab);
        EXPECT_EQ(Line(), name);
    }
    // A line changed by hand is completed afresh.
    Press(VirtualKey::escape);
    Type("ti");
    Press(VirtualKey::tab);
    EXPECT_EQ(Line(), "Tilt");
    Press(VirtualKey::escape);
    Type("xyz");
    Press(VirtualKey::tab);
    Press(VirtualKey::tab);
    EXPECT_EQ(Line(), "xyz");
    Press(VirtualKey::escape);
    for (int i = 0; i < 3; ++i) {
        Press(VirtualKey::tab);
        EXPECT_EQ(Line(), "Clear");
    }
}

namespace {

std::string Visible(int rows, int columns) {
    const Console::VisibleText text = Console::FindVisibleText(rows, columns);
    std::string visible;
    for (std::uint32_t i = 0; i < text.count; ++i) {
        visible += Console::outputBuffer[(text.first + i) % Console::outputSize];
    }
    return visible;
}

}  // namespace

TEST_F(ConsoleTest, ShowsTheNewestTextThatFits) {
    Console::Print("\none\ntwo\nthree");
    EXPECT_EQ(Visible(2, 80), "two\nthree");
    // The character that completes a row, seen from the end, is left out with its row.
    EXPECT_EQ(Visible(1, 4), "ree");
    EXPECT_EQ(Visible(2, 80).size() + 4, Visible(3, 80).size());

    Console::Clear();
    Console::Print(std::string(Console::outputSize + 3, 'x') + "\nend");
    EXPECT_EQ(Visible(1, 80), "end");
    EXPECT_EQ(Visible(1000, 1000).size(), Console::outputSize);
}

TEST_F(ConsoleTest, WrapsLongLinesAndTabs) {
    Console::TextCursor cursor;
    const auto at = [&cursor](std::string_view text) {
        cursor = {};
        for (const char c : text) {
            cursor.Advance(c, 20);
        }
        return std::pair(cursor.row, cursor.column);
    };
    EXPECT_EQ(at("abc\t"), std::pair(0, 8));
    EXPECT_EQ(at("\t\t"), std::pair(0, 16));
    EXPECT_EQ(at("\t\t\t"), std::pair(1, 0));
    EXPECT_EQ(at(std::string(20, 'x')), std::pair(1, 0));
    EXPECT_EQ(at("abc\nd"), std::pair(1, 1));
}
