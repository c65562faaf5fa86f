#pragma once
// The console's commands: names bound to typed functions. A module writes its commands down once,
// in a CommandTable, with `Add` in its Initialise and `Remove` in its Shutdown; docs/console.md
// lists what the tables say, word for word. Functions bound here are called on the main thread,
// from a typed line, with arguments that have been checked and converted.

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <variant>
#include <vector>

/// What follows the name in a typed line.
struct ConsoleArguments {
    std::string text;                ///< as typed, after the name and one blank
    std::vector<std::string> words;  ///< the same, split at blanks
};

/// A registered command: the function's signature decides how a typed line is converted.
struct ConsoleCommand {
    using Action = void (*)();
    /// A text that a function may have none of; then nothing is printed after "is".
    using Text = std::optional<std::string>;
    /// False if the arguments don't fit, which prints the usage line. Made by `Console::Words` and
    /// `Console::SomeText`.
    using Call = bool (*)(const ConsoleArguments&);
    /// Readers, actions, and accessors: these take a value and whether one was given, store it only
    /// if so, and always return the current one.
    using Function = std::variant<Action, int (*)(), bool (*)(), float (*)(), std::string (*)(),
                                  Text (*)(), void (*)(int), void (*)(bool), void (*)(float),
                                  void (*)(std::string), void (*)(const char*), int (*)(int, bool),
                                  bool (*)(bool, bool), float (*)(float, bool),
                                  std::string (*)(std::string), Text (*)(const char*), Call>;

    std::string name;  ///< as registered, in its own case
    Function function;
    std::string description{};  ///< one sentence, for the documentation
    /// What to type after the name where the function's signature doesn't say it, like
    /// "< x : number > < y : number >"; or a whole usage line that has a form of its own.
    std::string usage{};

    /// What can be typed after the name: "< true OR false OR nothing >". Empty for nothing.
    std::string Arguments() const;
    /// What is printed when arguments don't fit.
    std::string UsageLine() const;
};

namespace Console {

/// Binds the command's function, a function pointer or a lambda without captures, to its name,
/// replacing an earlier binding. Ignored if the name is empty or holds a blank, or the function
/// is null.
void AddCommand(ConsoleCommand command);
void AddCommand(std::string_view name, ConsoleCommand::Function function);
void RemoveCommand(std::string_view name);

/// All bindings, by upper-cased name.
const std::map<std::string, ConsoleCommand>& Commands();
void RemoveAllCommands();
/// Calls the command with what was typed after its name and one blank, or prints its usage line.
/// The command must stay valid until then, even if its function changes the registry.
void RunCommand(const ConsoleCommand& command, std::string_view text);
/// Adds the commands that need neither window nor textures.
void AddBuiltInCommands();

/// A module's commands, one a row. They are in the registry from `Add` on until `Remove`, the end
/// of the table or that of the console, whichever comes first.
class CommandTable {
public:
    CommandTable(std::initializer_list<ConsoleCommand> commands);
    ~CommandTable() { Remove(); }
    CommandTable(const CommandTable&) = delete;
    CommandTable& operator=(const CommandTable&) = delete;

    void Add() const;
    void Remove() const;

private:
    std::vector<ConsoleCommand> rows;
};

// Functions for rows.

/// An accessor on a bool, int or float.
template <auto& variable>
auto Variable(std::remove_cvref_t<decltype(variable)> value, bool isSet) {
    if (isSet) {
        variable = value;
    }
    return variable;
}

/// The same on a part of a record.
template <auto& record, auto part>
auto Variable(std::remove_cvref_t<decltype(record.*part)> value, bool isSet) {
    if (isSet) {
        record.*part = value;
    }
    return record.*part;
}

/// The number of entries of a container.
template <auto& container>
int Count() {
    return static_cast<int>(container.size());
}

/// The same of a container that is part of a record.
template <auto& record, auto part>
int Count() {
    return static_cast<int>((record.*part).size());
}

/// Reads a word as what a function takes; false if it hasn't the form of that. An unsigned value
/// is an id, for which a negative number wraps round.
bool ReadWord(const std::string& word, std::int32_t& value);
bool ReadWord(const std::string& word, std::uint32_t& value);
bool ReadWord(const std::string& word, float& value);
bool ReadWord(const std::string& word, bool& value);
bool ReadWord(const std::string& word, std::string& value);

template <typename... Values>
bool CallWithWords(void (*action)(Values...), const std::vector<std::string>& words) {
    std::tuple<std::remove_cvref_t<Values>...> values;
    const auto read = [&words](auto&... value) {
        std::size_t next = 0;
        return (ReadWord(words[next++], value) && ...);
    };
    if (words.size() != sizeof...(Values) || !std::apply(read, values)) {
        return false;
    }
    std::apply(action, values);
    return true;
}

/// Calls `action` with one word for each of its arguments.
template <auto action>
bool Words(const ConsoleArguments& arguments) {
    return CallWithWords(action, arguments.words);
}

/// Calls `action`, which takes a text, with all that was typed, if anything was.
template <auto action>
bool SomeText(const ConsoleArguments& arguments) {
    if (arguments.text.empty()) {
        return false;
    }
    action(arguments.text);
    return true;
}

}  // namespace Console
