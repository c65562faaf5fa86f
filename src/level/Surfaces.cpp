// The table of surface frictions that level polygons take theirs from.

#include "level/Surfaces.h"

#include "engine/ConfigFile.h"
#include "engine/Vector2.h"

namespace {

constexpr int surfaceCount = 5;
constexpr const char* keys[surfaceCount] = {"surfaceFriction_metal", "surfaceFriction_wood",
                                            "surfaceFriction_stone", "surfaceFriction_cloth",
                                            "surfaceFriction_sand"};

float frictions[surfaceCount];

}  // namespace

void ReadSurfaces() {
    const ConfigFile config("cfg\\surfaces.cfg");
    for (int i = 0; i < surfaceCount; ++i) {
        frictions[i] = config.GetFloat(keys[i]);
        Clamp(frictions[i], 0.0f, 1.0f);
    }
}

bool IsValidSurface(int surface) {
    return surface >= 1 && surface <= surfaceCount;
}

float SurfaceFriction(int surface) {
    return IsValidSurface(surface) ? frictions[surface - 1] : 1.0f;
}
