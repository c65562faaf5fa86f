// Names to files: the lookup itself. Reading and writing whole files is in WholeFile.cpp, the
// choice of the data root in DataRoot.cpp.

#include "platform/Paths.h"

#include <algorithm>
#include <chrono>
#include <map>
#include <mutex>
#include <system_error>

#include "platform/DataRoot.h"

namespace fs = std::filesystem;

namespace Platform {

namespace {

// A name of data has few components; more are nonsense.
constexpr std::size_t maximumComponents = 64;

char Folded(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

std::string Folded(std::string_view text) {
    std::string folded(text);
    std::transform(folded.begin(), folded.end(), folded.begin(), [](char c) { return Folded(c); });
    return folded;
}

bool SameWithoutCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return Folded(x) == Folded(y); });
}

/// A name taken apart.
struct Name {
    bool absolute = false;
    std::vector<std::string> components;  ///< never empty; no "" and no "."
};

/// None if the name is empty, can't name a file, or isn't allowed for its source.
std::optional<Name> Parse(std::string_view text, NameSource source) {
    if (text.find('\0') != std::string_view::npos) {
        return std::nullopt;
    }
    Name name;
    name.absolute = !text.empty() && (text[0] == '/' || text[0] == '\\');
    const bool drive = text.size() >= 2 && text[1] == ':';
    if (drive || (name.absolute && source == NameSource::Data)) {
        return std::nullopt;
    }
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of("/\\"), text.size());
        const std::string_view part = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (part.empty() || part == ".") {
            continue;
        }
        if ((part == ".." && source == NameSource::Data) ||
            name.components.size() == maximumComponents) {
            return std::nullopt;
        }
        name.components.emplace_back(part);
    }
    if (name.components.empty()) {
        return std::nullopt;
    }
    return name;
}

struct Entry {
    std::string name;
    bool isDirectory = false;
    bool isFile = false;
};

struct Listing {
    fs::file_time_type written;
    bool settled = false;        ///< a change after the reading would show in `written`
    std::vector<Entry> entries;  ///< ascending by name
};

std::mutex listingsMutex;
std::map<std::string, Listing> listings;

Listing ReadListing(const fs::path& directory, fs::file_time_type written) {
    Listing listing;
    listing.written = written;
    // File times tick coarsely: a directory changed a moment ago may change once more
    // without a new time.
    listing.settled = fs::file_time_type::clock::now() - written > std::chrono::milliseconds(100);
    std::error_code error;
    for (fs::directory_iterator it(directory, error), end; !error && it != end;
         it.increment(error)) {
        std::error_code ignored;
        listing.entries.push_back({it->path().filename().string(), it->is_directory(ignored),
                                   it->is_regular_file(ignored)});
    }
    std::sort(listing.entries.begin(), listing.entries.end(),
              [](const Entry& a, const Entry& b) { return a.name < b.name; });
    return listing;
}

/// The entries of a directory, from the cache unless the directory has changed.
std::vector<Entry> Entries(const fs::path& directory) {
    std::error_code error;
    const fs::file_time_type written = fs::last_write_time(directory, error);
    if (error) {
        return {};
    }
    const std::lock_guard lock(listingsMutex);
    Listing& listing = listings[directory.string()];
    if (!listing.settled || listing.written != written) {
        listing = ReadListing(directory, written);
    }
    return listing.entries;
}

/// What a component may stand for in a directory: the exact name first, then the others that
/// differ in case only, ascending.
std::vector<Entry> Matches(const fs::path& directory, const std::string& component) {
    if (component == "..") {
        return {{component, true, false}};
    }
    std::vector<Entry> matches;
    for (const Entry& entry : Entries(directory)) {
        if (entry.name == component) {
            matches.insert(matches.begin(), entry);
        } else if (SameWithoutCase(entry.name, component)) {
            matches.push_back(entry);
        }
    }
    return matches;
}

/// All directories that the components up to the last one may stand for, best first.
std::vector<fs::path> Directories(const fs::path& root, const Name& name) {
    std::vector<fs::path> found{root};
    for (std::size_t i = 0; i + 1 < name.components.size(); ++i) {
        std::vector<fs::path> deeper;
        for (const fs::path& directory : found) {
            for (const Entry& entry : Matches(directory, name.components[i])) {
                if (entry.isDirectory) {
                    deeper.push_back(directory / entry.name);
                }
            }
        }
        found = std::move(deeper);
    }
    return found;
}

fs::path WorkingDirectory() {
    std::error_code error;
    return fs::current_path(error);
}

std::vector<fs::path> Roots(const Name& name) {
    if (name.absolute) {
        return {"/"};
    }
    std::vector<fs::path> roots{WorkingDirectory()};
    if (!DataRoot().empty()) {
        roots.insert(DataRootComesFirst() ? roots.begin() : roots.end(), DataRoot());
    }
    return roots;
}

/// Whether the text matches a pattern in which "*" stands for any run of characters.
bool MatchesPattern(std::string_view text, std::string_view pattern) {
    std::size_t at = 0;
    std::size_t patternAt = 0;
    std::size_t star = std::string_view::npos;
    std::size_t starText = 0;
    while (at < text.size()) {
        if (patternAt < pattern.size() && pattern[patternAt] == '*') {
            star = patternAt++;
            starText = at;
        } else if (patternAt < pattern.size() && Folded(pattern[patternAt]) == Folded(text[at])) {
            ++patternAt;
            ++at;
        } else if (star != std::string_view::npos) {
            // The last star takes one more character.
            patternAt = star + 1;
            at = ++starText;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', patternAt) == std::string_view::npos;
}

}  // namespace

std::optional<fs::path> FindFile(std::string_view name, NameSource source) {
    const std::optional<Name> parsed = Parse(name, source);
    if (!parsed) {
        return std::nullopt;
    }
    for (const fs::path& root : Roots(*parsed)) {
        for (const fs::path& directory : Directories(root, *parsed)) {
            for (const Entry& entry : Matches(directory, parsed->components.back())) {
                if (entry.isFile) {
                    return directory / entry.name;
                }
            }
        }
    }
    return std::nullopt;
}

std::optional<fs::path> WritablePath(std::string_view name) {
    const std::optional<Name> parsed = Parse(name, NameSource::Data);
    if (!parsed) {
        return std::nullopt;
    }
    fs::path path = WorkingDirectory();
    for (std::size_t i = 0; i < parsed->components.size(); ++i) {
        const std::string& component = parsed->components[i];
        const bool last = i + 1 == parsed->components.size();
        const std::vector<Entry> matches = Matches(path, component);
        const auto match = std::find_if(matches.begin(), matches.end(), [&](const Entry& entry) {
            return last ? entry.isFile : entry.isDirectory;
        });
        path /= match != matches.end() ? match->name : component;
        std::error_code error;
        if (!last && match == matches.end() && !fs::create_directory(path, error) &&
            !fs::is_directory(path, error)) {
            return std::nullopt;  // another program may have made it in between
        }
    }
    return path;
}

std::vector<std::string> ListFiles(std::string_view pattern) {
    const std::optional<Name> parsed = Parse(pattern, NameSource::Data);
    if (!parsed) {
        return {};
    }
    // By folded name; the first one found hides the others.
    std::map<std::string, std::string> files;
    for (const fs::path& root : Roots(*parsed)) {
        for (const fs::path& directory : Directories(root, *parsed)) {
            for (const Entry& entry : Entries(directory)) {
                if (entry.isFile && MatchesPattern(entry.name, parsed->components.back())) {
                    files.emplace(Folded(entry.name), entry.name);
                }
            }
        }
    }
    std::vector<std::string> names;
    names.reserve(files.size());
    for (auto& [folded, file] : files) {
        names.push_back(std::move(file));
    }
    return names;
}

void ForgetListings() {
    const std::lock_guard lock(listingsMutex);
    listings.clear();
}

}  // namespace Platform
