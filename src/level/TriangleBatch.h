#pragma once
// Textured triangles of polygons, gathered and sent to GL in one array. Textures tile across
// the level from the world's origin, one texel to a world unit, so that neighbouring polygons
// of one texture join without a seam.

#include <vector>

#include "level/LevelPolygon.h"

class TriangleBatch {
public:
    /// All triangles of the polygon, shifted by `offset`; the texture stays as it lies at rest.
    void Add(const LevelPolygon& polygon, Vector2 offset);
    /// Draws what was added with the texture that is bound, and empties the batch; its storage
    /// is kept.
    void Draw();

private:
    struct Vertex {
        float s, t, x, y;
    };
    std::vector<Vertex> vertices;
};
