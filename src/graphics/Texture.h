#pragma once
// A value handle on a cached texture. Handles of one name, in any case, share one texture
// object. A handle never fails: a missing image shows an embedded one, then a checkerboard.
//
// Text drawing is in TextureDraw.cpp and binding in GL is by `glName`.

#include <compare>
#include <cstdint>
#include <string>
#include <vector>

#include "engine/Colour.h"

class Texture {
public:
    /// The texture that says that none was named.
    Texture();
    /// `resourceName` is the embedded image to fall back on; null or empty for none.
    Texture(std::string name, const char* resourceName);
    Texture(const Texture& other);
    Texture& operator=(const Texture& other);
    ~Texture();

    /// Goes over to another image; nothing happens if the name is the same.
    void SetName(const std::string& newName);
    /// Assignment unless both share a texture object already.
    void AssignIfDifferent(const Texture& other);

    friend bool operator==(const Texture& a, const Texture& b) { return a.glName == b.glName; }
    friend auto operator<=>(const Texture& a, const Texture& b) { return a.glName <=> b.glName; }

    /// Draws bytes as cells of a 16 by 16 font sheet, from the pen position on; a line feed
    /// starts a new line. `size` is cell width, cell height and advance.
    void DrawText(const char* text, float x, float y, float size, const Colour& colour) const;
    /// The same, centred in a box; for single lines.
    void DrawTextCentred(const char* text, float x, float y, float w, float h, float size,
                         const Colour& colour) const;

    // Copies taken when the handle was made; `glName` stays right over reloads.
    std::uint32_t width = 0;  ///< source pixels
    std::uint32_t height = 0;
    std::uint32_t glName = 0;
    bool hasAlpha = false;
    std::string name;

private:
    void Acquire(const char* resourceName);
    void Release();

    std::uint32_t generation = 0;  ///< of the cache, when this reference was counted
};

/// The pictures of a name with "_FRAME", one for each file that differs in what stands behind it,
/// ascending; a name without, or without files, gives the one picture of that name. A missing one
/// shows "DEFAULT_SPRITE".
std::vector<Texture> LoadFrames(const std::string& name);
