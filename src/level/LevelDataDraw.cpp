// The level's debug views.

#include "level/BspTree.h"
#include "level/LevelData.h"

void LevelData::Draw() {
    BspTree::DrawDebug();
    if (!drawTriangles) {
        return;
    }
    for (const LevelPolygon& polygon : polygons) {
        polygon.DrawWireframe(StateOf(polygon).offset);
    }
}
