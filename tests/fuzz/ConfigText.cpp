// Any bytes are a cfg text: parsing and every getter come through.

#include <cstddef>
#include <cstdint>

#include "engine/ConfigFile.h"
#include "engine/Text.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    ConfigFile config;
    config.Parse(text, "fuzz");
    for (const std::string& key : SplitWords(text)) {
        config.GetInt(key);
        config.GetBool(key);
        config.GetFloat(key);
        config.GetString(key);
    }
    return 0;
}
