// Reading of cfg files. The words of the text, taken two at a time, are keys and values; "="
// between words, however many, parts them as a blank does.

#include "engine/ConfigFile.h"

#include <algorithm>
#include <fstream>
#include <vector>

#include "engine/Console.h"
#include "engine/Text.h"
#include "platform/Assert.h"
#include "platform/Paths.h"
#include "platform/WholeFile.h"

namespace {

constexpr bool PartsWords(char c) {
    return IsSeparator(c) || c == '=';
}

std::vector<std::string_view> Words(std::string_view text) {
    std::vector<std::string_view> words;
    auto at = text.begin();
    while ((at = std::find_if_not(at, text.end(), PartsWords)) != text.end()) {
        const auto wordEnd = std::find_if(at, text.end(), PartsWords);
        words.emplace_back(at, wordEnd);
        at = wordEnd;
    }
    return words;
}

void PrintProblem(const char* message, const char* fileName) {
    Console::Print(message);
    Console::Print(fileName);
}

}  // namespace

void ConfigFile::Load(const char* fileName) {
    Clear();
    if (fileName == nullptr) {
        Console::Print("\nError in configuration Loader: no file name given");
        return;
    }
    const auto path = Platform::FindFile(fileName);
    if (!path) {
        PrintProblem("\nCould not open config file: ", fileName);
        return;
    }
    const auto block = Platform::ReadWholeFile(*path);
    if (!block) {
        const bool canOpen = std::ifstream(*path).is_open();
        PrintProblem(canOpen ? "Error reading config file: " : "\nCould not open config file: ",
                     fileName);
        return;
    }
    Parse({reinterpret_cast<const char*>(block->data()), block->size()}, fileName);
}

void ConfigFile::Parse(std::string_view text, const char* fileName) {
    VANTREL_ASSERT(fileName != nullptr);
    Clear();
    const std::vector<std::string_view> words = Words(text.substr(0, text.find('\0')));
    if (words.size() % 2 != 0) {
        PrintProblem("\nError parsing configuration file: ", fileName);
        return;
    }
    for (std::size_t i = 0; i < words.size(); i += 2) {
        values.insert_or_assign(UpperCased(words[i]), std::string(words[i + 1]));
    }
}

const std::string* ConfigFile::Find(std::string_view key) const {
    const auto found = values.find(UpperCased(key));
    return found != values.end() ? &found->second : nullptr;
}

bool ConfigFile::Has(std::string_view key) const {
    return Find(key) != nullptr;
}

int ConfigFile::GetInt(std::string_view key) const {
    int value = 0;
    ReadInt(key, value);
    return value;
}

bool ConfigFile::GetBool(std::string_view key) const {
    bool value = false;
    ReadBool(key, value);
    return value;
}

float ConfigFile::GetFloat(std::string_view key) const {
    float value = 0.0f;
    ReadFloat(key, value);
    return value;
}

std::string ConfigFile::GetString(std::string_view key) const {
    std::string value;
    ReadString(key, value);
    return value;
}

Colour ConfigFile::GetColour(std::string_view name) const {
    Colour value{0.0f, 0.0f, 0.0f, 0.0f};
    ReadColour(name, value);
    return value;
}

void ConfigFile::ReadInt(std::string_view key, int& target) const {
    const std::string* value = Find(key);
    if (value != nullptr && IsInteger(*value)) {
        target = ToInteger(*value);
    }
}

void ConfigFile::ReadBool(std::string_view key, bool& target) const {
    const std::string* value = Find(key);
    if (value != nullptr && IsBoolean(*value)) {
        target = ToBoolean(*value);
    }
}

void ConfigFile::ReadFloat(std::string_view key, float& target) const {
    const std::string* value = Find(key);
    if (value != nullptr && IsNumber(*value)) {
        target = ToNumber(*value);
    }
}

void ConfigFile::ReadString(std::string_view key, std::string& target) const {
    if (const std::string* value = Find(key)) {
        target = *value;
    }
}

void ConfigFile::ReadColour(std::string_view name, Colour& target) const {
    const std::string key(name);
    ReadFloat(key + "_r", target.r);
    ReadFloat(key + "_g", target.g);
    ReadFloat(key + "_b", target.b);
    ReadFloat(key + "_a", target.a);
}
