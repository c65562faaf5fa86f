// The console's line editor: keys, history and the completion of command names.

#include <algorithm>

#include "engine/Console.h"
#include "engine/ConsoleCommands.h"
#include "engine/Text.h"
#include "platform/Assert.h"
#include "platform/ThreadPriority.h"
#include "platform/VirtualKeys.h"
#include "platform/Window.h"

namespace Console {

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

}  // namespace Console
