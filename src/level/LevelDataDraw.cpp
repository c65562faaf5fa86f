// The level's debug views.

#include "level/BspTree.h"
#include "level/LevelData.h"

namespace LevelData {

void Draw() {
    BspTree::DrawDebug();
    if (!drawTriangles) {
        return;
    }
    for (const LevelPolygon& polygon : polygons) {
        polygon.DrawWireframe();
    }
}

}  // namespace LevelData
