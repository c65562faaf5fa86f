// Any bytes are a cfg text: parsing and every getter come through.

#include "engine/ConfigFile.h"
#include "engine/Text.h"
#include "fuzz/Harness.h"

void Try(std::string_view input) {
    ConfigFile config;
    config.Parse(input, "fuzz");
    for (const std::string& key : SplitWords(input)) {
        config.GetInt(key);
        config.GetBool(key);
        config.GetFloat(key);
        config.GetString(key);
    }
}
