#pragma once
// Which parts of the level's fixed polygons can be seen at all. Layers are drawn from back to
// front, and most of a far wall lies under nearer rock; where pixels are filled by the
// processor, filling only what shows about halves the cost of a frame.

#include <span>
#include <vector>

#include "engine/Vector2.h"
#include "level/LevelPolygon.h"

class VisibleParts {
public:
    struct Entry {
        const LevelPolygon* polygon = nullptr;
        bool opaque = false;  ///< its texture lets nothing through
    };

    /// Takes the polygons in the order in which they are drawn; the span is only read here
    /// and in AppendTriangles.
    explicit VisibleParts(std::span<const Entry> drawn);
    /// Appends corners, three for each triangle, of what shows of an entry. A polygon that
    /// nothing hides comes as it is. Pieces of others reach over their outline and each other
    /// by a hair, so that no gap can show; they are made of opaque entries only.
    void AppendTriangles(std::size_t index, std::vector<Vector2>& corners);

private:
    struct Box {
        float left, top, right, bottom;
    };
    static bool Meets(const Box& a, const Box& b);
    std::vector<std::size_t> HidersOf(std::size_t index) const;
    bool MayCut(std::size_t index, const std::vector<std::size_t>& hiders);

    std::span<const Entry> entries;
    std::vector<std::vector<Vector2>> outlines;  ///< of the entries, as they are drawn
    std::vector<Box> boxes;  ///< of the entries; of negative width if it neither hides nor is cut
    std::size_t crossingsLeft;  ///< that may still be looked at
};
