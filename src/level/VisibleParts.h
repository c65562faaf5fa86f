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
    /// Appends corners, three for each triangle, of what shows of an entry. A triangle that
    /// nothing hides comes as it is. Pieces of others overlap each other and their triangle's
    /// sides by a hair, so that no gap can show; they are made of opaque entries only.
    void AppendTriangles(std::size_t index, std::vector<Vector2>& corners) const;

private:
    struct Box {
        float left, top, right, bottom;
    };
    /// Whole numbers of cells, the last ones included.
    struct CellRange {
        int left, top, right, bottom;
    };

    void Cover(int index);
    bool IsHidden(int x, int y, int index) const;
    CellRange CellsOf(const Box& box) const;
    Box BoxOf(const CellRange& cells) const;
    void AppendPieces(int index, const Vector2* triangle, std::vector<Vector2>& corners) const;

    std::span<const Entry> entries;
    Vector2 origin;
    float cellSize = 0.0f;
    int columns = 0;
    int rows = 0;
    /// For each cell the last entry that covers all of it; -1 for none. Empty if the level is
    /// too odd to be cut: then everything shows.
    std::vector<int> lastCover;
};
