#include "level/BspSideCounter.h"

#include "platform/Assert.h"

void BspSideCounter::Assign(std::span<const BspSegment> edges,
                            std::span<const std::uint32_t> indices) {
    for (auto* array : {&startX, &startY, &endX, &endY}) {
        array->clear();
    }
    for (const std::uint32_t index : indices) {
        VANTREL_ASSERT(index < edges.size());
        startX.push_back(edges[index].start.x);
        startY.push_back(edges[index].start.y);
        endX.push_back(edges[index].end.x);
        endY.push_back(edges[index].end.y);
    }
}

BspSideTally BspSideCounter::Count(const BspSegment& splitter) const {
    const Vector2 origin = splitter.start;
    const Vector2 normal = splitter.normal;
    const float* sx = startX.data();
    const float* sy = startY.data();
    const float* ex = endX.data();
    const float* ey = endY.data();
    const std::size_t count = startX.size();
    int endsBehind = 0;
    int crossings = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const float d1 = (sx[i] - origin.x) * normal.x + (sy[i] - origin.y) * normal.y;
        const float d2 = (ex[i] - origin.x) * normal.x + (ey[i] - origin.y) * normal.y;
        const int behind1 = d1 < 0.0f;
        const int behind2 = d2 < 0.0f;
        endsBehind += behind1 + behind2;
        crossings += behind1 ^ behind2;
    }
    return {endsBehind, crossings};
}
