#pragma once
// What the pixels of the world are made of. The fixed pipeline divides each pixel's texture
// coordinates by one that is always 1, and computes an alpha that opaque textures don't need;
// small programs leave that out and give the same pixels. A software renderer draws a frame in
// about 0.95 of the time. Without programs the fixed pipeline does it all.

namespace Texturing {

enum class Source {
    Texture,        ///< the texture alone, whatever the vertices' colour
    OpaqueTexture,  ///< the same, for a texture that lets nothing through
    Tinted,         ///< the texture times the vertices' colour
};

/// Prepares the programs in the current context and those that share with it.
void Initialise();
void Shutdown();

/// For what is drawn from here to End. Both may be compiled into a display list.
void Begin(Source source);
/// Back to the fixed pipeline, which multiplies texture and colour.
void End();

}  // namespace Texturing
