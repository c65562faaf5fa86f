#pragma once
// The player's choices between runs: named keys with text values, below the user's
// configuration directory; without one, all keys are closed. Nothing prints; every failure gives a
// closed key or an empty text, and callers treat that as a value not set.

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

/// Where the program's own preferences are kept in the store.
inline constexpr std::string_view preferencesPath = "software/Vantrel/Preferences";

/// A key of the store. A value: copies stand for the same key.
class PreferenceKey {
public:
    PreferenceKey() = default;

    bool IsOpen() const { return !directory.empty(); }
    bool HasValue(std::string_view name) const;
    /// The value's text, by its name in any case; empty if there is none.
    std::string GetValue(std::string_view name) const;
    /// Stores the text, cut to 4,095 characters. False on failure, which keeps the old values.
    bool SetValue(std::string_view name, std::string_view text) const;

private:
    friend class PreferenceStore;
    explicit PreferenceKey(std::filesystem::path keyDirectory)
        : directory(std::move(keyDirectory)) {}

    std::filesystem::path directory;
};

/// Paths are components parted by "/" or "\"; leading, trailing and doubled ones count for
/// nothing, and components match in any case.
class PreferenceStore {
public:
    /// The key if all of its components exist; creates nothing.
    static PreferenceKey OpenKey(std::string_view path);
    /// The key, with missing components created.
    static PreferenceKey OpenOrCreateKey(std::string_view path);
};

/// Appends each component of the path to the list.
void SplitPath(std::string_view path, std::vector<std::string>& list);
