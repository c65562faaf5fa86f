#pragma once
// The developer's window into the running program, and its only log: a text ring, a line
// editor with history and completion, and typed commands (ConsoleCommands.h). Printing is
// valid at any moment. Messages start with "\n" and don't end with one.
//
// Keys and commands are the main thread's; another may print while that one waits. Drawing lies in
// graphics/ConsoleDraw.h.

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "engine/Colour.h"

namespace Console {

/// Empties everything, registers the built-in commands, reads the settings and starts the
/// log if they say so.
void Initialise();
/// Removes all commands, forgets the history and stops the log.
void Shutdown();

void Print(const char* text);  ///< null is ignored
void Print(std::string_view text);
void PrintChar(char c);
void PrintUnsigned(std::uint64_t value);
void PrintInt(std::int32_t value);
void PrintBool(bool value);
void PrintFloat(float value);
void PrintDouble(double value);
/// The text as a heading, between two lines of 64 asterisks.
void PrintBanner(std::string_view text);

/// Copies what is printed to ConsoleLog.txt in the working directory, from now on. A write
/// that fails ends it, with a message.
void SetLogging(bool on);
bool IsLogging();

/// Empties the text ring and the line being typed.
void Clear();
/// Empties the line being typed only.
void ClearLine();
/// Forgets the lines typed before and a running completion.
void ForgetHistory();
/// One key press, as a virtual key code.
void HandleKey(int virtualKey);
/// Runs a line as if it had been typed, without echo or history.
void Execute(std::string_view line);

// What the drawing reads.

inline constexpr std::uint32_t outputSize = 65535;
inline constexpr std::uint32_t inputSize = 256;
inline constexpr int historySize = 16;

/// Ring of printed characters; `outputWrite` is the next index to write.
extern std::array<char, outputSize> outputBuffer;
extern std::uint32_t outputWrite;
/// The line being typed, zero-filled.
extern std::array<char, inputSize + 1> inputLine;
extern std::uint32_t inputCursor;

/// A place in the text area that moves on with each character.
struct TextCursor {
    int row = 0;
    int column = 0;

    /// Moves past `c` in an area of `columns` columns.
    void Advance(char c, int columns);
};

/// The stretch of the output ring that ends at its newest character.
struct VisibleText {
    std::uint32_t first = 0;  ///< index in the ring
    std::uint32_t count = 0;
};

/// The newest text that is worth drawing in an area of that size: as much as fills `rows`
/// rows, counted backwards from the newest character, and at most the whole ring.
VisibleText FindVisibleText(int rows, int columns);

/// Look of the console, from cfg\console.cfg.
struct Settings {
    std::string fontTextureName;
    int fontSize = 8;  ///< pixels per cell, at least 1
    Colour outputBackground{0.0f, 0.0f, 0.0f, 0.5f};
    Colour outputText = Colours::white;
    Colour inputBackground{0.25f, 0.25f, 0.25f};
    Colour inputBorder{0.5f, 0.25f, 0.25f};
    Colour inputText = Colours::white;
};
extern Settings settings;

/// The ring's text from the oldest character on, without the line feeds that filled it at
/// the start. For tests and for the end of a run without a screen.
std::string OutputText();

}  // namespace Console
