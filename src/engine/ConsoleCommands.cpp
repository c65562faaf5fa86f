// The console's registry: parses a typed line, converts its arguments to what the bound
// function takes, and prints what it returns.

#include "engine/ConsoleCommands.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "engine/Console.h"
#include "engine/Text.h"
#include "platform/Assert.h"
#include "platform/System.h"
#include "platform/ThreadPriority.h"

namespace {

using Console::Print;

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
        float number = 0.0f;
        return Console::ReadWord(word, number) ? std::optional(number) : std::nullopt;
    }
};

template <>
struct Form<std::string> {
    static constexpr const char* name = "text";
};
template <>
struct Form<const char*> : Form<std::string> {};

template <typename Value>
constexpr bool isText = !std::is_arithmetic_v<Value>;

// What can be typed after the name, for each type of function.
struct Describe {
    std::string operator()(ConsoleCommand::Action) const { return {}; }
    std::string operator()(ConsoleCommand::Call) const { return {}; }
    template <typename Value>
    std::string operator()(Value (*)()) const {
        return {};
    }
    template <typename Value>
    std::string operator()(void (*)(Value)) const {
        return std::string("< ") + Form<Value>::name + (isText<Value> ? " OR nothing >" : " >");
    }
    template <typename Result, typename Value, typename... IsSet>
    std::string operator()(Result (*)(Value, IsSet...)) const {
        return std::string("< ") + Form<Value>::name + " OR nothing >";
    }
};

template <typename Value>
std::optional<Value> OneWord(const ConsoleArguments& arguments) {
    return arguments.words.size() == 1 ? Form<Value>::From(arguments.words.front()) : std::nullopt;
}

void PrintValue(int value) {
    Console::PrintInt(value);
}
void PrintValue(bool value) {
    Console::PrintBool(value);
}
void PrintValue(float value) {
    Console::PrintFloat(value);
}
void PrintValue(const std::string& value) {
    Print(value);
}
void PrintValue(const ConsoleCommand::Text& value) {
    Print(value.value_or(""));
}

// Runs one command with one line's arguments: an overload per type of function.
struct Dispatch {
    const ConsoleCommand& command;
    const ConsoleArguments& arguments;

    void Usage() const { Print(command.UsageLine()); }

    template <typename Value>
    void Reply(const char* verb, const Value& value) const {
        Print("\n");
        Print(command.name);
        Print(verb);
        PrintValue(value);
    }

    void operator()(ConsoleCommand::Action action) const {
        if (arguments.words.empty()) {
            action();
        } else {
            Usage();
        }
    }
    void operator()(ConsoleCommand::Call call) const {
        if (!call(arguments)) {
            Usage();
        }
    }

    template <typename Value>
    void operator()(Value (*read)()) const {
        if (isText<Value> ? arguments.text.empty() : arguments.words.empty()) {
            Reply(" is ", read());
        } else {
            Usage();
        }
    }

    template <typename Value>
    void operator()(void (*act)(Value)) const {
        if (const auto value = OneWord<Value>(arguments)) {
            act(*value);
        } else {
            Usage();
        }
    }
    void operator()(void (*act)(std::string)) const { act(arguments.text); }
    void operator()(void (*act)(const char*)) const { act(arguments.text.c_str()); }

    template <typename Value>
    void operator()(Value (*access)(Value, bool)) const {
        if (arguments.words.empty()) {
            Reply(" is ", access(Value{}, false));
        } else if (const auto value = OneWord<Value>(arguments)) {
            Reply(" is now ", access(*value, true));
        } else {
            Usage();
        }
    }

    const char* Verb() const { return arguments.text.empty() ? " is " : " is now "; }
    void operator()(std::string (*filter)(std::string)) const {
        Reply(Verb(), filter(arguments.text));
    }
    void operator()(ConsoleCommand::Text (*filter)(const char*)) const {
        Reply(Verb(), filter(arguments.text.c_str()));
    }
};

// Made by the first table, so that it outlives them all.
std::map<std::string, ConsoleCommand>& Registry() {
    static std::map<std::string, ConsoleCommand> commands;
    return commands;
}

void ListCommands(const char* text) {
    Console::PrintBanner("Command list: Use Commands < term > to filter listings");
    const std::string term = UpperCased(WithoutLeadingBlanks(text));
    const auto& commands = Registry();
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
        Console::PrintUnsigned(bytes);
        Print("\t bytes");
    };
    Console::PrintBanner("Memory usage");
    Print("\nSystem memory usage: \n");
    line("\nTotal : ", memory.totalBytes);
    line("\nFree  : ", memory.freeBytes);
    line("\nUsed  : ", memory.totalBytes - memory.freeBytes);
    Print("\n");
}

bool LogConsole(bool value, bool isSet) {
    if (isSet) {
        Console::SetLogging(value);
    }
    return Console::IsLogging();
}

const Console::CommandTable builtInCommands{
    {"Clear", Console::Clear, "Empties the console's text and the line being typed."},
    {"Commands", ListCommands, "Lists all commands, or those that begin with the term.",
     "< term OR nothing >"},
    {"Memory", PrintMemory, "Tells how much of the machine's memory is in use."},
    {"LogConsole", LogConsole, "Copies all text to ConsoleLog.txt from now on, or no longer."},
};

}  // namespace

std::string ConsoleCommand::Arguments() const {
    if (!usage.empty()) {
        return usage.substr(std::min(usage.find('<'), usage.size()));
    }
    return std::visit(Describe{}, function);
}

std::string ConsoleCommand::UsageLine() const {
    if (usage.starts_with('\n')) {
        return usage;
    }
    const std::string arguments = Arguments();
    return "\nUSAGE: " + name + ' ' + (arguments.empty() ? "< nothing >" : arguments);
}

namespace Console {

const std::map<std::string, ConsoleCommand>& Commands() {
    return Registry();
}

void AddCommand(ConsoleCommand command) {
    VANTREL_ASSERT(Platform::IsMainThread());
    const bool isNull =
        std::visit([](auto pointer) { return pointer == nullptr; }, command.function);
    if (command.name.empty() || isNull || command.name.find(' ') != std::string::npos) {
        return;
    }
    Registry().insert_or_assign(UpperCased(command.name), std::move(command));
}

void AddCommand(std::string_view name, ConsoleCommand::Function function) {
    AddCommand({std::string(name), function});
}

void RemoveCommand(std::string_view name) {
    VANTREL_ASSERT(Platform::IsMainThread());
    Registry().erase(UpperCased(name));
}

void RemoveAllCommands() {
    Registry().clear();
}

void AddBuiltInCommands() {
    builtInCommands.Add();
}

CommandTable::CommandTable(std::initializer_list<ConsoleCommand> commands) : rows(commands) {
    Registry();
}

void CommandTable::Add() const {
    for (const ConsoleCommand& row : rows) {
        AddCommand(row);
    }
}

void CommandTable::Remove() const {
    for (const ConsoleCommand& row : rows) {
        RemoveCommand(row.name);
    }
}

bool ReadWord(const std::string& word, std::int32_t& value) {
    value = ToInteger(word);
    return IsInteger(word);
}

bool ReadWord(const std::string& word, std::uint32_t& value) {
    value = static_cast<std::uint32_t>(ToInteger(word));
    return IsInteger(word);
}

bool ReadWord(const std::string& word, float& value) {
    value = ToNumber(word);
    return IsNumber(word) && std::isfinite(value);  // so many digits that no float holds it
}

bool ReadWord(const std::string& word, bool& value) {
    value = ToBoolean(word);
    return IsBoolean(word);
}

bool ReadWord(const std::string& word, std::string& value) {
    value = word;
    return true;
}

void RunCommand(const ConsoleCommand& command, std::string_view text) {
    ConsoleArguments arguments;
    arguments.text = text;
    arguments.words = SplitWords(arguments.text);
    std::visit(Dispatch{command, arguments}, command.function);
}

}  // namespace Console
