// Life and settings of the console, and its output: a ring of characters and, on demand, a log
// with the same bytes. Both are constant-initialised, so that printing works at any moment of the
// program.

#include "engine/Console.h"

#include <algorithm>
#include <cstdio>
#include <memory>

#include "engine/ConfigFile.h"
#include "engine/ConsoleCommands.h"
#include "platform/Paths.h"

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

}  // namespace Console
