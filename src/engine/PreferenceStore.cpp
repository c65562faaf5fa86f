// The store on disk: a key is a directory, and its values are the lines of one text file,
// "name=text". Backslash, line breaks and the "=" of a name are escaped. Lines that make no
// sense count as values not set, and stay in the file.

#include "engine/PreferenceStore.h"

#include <algorithm>
#include <optional>

#include "engine/Text.h"
#include "platform/DataRoot.h"
#include "platform/FileUpdate.h"
#include "platform/WholeFile.h"

namespace fs = std::filesystem;

namespace {

constexpr const char* valuesFile = "values.txt";
constexpr std::size_t maxNameLength = 1023;
constexpr std::size_t maxTextLength = 4095;

struct Escape {
    char plain;
    char letter;
};
constexpr Escape escapes[] = {{'\\', '\\'}, {'\n', 'n'}, {'\r', 'r'}, {'=', 'e'}};

std::string Escaped(std::string_view text) {
    std::string result;
    for (const char c : text) {
        const auto* escape = std::ranges::find(escapes, c, &Escape::plain);
        if (escape == std::end(escapes)) {
            result += c;
        } else {
            result += {'\\', escape->letter};
        }
    }
    return result;
}

// Nothing if the text can't have come from `Escaped`.
std::optional<std::string> Unescaped(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            result += text[i];
            continue;
        }
        const char letter = ++i < text.size() ? text[i] : '\0';
        const auto* escape = std::ranges::find(escapes, letter, &Escape::letter);
        if (escape == std::end(escapes)) {
            return std::nullopt;
        }
        result += escape->plain;
    }
    return result;
}

// The text of the line's value if the line is of that upper-cased name.
std::optional<std::string> TextOfLine(std::string_view line, std::string_view upperName) {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos || line.find('\0') != std::string_view::npos) {
        return std::nullopt;
    }
    const auto name = Unescaped(line.substr(0, equals));
    auto text = Unescaped(line.substr(equals + 1));
    const bool isIt = name && text && UpperCased(*name) == upperName;
    return isIt && text->size() <= maxTextLength ? text : std::nullopt;
}

std::vector<std::string> Lines(const std::vector<std::byte>& block) {
    std::vector<std::string> lines;
    std::string_view rest(reinterpret_cast<const char*>(block.data()), block.size());
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        lines.emplace_back(rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return lines;
}

std::optional<std::string> FindValue(const fs::path& directory, std::string_view name) {
    if (directory.empty()) {
        return std::nullopt;
    }
    const std::string upperName = UpperCased(name);
    const auto block = Platform::ReadWholeFile(directory / valuesFile);
    for (const std::string& line : Lines(block.value_or(std::vector<std::byte>()))) {
        if (auto text = TextOfLine(line, upperName)) {
            return text;
        }
    }
    return std::nullopt;
}

// The directory of that name, in any case, below `parent`; the first by name if there are
// several. Empty if there is none.
fs::path FindChild(const fs::path& parent, const std::string& component) {
    std::error_code error;
    if (fs::is_directory(parent / component, error)) {
        return parent / component;
    }
    fs::path found;
    const std::string upper = UpperCased(component);
    for (fs::directory_iterator entry(parent, error), end; !error && entry != end;
         entry.increment(error)) {
        std::error_code ignored;
        const fs::path& path = entry->path();
        if (UpperCased(path.filename().string()) == upper && entry->is_directory(ignored) &&
            (found.empty() || path < found)) {
            found = path;
        }
    }
    return found;
}

// Walks down to the key of that path; empty if a component can't be had.
fs::path FindKey(std::string_view path, bool create) {
    std::vector<std::string> components;
    SplitPath(path, components);
    if (components.empty()) {
        return {};
    }
    fs::path current = Platform::ConfigDirectory();
    if (current.empty()) {
        return {};
    }
    std::error_code error;
    if (create) {
        fs::create_directories(current, error);
    }
    for (const std::string& component : components) {
        if (component == "." || component == ".." || component.find('\0') != std::string::npos) {
            return {};
        }
        fs::path next = FindChild(current, component);
        if (next.empty() && create) {
            // Another game may be first to make it.
            fs::create_directory(current / component, error);
            next = FindChild(current, component);
        }
        if (next.empty()) {
            return {};
        }
        current = std::move(next);
    }
    return current;
}

}  // namespace

bool PreferenceKey::HasValue(std::string_view name) const {
    return FindValue(directory, name).has_value();
}

std::string PreferenceKey::GetValue(std::string_view name) const {
    return FindValue(directory, name).value_or("");
}

bool PreferenceKey::SetValue(std::string_view name, std::string_view text) const {
    // A zero can be in neither: both end there.
    name = name.substr(0, name.find('\0'));
    text = text.substr(0, std::min(text.find('\0'), maxTextLength));
    if (!IsOpen() || name.size() > maxNameLength) {
        return false;
    }
    // Another game may be storing another value.
    const Platform::FileUpdate file(directory / valuesFile);
    std::vector<std::byte> block;
    if (file.Read(block) == Platform::FileUpdate::State::Unreadable) {
        return false;
    }
    std::vector<std::string> lines = Lines(block);
    const std::string newLine = Escaped(name) + '=' + Escaped(text);
    const std::string upperName = UpperCased(name);
    const auto old = std::ranges::find_if(lines, [&upperName](const std::string& line) {
        return TextOfLine(line, upperName).has_value();
    });
    if (old != lines.end()) {
        *old = newLine;
    } else {
        lines.push_back(newLine);
    }
    std::string content;
    for (const std::string& line : lines) {
        content.append(line) += '\n';
    }
    return file.Write(content.data(), content.size());
}

PreferenceKey PreferenceStore::OpenKey(std::string_view path) {
    return PreferenceKey(FindKey(path, false));
}

PreferenceKey PreferenceStore::OpenOrCreateKey(std::string_view path) {
    return PreferenceKey(FindKey(path, true));
}

void SplitPath(std::string_view path, std::vector<std::string>& list) {
    constexpr std::string_view separators = "/\\";
    std::size_t at = 0;
    while ((at = path.find_first_not_of(separators, at)) != std::string_view::npos) {
        const std::size_t end = std::min(path.find_first_of(separators, at), path.size());
        list.emplace_back(path.substr(at, end - at));
        at = end;
    }
}
