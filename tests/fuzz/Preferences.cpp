// Any bytes as the file of the preferences: start-up reads what it can. A value that is set then
// reads back as it was, whatever lines stand beside it.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "engine/PreferenceStore.h"
#include "game/Startup.h"
#include "support/TemporaryDirectory.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const TemporaryDirectory directory;
    static const int set = setenv("XDG_CONFIG_HOME", directory.path.c_str(), 1);
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const std::string path(preferencesPath);
    directory.Write("vantrel/" + path + "/values.txt", text);
    LoadPreferences();
    const PreferenceKey key = PreferenceStore::OpenKey(preferencesPath);
    if (set != 0 || !key.IsOpen()) {
        std::abort();
    }
    // Names and values from the text itself, without what a value can't hold.
    const std::string_view name = text.substr(0, std::min<std::size_t>(text.find('\n'), 40));
    const std::string_view value = text.substr(size / 2, 200);
    if (text.find('\0') == std::string_view::npos && !name.empty()) {
        key.SetValue(name, value);
        if (key.GetValue(name) != value) {
            std::abort();
        }
    }
    return 0;
}
