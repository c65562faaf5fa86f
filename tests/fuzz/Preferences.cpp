// Any bytes as the file of the preferences: start-up reads what it can. A value that is set then
// reads back as it was, whatever lines stand beside it.

#include "engine/PreferenceStore.h"
#include "fuzz/Harness.h"
#include "game/Startup.h"
#include "support/TemporaryDirectory.h"

void Try(std::string_view input) {
    static const TemporaryDirectory directory;
    static const int set = setenv("XDG_CONFIG_HOME", directory.path.c_str(), 1);
    const std::string path(preferencesPath);
    directory.Write("vantrel/" + path + "/values.txt", input);
    LoadPreferences();
    const PreferenceKey key = PreferenceStore::OpenKey(preferencesPath);
    Expect(set == 0 && key.IsOpen());
    // Names and values from the text itself, without what a value can't hold.
    const std::string_view name = input.substr(0, std::min<std::size_t>(input.find('\n'), 40));
    const std::string_view value = input.substr(input.size() / 2, 200);
    if (input.find('\0') == std::string_view::npos && !name.empty()) {
        key.SetValue(name, value);
        Expect(key.GetValue(name) == value);
    }
}
