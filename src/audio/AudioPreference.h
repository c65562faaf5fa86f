#pragma once
// The player's switches for sound and music, as the preference store keeps them.

#include <optional>
#include <string_view>

/// Whether the preference ("Sound" or "Music") is on; none if it isn't there as a number.
std::optional<bool> AudioPreference(std::string_view name);
