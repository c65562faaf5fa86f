// Life and settings of the console; its output, a ring of characters and, on demand, a log with
// the same bytes; and its line editor, with history and the completion of command names. The
// output is constant-initialised, so that printing works at any moment of the program.

#include "engine/Console.h"

#include <algorithm>
#include <cstdio>
#include <memory>

#include "engine/ConfigFile.h"
#include "engine/ConsoleCommands.h"
#include "engine/Text.h"
#include "platform/Assert.h"
#include "platform/Paths.h"
#include "platform/ThreadPriority.h"
#include "platform/VirtualKeys.h"
#include "platform/Window.h"

namespace Console {

Settings settings;

namespace {

// Far beyond any screen; keeps sizes in pixels from overflowing.
constexpr int maxFontSize = 4096;
constexpr const char* logFileName = "ConsoleLog.txt";

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

constexpr std::array<char, outputSize> LineFeeds() {
    std::array<char, outputSize> text{};
    text.fill('\n');
    return text;
}

// Open while the output is being logged.
constinit std::unique_ptr<std::FILE, FileCloser> logFile;
// The ring has been full once, so all of it is text.
constinit bool wrapped = false;

void PrintWriteError() {
    Print("\nLogging to ");
    Print(logFileName);
    Print(" stopped because of a write error.");
}

template <typename Value>
void PrintFormatted(const char* format, Value value) {
    char text[400];  // the largest double has 309 digits before the point
    const int length = std::snprintf(text, sizeof text, format, value);
    Print(std::string_view(text, static_cast<std::size_t>(length)));
}

void StartLog() {
    const auto path = Platform::WritablePath(logFileName);
    logFile.reset(path ? std::fopen(path->c_str(), "wb") : nullptr);
    if (logFile) {
        // Unbuffered, so that the log is whole up to a crash.
        std::setvbuf(logFile.get(), nullptr, _IONBF, 0);
    }
    Print(logFile ? "\nCommencing console log to " : "\nUnable to write log to ");
    Print(logFileName);
}

void StopLog() {
    // Some file systems report only now that a write failed.
    if (std::fclose(logFile.release()) != 0) {
        PrintWriteError();
        return;
    }
    Print("\nLogging stopped. All output saved to ");
    Print(logFileName);
}

}  // namespace

constinit std::array<char, outputSize> outputBuffer = LineFeeds();
constinit std::uint32_t outputWrite = 0;

void Initialise() {
    Clear();
    RemoveAllCommands();
    AddBuiltInCommands();

    const ConfigFile config("cfg//console.cfg");
    settings = {};
    settings.fontTextureName = config.GetString("fontTextureName");
    config.ReadInt("fontSize", settings.fontSize);
    settings.fontSize = std::clamp(settings.fontSize, 1, maxFontSize);
    config.ReadColour("output_background", settings.outputBackground);
    config.ReadColour("output_text", settings.outputText);
    config.ReadColour("input_background", settings.inputBackground);
    config.ReadColour("input_border", settings.inputBorder);
    config.ReadColour("input_text", settings.inputText);
    if (config.GetBool("enableLogging")) {
        SetLogging(true);
    }
}

void Shutdown() {
    RemoveAllCommands();
    ForgetHistory();
    SetLogging(false);
}

void Clear() {
    ClearLine();
    outputBuffer.fill('\n');
    outputWrite = 0;
    wrapped = false;
}

void SetLogging(bool on) {
    if (on && !logFile) {
        StartLog();
    } else if (!on && logFile) {
        StopLog();
    }
}

bool IsLogging() {
    return logFile != nullptr;
}

void Print(std::string_view text) {
    if (logFile && std::fwrite(text.data(), 1, text.size(), logFile.get()) != text.size()) {
        logFile.reset();
        PrintWriteError();
    }
    for (const char c : text) {
        outputBuffer[outputWrite] = c;
        if (++outputWrite == outputSize) {
            outputWrite = 0;
            wrapped = true;
        }
    }
}

void Print(const char* text) {
    if (text != nullptr) {
        Print(std::string_view(text));
    }
}

void PrintChar(char c) {
    Print(std::string_view(&c, 1));
}

void PrintUnsigned(std::uint64_t value) {
    PrintFormatted("%1llu", static_cast<unsigned long long>(value));
}

void PrintInt(std::int32_t value) {
    PrintFormatted("%1i", value);
}

void PrintBool(bool value) {
    Print(value ? "true" : "false");
}

void PrintFloat(float value) {
    PrintDouble(value);
}

void PrintDouble(double value) {
    PrintFormatted("%1f", value);
}

void PrintBanner(std::string_view text) {
    constexpr std::string_view line =
        "\n\n****************************************************************\n\n";
    static_assert(line.size() == 64 + 4);
    Print(line);
    Print(text);
    Print(line);
}

std::string OutputText() {
    const std::string_view ring(outputBuffer.data(), outputSize);
    std::string text(wrapped ? ring.substr(outputWrite) : "");
    return text.append(ring.substr(0, outputWrite));
}

void TextCursor::Advance(char c, int columns) {
    constexpr int tabStop = 8;
    const int step = c == '\t' ? tabStop - column % tabStop : 1;
    if (c == '\n' || column + step >= columns) {
        ++row;
        column = 0;
    } else {
        column += step;
    }
}

VisibleText FindVisibleText(int rows, int columns) {
    VisibleText text{outputWrite, 0};
    TextCursor cursor;
    // Small cells can show more than the ring holds; then all of it is visible.
    while (cursor.row < rows && text.count < outputSize) {
        text.first = text.first == 0 ? outputSize - 1 : text.first - 1;
        ++text.count;
        cursor.Advance(outputBuffer[text.first], columns);
    }
    // The character that filled the last row is above the area.
    if (cursor.row >= rows && text.count > 0) {
        text.first = (text.first + 1) % outputSize;
        --text.count;
    }
    return text;
}

// The line editor.

namespace {

// The newest line first.
std::array<std::string, historySize> history;
int historyIndex = -1;  // the history line on show; -1 for none
// Upper-cased beginning that a running completion looks for; empty if none runs.
std::string completionPrefix;

std::string_view Line() {
    return inputLine.data();
}

// Replaces the line, with the cursor behind it. The text is no longer than the line can be.
void SetLine(std::string_view text) {
    inputLine.fill('\0');
    std::ranges::copy(text, inputLine.begin());
    inputCursor = static_cast<std::uint32_t>(text.size());
}

// To be called after each edit: a changed line is neither from the history nor completed.
void Edited() {
    completionPrefix.clear();
    historyIndex = -1;
}

void RemoveAtCursor() {
    std::shift_left(inputLine.begin() + inputCursor, inputLine.end(), 1);
    Edited();
}

void TypeCharacter(char c) {
    if (c == '\0' || inputCursor >= inputSize) {
        return;
    }
    if (Platform::TheWindow().IsKeyToggled(VirtualKey::insert)) {
        // A full line drops its last character; the terminating zero stays.
        std::shift_right(inputLine.begin() + inputCursor, inputLine.end() - 1, 1);
    }
    inputLine[inputCursor++] = c;
    Edited();
}

void ShowHistory(int index) {
    if (index < 0 || index >= historySize || history[static_cast<std::size_t>(index)].empty()) {
        return;
    }
    historyIndex = index;
    SetLine(history[static_cast<std::size_t>(index)]);
    completionPrefix.clear();
}

void EnterLine() {
    const std::string line(Line());
    Print("\n");
    Print(line);
    std::rotate(history.begin(), history.end() - 1, history.end());
    history.front() = line;
    Execute(line);
    ClearLine();
    Edited();
}

using Entry = std::map<std::string, ConsoleCommand>::const_iterator;

// Shows the command's name if it goes on from the prefix.
bool Offer(Entry entry) {
    if (entry == Commands().end() || !entry->first.starts_with(completionPrefix)) {
        return false;
    }
    if (entry->second.name.size() <= inputSize) {
        SetLine(entry->second.name);
    }
    return true;
}

void CompleteFirst() {
    completionPrefix = UpperCased(Line());
    Offer(Commands().lower_bound(completionPrefix));
}

// Offers the next name on each call, and the first one again after the last.
void Complete() {
    if (completionPrefix.empty()) {
        CompleteFirst();
        return;
    }
    const auto shown = Commands().find(UpperCased(Line()));
    if (shown == Commands().end()) {
        CompleteFirst();
    } else if (!Offer(std::next(shown))) {
        SetLine(std::string_view(completionPrefix).substr(0, inputSize));
        CompleteFirst();
    }
}

}  // namespace

std::array<char, inputSize + 1> inputLine{};
std::uint32_t inputCursor = 0;

void ClearLine() {
    SetLine("");
}

void ForgetHistory() {
    history.fill({});
    Edited();
}

void HandleKey(int virtualKey) {
    VANTREL_ASSERT(Platform::IsMainThread());
    switch (virtualKey) {
        case VirtualKey::backspace:
            if (inputCursor > 0) {
                --inputCursor;
                RemoveAtCursor();
            }
            break;
        case VirtualKey::tab:
            Complete();
            historyIndex = -1;
            break;
        case VirtualKey::enter:
            EnterLine();
            break;
        case VirtualKey::escape:
            ClearLine();
            Edited();
            break;
        case VirtualKey::end:
            inputCursor = static_cast<std::uint32_t>(Line().size());
            break;
        case VirtualKey::home:
            inputCursor = 0;
            break;
        case VirtualKey::left:
            inputCursor -= inputCursor > 0 ? 1 : 0;
            break;
        case VirtualKey::right:
            inputCursor += inputCursor < Line().size() ? 1 : 0;
            break;
        case VirtualKey::up:
            ShowHistory(historyIndex + 1);
            break;
        case VirtualKey::down:
            ShowHistory(historyIndex - 1);
            break;
        case VirtualKey::deleteKey:
            if (inputCursor < inputSize) {
                RemoveAtCursor();
            }
            break;
        default:
            TypeCharacter(Platform::TheWindow().KeyToChar(virtualKey));
            break;
    }
}

void Execute(std::string_view line) {
    VANTREL_ASSERT(Platform::IsMainThread());
    line = WithoutLeadingBlanks(line);
    if (line.empty()) {
        return;
    }
    const std::size_t wordEnd = std::min(line.find(' '), line.size());
    const auto found = Commands().find(UpperCased(line.substr(0, wordEnd)));
    if (found == Commands().end()) {
        Print("\nUNKNOWN COMMAND. USE 'COMMANDS' FOR A LIST OF AVAILABLE COMMANDS.");
        return;
    }
    // A copy, since the function may change the registry.
    const ConsoleCommand command = found->second;
    RunCommand(command, line.substr(std::min(wordEnd + 1, line.size())));
}

}  // namespace Console
