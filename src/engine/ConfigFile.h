#pragma once
// A cfg file: a flat list of key and value words, read whole into a map. A short-lived
// local object: construct it with the file's name, ask the getters, let it go.
// There are no comments, sections or quotes; "=" is an optional separator. One stray word
// costs the reader the whole file. Failures print to the console and leave an empty map.

#include <map>
#include <string>
#include <string_view>

#include "engine/Colour.h"

class ConfigFile {
public:
    ConfigFile() = default;
    explicit ConfigFile(const std::string& fileName) { Load(fileName); }
    explicit ConfigFile(const char* fileName) { Load(fileName); }

    /// Clears the map, then reads the file.
    void Load(const std::string& fileName) { Load(fileName.c_str()); }
    void Load(const char* fileName);
    /// Clears the map, then reads the text as if it were a file of the given name, not null. A zero
    /// byte ends the text.
    void Parse(std::string_view text, const char* fileName);
    void Clear() { values.clear(); }

    /// Upper-cased key to value as read.
    using Values = std::map<std::string, std::string, std::less<>>;
    const Values& All() const { return values; }

    // Keys are found in any case.

    bool Has(std::string_view key) const;
    /// 0 if the key is missing or its value has no integer form.
    int GetInt(std::string_view key) const;
    bool GetBool(std::string_view key) const;
    float GetFloat(std::string_view key) const;
    std::string GetString(std::string_view key) const;
    /// From the keys `name`_r, _g, _b and _a.
    Colour GetColour(std::string_view name) const;

    // These leave the target alone unless the key is there and of the right form.

    void ReadInt(std::string_view key, int& target) const;
    void ReadBool(std::string_view key, bool& target) const;
    void ReadFloat(std::string_view key, float& target) const;
    void ReadString(std::string_view key, std::string& target) const;
    /// Each component by itself.
    void ReadColour(std::string_view name, Colour& target) const;

private:
    const std::string* Find(std::string_view key) const;

    Values values;
};
