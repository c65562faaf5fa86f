#include "BoxTree.h"

#include <algorithm>
#include <numeric>

Box Box::Round(std::span<const LevelFile::Point> points) {
    const auto [left, right] = std::ranges::minmax(points, {}, &LevelFile::Point::x);
    const auto [top, bottom] = std::ranges::minmax(points, {}, &LevelFile::Point::y);
    return {static_cast<double>(left.x), static_cast<double>(top.y), static_cast<double>(right.x),
            static_cast<double>(bottom.y)};
}

BoxTree::BoxTree(std::vector<Box> boxes) : leaves(std::move(boxes)), order(leaves.size()) {
    std::iota(order.begin(), order.end(), std::size_t{0});
    if (!leaves.empty()) {
        Build(0, 0, order.size());
    }
}

void BoxTree::Build(std::size_t node, std::size_t first, std::size_t last) {
    Box bound = leaves[order[first]];
    for (std::size_t i = first; i < last; ++i) {
        const Box& box = leaves[order[i]];
        bound = {std::min(bound.left, box.left), std::min(bound.top, box.top),
                 std::max(bound.right, box.right), std::max(bound.bottom, box.bottom)};
    }
    bounds.resize(std::max(bounds.size(), node + 1));
    bounds[node] = bound;
    if (last - first <= leafSize) {
        return;
    }
    const bool isWide = bound.right - bound.left > bound.bottom - bound.top;
    const auto middleOf = [&](std::size_t number) {
        const Box& box = leaves[number];
        return isWide ? box.left + box.right : box.top + box.bottom;
    };
    const std::size_t half = first + (last - first) / 2;
    const auto at = [&](std::size_t i) { return order.begin() + static_cast<std::ptrdiff_t>(i); };
    std::nth_element(at(first), at(half), at(last),
                     [&](std::size_t a, std::size_t b) { return middleOf(a) < middleOf(b); });
    Build(2 * node + 1, first, half);
    Build(2 * node + 2, half, last);
}

void BoxTree::Find(const Box& box, std::vector<std::size_t>& hits) const {
    struct Part {
        std::size_t node, first, last;
    };
    hits.clear();
    std::vector<Part> open = {{0, 0, order.size()}};
    while (!open.empty() && !order.empty()) {
        const Part part = open.back();
        open.pop_back();
        if (!bounds[part.node].Meets(box)) {
            continue;
        }
        if (part.last - part.first > leafSize) {
            const std::size_t half = part.first + (part.last - part.first) / 2;
            open.push_back({2 * part.node + 1, part.first, half});
            open.push_back({2 * part.node + 2, half, part.last});
            continue;
        }
        for (std::size_t i = part.first; i < part.last; ++i) {
            if (leaves[order[i]].Meets(box)) {
                hits.push_back(order[i]);
            }
        }
    }
    std::ranges::sort(hits);
}
