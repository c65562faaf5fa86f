// Rasterises the static edges and floods what lies between them; see LeakSpace.h.

#include "LeakSpace.h"

#include <algorithm>
#include <cmath>

#include "actors/TriggerManager.h"
#include "level/BspTree.h"
#include "level/LevelData.h"

namespace {

/// Edges that hold water for as long as the level runs.
std::vector<const BspSegment*> LastingEdges() {
    std::vector<BspSegment*> nodes;
    BspTree::CollectNodes(nodes);
    std::erase_if(nodes, [](const BspSegment* node) { return node->polygon->toggledByTrigger; });
    return {nodes.begin(), nodes.end()};
}

float DistanceTo(const BspSegment& edge, Vector2 place) {
    const float along = std::clamp(Dot(place - edge.start, edge.direction), 0.0f, edge.length);
    return Distance(edge.start + edge.direction * along, place);
}

}  // namespace

LeakSpace::LeakSpace() {
    Measure();
    cells.assign(columns * rows, Outside);
    DrawKills();
    DrawEdges();
    SpreadFromStart();
    // Three cells straight or aslant: edges are a cell or two in front of that, so that what
    // lies beyond is deeper in a solid than a drop's radius.
    Widen(false);
    Widen(true);
    Widen(false);
}

void LeakSpace::Measure() {
    Vector2 low = LevelData::waterStart;
    Vector2 high = LevelData::waterStart;
    for (const BspSegment* const edge : LastingEdges()) {
        low = {std::min({low.x, edge->start.x, edge->end.x}),
               std::min({low.y, edge->start.y, edge->end.y})};
        high = {std::max({high.x, edge->start.x, edge->end.x}),
                std::max({high.y, edge->start.y, edge->end.y})};
    }
    const double width = double{high.x} - low.x;
    const double height = double{high.y} - low.y;
    cellSize = static_cast<float>(std::max(
        {1.0, std::sqrt(width * height / mostCells), width / mostCells, height / mostCells}));
    // A way all round, by which it shows whether the level is open.
    constexpr float border = 4.0f;
    origin = low - Vector2{border, border} * cellSize;
    columns = static_cast<std::size_t>(width / double{cellSize} + 2.0 * double{border}) + 1;
    rows = static_cast<std::size_t>(height / double{cellSize} + 2.0 * double{border}) + 1;
}

Vector2 LeakSpace::Centre(std::size_t column, std::size_t row) const {
    return origin + Vector2{(static_cast<float>(column) + 0.5f) * cellSize,
                            (static_cast<float>(row) + 0.5f) * cellSize};
}

std::size_t LeakSpace::ColumnOf(float x) const {
    return static_cast<std::size_t>(
        std::clamp((x - origin.x) / cellSize, 0.0f, static_cast<float>(columns - 1)));
}

std::size_t LeakSpace::RowOf(float y) const {
    return static_cast<std::size_t>(
        std::clamp((y - origin.y) / cellSize, 0.0f, static_cast<float>(rows - 1)));
}

template <class Each>
void LeakSpace::ForCellsIn(Vector2 low, Vector2 high, Each each) {
    for (std::size_t row = RowOf(low.y); row <= RowOf(high.y); ++row) {
        for (std::size_t column = ColumnOf(low.x); column <= ColumnOf(high.x); ++column) {
            each(cells[row * columns + column], Centre(column, row));
        }
    }
}

void LeakSpace::DrawKills() {
    for (const Trigger& trigger : TriggerManager::triggers) {
        if (trigger.Kind() == TriggerKind::Kill) {
            ForCellsIn({trigger.minX, trigger.minY}, {trigger.maxX, trigger.maxY},
                       [&](std::uint8_t& cell, Vector2 place) {
                           cell = trigger.Contains(place) ? std::uint8_t{Deadly} : cell;
                       });
        }
    }
}

/// Thick enough that no straight step leads through.
void LeakSpace::DrawEdges() {
    const float thickness = 0.75f * cellSize;
    // Piece by piece, or the box of a long edge aslant would be most of the level.
    const float longestPiece = 50.0f * cellSize;
    const Vector2 margin{cellSize, cellSize};
    for (const BspSegment* const edge : LastingEdges()) {
        for (float at = 0.0f; at < edge->length; at += longestPiece) {
            const Vector2 a = edge->start + edge->direction * at;
            const Vector2 b =
                edge->start + edge->direction * std::min(at + longestPiece, edge->length);
            ForCellsIn(Vector2{std::min(a.x, b.x), std::min(a.y, b.y)} - margin,
                       Vector2{std::max(a.x, b.x), std::max(a.y, b.y)} + margin,
                       [&](std::uint8_t& cell, Vector2 place) {
                           cell = DistanceTo(*edge, place) <= thickness ? std::uint8_t{Edge} : cell;
                       });
        }
    }
}

/// Where it is deadly water gets as far as it falls before it fades away, and no further.
void LeakSpace::SpreadFromStart() {
    std::vector<std::size_t> open;
    std::uint8_t from = Reached;
    const auto enter = [&](std::size_t index) {
        std::uint8_t& cell = cells[index];
        if (cell == Deadly || (cell == Outside && from == Reached)) {
            cell = cell == Deadly ? Dying : Reached;
            open.push_back(index);
        }
    };
    enter(RowOf(LevelData::waterStart.y) * columns + ColumnOf(LevelData::waterStart.x));
    while (!open.empty()) {
        const std::size_t index = open.back();
        open.pop_back();
        from = cells[index];
        const std::size_t column = index % columns;
        if (column > 0) {
            enter(index - 1);
        }
        if (column + 1 < columns) {
            enter(index + 1);
        }
        if (index >= columns) {
            enter(index - columns);
        }
        if (index + columns < cells.size()) {
            enter(index + columns);
        }
    }
    std::ranges::replace(cells, std::uint8_t{Deadly}, std::uint8_t{Outside});
    std::ranges::replace(cells, std::uint8_t{Dying}, std::uint8_t{Reached});
    isOpen = cells.front() == Reached;
}

/// What neighbours a reached cell counts as reached.
void LeakSpace::Widen(bool aslant) {
    const auto isReached = [&](std::size_t column, std::size_t row) {
        return column < columns && row < rows && cells[row * columns + column] == Reached;
    };
    for (std::size_t row = 0; row < rows; ++row) {
        for (std::size_t column = 0; column < columns; ++column) {
            std::uint8_t& cell = cells[row * columns + column];
            // Minus one beyond the border is a huge number.
            const bool isStraight = isReached(column - 1, row) || isReached(column + 1, row) ||
                                    isReached(column, row - 1) || isReached(column, row + 1);
            const bool isAslant =
                aslant && (isReached(column - 1, row - 1) || isReached(column + 1, row - 1) ||
                           isReached(column - 1, row + 1) || isReached(column + 1, row + 1));
            if (cell != Reached && (isStraight || isAslant)) {
                cell = Near;
            }
        }
    }
    std::ranges::replace(cells, std::uint8_t{Near}, std::uint8_t{Reached});
}

bool LeakSpace::IsOutside(Vector2 place) const {
    const Vector2 at = (place - origin) / cellSize;
    if (at.x < 0.0f || at.y < 0.0f || at.x >= static_cast<float>(columns) ||
        at.y >= static_cast<float>(rows)) {
        return !isOpen;
    }
    return cells[RowOf(place.y) * columns + ColumnOf(place.x)] != Reached;
}

bool LeakSpace::LeadsOutside(Vector2 a, Vector2 b) const {
    const int parts = 1 + static_cast<int>(Distance(a, b) / cellSize);
    for (int i = 0; i <= parts; ++i) {
        if (IsOutside(a + (b - a) * (static_cast<float>(i) / static_cast<float>(parts)))) {
            return true;
        }
    }
    return false;
}
