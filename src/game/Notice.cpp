#include "game/Notice.h"

#include <cstdio>
#include <vector>

#include "engine/Console.h"

namespace {

bool hasConsole = false;
std::vector<std::string> early;  // told before the console started

}  // namespace

void Notice(const std::string& line) {
    std::fprintf(stderr, "%s\n", line.c_str());
    Console::Print("\n" + line);
    if (!hasConsole) {
        early.push_back(line);
    }
}

void RepeatNotices() {
    hasConsole = true;
    for (const std::string& line : early) {
        Console::Print("\n" + line);
    }
    early.clear();
}

std::string LastReason() {
    const std::string text = Console::OutputText();
    const std::size_t reason = text.rfind("\nReason: ");
    if (reason != std::string::npos) {
        return text.substr(reason + 9);
    }
    const std::size_t line = text.rfind('\n');
    return line == std::string::npos ? text : text.substr(line + 1);
}
