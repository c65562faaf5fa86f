// The console's registry: parses a typed line, converts its argument to what the bound
// function takes, and prints what it returns.

#include <algorithm>
#include <cmath>
#include <limits>
#include <type_traits>

#include "engine/Console.h"
#include "engine/ConsoleParts.h"
#include "engine/Text.h"
#include "platform/System.h"

namespace Console {

namespace {

std::map<std::string, ConsoleCommand> commands;

// The argument of a typed line: the words for numbers and flags, the whole text for text.
struct Argument {
    std::string text;
    std::vector<std::string> words;
};

// What a value of each type is called in usage lines, and how a word becomes one.

template <typename Value>
struct Form;

template <>
struct Form<int> {
    static constexpr const char* name = "integer number";
    static std::optional<int> From(const std::string& word) {
        if (!IsNumber(word)) {
            return std::nullopt;
        }
        // The fraction is dropped, and what is too large is held at the limits of the type.
        using Limits = std::numeric_limits<int>;
        const double number = ToNumber(word);
        return static_cast<int>(std::clamp<double>(number, Limits::min(), Limits::max()));
    }
};

template <>
struct Form<bool> {
    static constexpr const char* name = "true OR false";
    static std::optional<bool> From(const std::string& word) {
        if (IsBoolean(word)) {
            return ToBoolean(word);
        }
        return IsNumber(word) ? std::optional(ToNumber(word) >= 1.0f) : std::nullopt;
    }
};

template <>
struct Form<float> {
    static constexpr const char* name = "number";
    static std::optional<float> From(const std::string& word) {
        return IsNumber(word) ? std::optional(ToNumber(word)) : std::nullopt;
    }
};

template <typename Value>
std::optional<Value> OneWord(const Argument& argument) {
    return argument.words.size() == 1 ? Form<Value>::From(argument.words.front()) : std::nullopt;
}

void PrintValue(int value) {
    PrintInt(value);
}
void PrintValue(bool value) {
    PrintBool(value);
}
void PrintValue(float value) {
    PrintFloat(value);
}
void PrintValue(const std::string& value) {
    Print(value);
}
void PrintValue(const ConsoleCommand::Text& value) {
    Print(value.value_or(""));
}

// Runs one command with one argument: an overload per shape of function.
struct Dispatch {
    const std::string& name;
    const Argument& argument;

    template <typename Value>
    static constexpr bool isText = !std::is_arithmetic_v<Value>;

    void Usage(const char* what, const char* alternative = "") const {
        for (const char* part : {"\nUSAGE: ", name.c_str(), " < ", what, alternative, " >"}) {
            Print(part);
        }
    }

    template <typename Value>
    void Reply(const char* verb, const Value& value) const {
        Print("\n");
        Print(name);
        Print(verb);
        PrintValue(value);
    }

    void operator()(ConsoleCommand::Action action) const {
        if (argument.words.empty()) {
            action();
        } else {
            Usage("nothing");
        }
    }

    template <typename Value>
    void operator()(Value (*read)()) const {
        if (isText<Value> ? argument.text.empty() : argument.words.empty()) {
            Reply(" is ", read());
        } else {
            Usage("nothing");
        }
    }

    template <typename Value>
    void operator()(void (*act)(Value)) const {
        if (const auto value = OneWord<Value>(argument)) {
            act(*value);
        } else {
            Usage(Form<Value>::name);
        }
    }
    void operator()(void (*act)(std::string)) const { act(argument.text); }
    void operator()(void (*act)(const char*)) const { act(argument.text.c_str()); }

    template <typename Value>
    void operator()(Value (*access)(Value, bool)) const {
        if (argument.words.empty()) {
            Reply(" is ", access(Value{}, false));
        } else if (const auto value = OneWord<Value>(argument)) {
            Reply(" is now ", access(*value, true));
        } else {
            Usage(Form<Value>::name, " OR nothing");
        }
    }

    const char* Verb() const { return argument.text.empty() ? " is " : " is now "; }
    void operator()(std::string (*filter)(std::string)) const {
        Reply(Verb(), filter(argument.text));
    }
    void operator()(ConsoleCommand::Text (*filter)(const char*)) const {
        Reply(Verb(), filter(argument.text.c_str()));
    }
};

std::string_view WithoutLeadingBlanks(std::string_view text) {
    return text.substr(std::min(text.find_first_not_of(' '), text.size()));
}

void ListCommands(const char* text) {
    PrintBanner("Command list: Use Commands < term > to filter listings");
    const std::string term = UpperCased(WithoutLeadingBlanks(text));
    for (auto entry = commands.lower_bound(term);
         entry != commands.end() && entry->first.starts_with(term); ++entry) {
        Print("\n");
        Print(entry->second.name);
    }
    Print("\n");
}

void PrintMemory() {
    const Platform::MemoryStatus memory = Platform::PhysicalMemory();
    const auto line = [](const char* what, std::uint64_t bytes) {
        Print(what);
        PrintUnsigned(bytes);
        Print("\t bytes");
    };
    PrintBanner("Memory usage");
    Print("\nSystem memory usage: \n");
    line("\nTotal : ", memory.totalBytes);
    line("\nFree  : ", memory.freeBytes);
    line("\nUsed  : ", memory.totalBytes - memory.freeBytes);
    Print("\n");
}

bool LogConsole(bool value, bool isSet) {
    if (isSet) {
        SetLogging(value);
    }
    return IsLogging();
}

}  // namespace

const std::map<std::string, ConsoleCommand>& Commands() {
    return commands;
}

void AddCommand(std::string_view name, ConsoleCommand::Function function) {
    const bool isNull = std::visit([](auto pointer) { return pointer == nullptr; }, function);
    if (name.empty() || isNull || name.find(' ') != std::string_view::npos) {
        return;
    }
    commands.insert_or_assign(UpperCased(name), ConsoleCommand{std::string(name), function});
}

void RemoveCommand(std::string_view name) {
    commands.erase(UpperCased(name));
}

void RemoveAllCommands() {
    commands.clear();
}

void AddBuiltInCommands() {
    AddCommand("Clear", Clear);
    AddCommand("Commands", ListCommands);
    AddCommand("Memory", PrintMemory);
    AddCommand("LogConsole", LogConsole);
}

void Execute(std::string_view line) {
    line = WithoutLeadingBlanks(line);
    if (line.empty()) {
        return;
    }
    const std::size_t wordEnd = std::min(line.find(' '), line.size());
    const auto found = commands.find(UpperCased(line.substr(0, wordEnd)));
    if (found == commands.end()) {
        Print("\nUNKNOWN COMMAND. USE 'COMMANDS' FOR A LIST OF AVAILABLE COMMANDS.");
        return;
    }
    Argument argument;
    argument.text = line.substr(std::min(wordEnd + 1, line.size()));
    argument.words = SplitWords(argument.text);
    // A copy, since the function may change the registry.
    const ConsoleCommand command = found->second;
    std::visit(Dispatch{command.name, argument}, command.function);
}

}  // namespace Console
