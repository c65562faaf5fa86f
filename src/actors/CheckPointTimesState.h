#pragma once
// What CheckPointTimesManager.cpp shares with its drawing.

#include <optional>

#include "engine/Timer.h"
#include "graphics/Texture.h"

namespace CheckPointTimesManager {

extern std::optional<Texture> font;
extern Timer frameTimer;  ///< since the last frame

}  // namespace CheckPointTimesManager
