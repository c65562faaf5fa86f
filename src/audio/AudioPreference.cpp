// Reading a switch of the preference store.

#include "audio/AudioPreference.h"

#include <cmath>
#include <string>

#include "engine/PreferenceStore.h"
#include "engine/Text.h"

std::optional<bool> AudioPreference(std::string_view name) {
    const std::string text = PreferenceStore::OpenKey(preferencesPath).GetValue(name);
    if (text.empty() || !IsNumber(text)) {
        return std::nullopt;
    }
    return std::fabs(ToNumber(text)) >= 1.0f;  // its whole part counts
}
