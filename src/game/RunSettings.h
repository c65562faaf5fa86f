#pragma once
// The settings that the steps of a level depend on, as one number: a run that was recorded under
// others goes another way. What is only shown or heard doesn't count, nor does what shapes the
// player's turns, which a run holds.

#include <cstdint>
#include <string>

#include "platform/Paths.h"

/// CRC-32 over the values, as they are read now; how a file is laid out makes no difference.
/// `source` is who names the level, whose emitters name settings files of their own.
std::uint32_t SettingsChecksum(const std::string& levelName, Platform::NameSource source);
