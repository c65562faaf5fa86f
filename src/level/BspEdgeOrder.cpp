#include "level/BspEdgeOrder.h"

#include <algorithm>

void BspEdgeOrder::Sort(std::span<Item> items, std::size_t room, std::size_t leafSize) {
    if (room <= leafSize || items.size() <= leafSize) {
        return;
    }
    BspEdgeReach whole;
    for (const Item& item : items) {
        whole.Include(item.reach);
    }
    const bool byX = whole.maxX - whole.minX > whole.maxY - whole.minY;
    const auto centre = [byX](const Item& item) {
        return byX ? item.reach.minX + item.reach.maxX : item.reach.minY + item.reach.maxY;
    };
    const std::size_t middle = std::min(items.size(), room / 2);
    std::nth_element(items.begin(), items.begin() + static_cast<std::ptrdiff_t>(middle),
                     items.end(),
                     [&](const Item& a, const Item& b) { return centre(a) < centre(b); });
    Sort(items.first(middle), room / 2, leafSize);
    Sort(items.subspan(middle), room / 2, leafSize);
}
