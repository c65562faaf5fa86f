#include "water/Clusters.h"

#include <algorithm>
#include <cmath>

#include "platform/Assert.h"

namespace {

constexpr std::uint32_t noCluster = 0xFFFFFFFFu;
constexpr float linkSquared = Clusters::linkDistance * Clusters::linkDistance;

// The diagonal of a cell is 39.6, so all points of one cell are linked, with a margin that no
// rounding eats. Links reach two cells far.
constexpr double cellSize = 28.0;
constexpr std::int64_t reach = 2;

/// Squared distance from the point to the nearest place of a box, in the same arithmetic as
/// for two points. Rounding is monotonic: no point of the box comes out nearer than this.
float BoxDistanceSquared(Vector2 low, Vector2 high, Vector2 point) {
    const Vector2 nearest{std::clamp(point.x, low.x, high.x), std::clamp(point.y, low.y, high.y)};
    return DistanceSquared(nearest, point);
}

}  // namespace

std::span<const std::uint32_t> Clusters::Members(std::size_t cluster) const {
    VANTREL_ASSERT(cluster < clusterCount);
    const std::uint32_t begin = cluster == 0 ? 0 : memberEnd[cluster - 1];
    return {members.data() + begin, memberEnd[cluster] - begin};
}

void Clusters::Find(std::span<const Vector2> points) {
    clusterCount = 0;
    FillCells(points);
    clusterOf.resize(points.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
        std::uint32_t cluster = noCluster;
        // A point at no place (infinite or not a number) is linked with nothing.
        if (cellOf[i] != CellTable::none) {
            cluster = LowestLinked(cellOf[i], points[i]);
        }
        if (cluster == noCluster) {
            cluster = static_cast<std::uint32_t>(clusterCount++);
        }
        clusterOf[i] = cluster;
        if (cellOf[i] != CellTable::none) {
            Join(cells[cellOf[i]], points[i], cluster);
        }
    }
    CollectMembers(points.size());
}

/// Gives each point its cell, and each cell the room in `joined` that all its points take.
void Clusters::FillCells(std::span<const Vector2> points) {
    table.Reset(points.size());
    cells.clear();
    neighbours.clear();
    cellOf.resize(points.size());
    joined.resize(points.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
        const Vector2 point = points[i];
        if (!std::isfinite(point.x) || !std::isfinite(point.y)) {
            cellOf[i] = CellTable::none;
            continue;
        }
        cellOf[i] =
            table.FindOrAdd({CellOf(point.x, 1.0 / cellSize), CellOf(point.y, 1.0 / cellSize)});
        if (cellOf[i] == cells.size()) {
            cells.emplace_back();
        }
        ++cells[cellOf[i]].end;
    }
    std::uint32_t next = 0;
    for (Cell& cell : cells) {
        cell.begin = next;
        next += cell.end;
        cell.end = cell.begin;
        cell.lowest = noCluster;
    }
}

void Clusters::FindNeighbours(std::uint32_t cell) {
    const CellTable::Key key = table.KeyOf(cell);
    cells[cell].neighboursBegin = static_cast<std::uint32_t>(neighbours.size());
    for (std::int64_t y = key.y - reach; y <= key.y + reach; ++y) {
        for (std::int64_t x = key.x - reach; x <= key.x + reach; ++x) {
            const std::uint32_t other = table.Find({x, y});
            if (other != CellTable::none && other != cell) {
                neighbours.push_back(other);
            }
        }
    }
    cells[cell].neighboursEnd = static_cast<std::uint32_t>(neighbours.size());
    cells[cell].neighboursKnown = true;
}

/// The lowest cluster among the points met so far that the point is linked with.
std::uint32_t Clusters::LowestLinked(std::uint32_t cell, Vector2 point) {
    std::uint32_t lowest = cells[cell].lowest;
    if (lowest == 0) {
        return lowest;
    }
    if (!cells[cell].neighboursKnown) {
        FindNeighbours(cell);
    }
    for (std::uint32_t n = cells[cell].neighboursBegin; n < cells[cell].neighboursEnd; ++n) {
        const Cell& other = cells[neighbours[n]];
        if (other.lowest >= lowest ||
            BoxDistanceSquared(other.low, other.high, point) > linkSquared) {
            continue;
        }
        // Within a cell clusters only fall in time, so the first hit from the end is the lowest.
        for (std::uint32_t j = other.end; j > other.begin && joined[j - 1].cluster < lowest; --j) {
            if (DistanceSquared(joined[j - 1].point, point) <= linkSquared) {
                lowest = joined[j - 1].cluster;
            }
        }
    }
    return lowest;
}

void Clusters::Join(Cell& cell, Vector2 point, std::uint32_t cluster) {
    if (cell.end == cell.begin) {
        cell.low = cell.high = point;
    }
    cell.low = {std::min(cell.low.x, point.x), std::min(cell.low.y, point.y)};
    cell.high = {std::max(cell.high.x, point.x), std::max(cell.high.y, point.y)};
    cell.lowest = cluster;
    joined[cell.end++] = {point, cluster};
}

/// Sorts the points by cluster, in order within each.
void Clusters::CollectMembers(std::size_t pointCount) {
    memberEnd.assign(clusterCount + 1, 0);
    for (const std::uint32_t cluster : clusterOf) {
        ++memberEnd[cluster + 1];
    }
    for (std::size_t c = 1; c <= clusterCount; ++c) {
        memberEnd[c] += memberEnd[c - 1];
    }
    members.resize(pointCount);
    for (std::uint32_t i = 0; i < pointCount; ++i) {
        members[memberEnd[clusterOf[i]]++] = i;
    }
}
