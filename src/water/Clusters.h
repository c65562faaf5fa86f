#pragma once
// Finds the connected bodies of water for cohesion. The rule: the first point that is left
// starts a cluster, and one sweep over the points after it, in order, adds each that is within
// the link distance of any point already in the cluster; then the same again with what is
// left. A point passed over isn't reconsidered in that sweep.
//
// Done that way the work is quadratic. Here all sweeps run at once: point i belongs to the
// lowest-numbered cluster that has a linked point before i, or starts a new one. That is the
// same, since sweep k sees exactly the points that no earlier sweep took. Links are looked up
// in cells so small that all points of one cell are linked.

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "engine/Vector2.h"
#include "water/CellTable.h"

class Clusters {
public:
    /// Points no further apart than this are linked, world units.
    static constexpr float linkDistance = 40.0f;

    /// Replaces the clusters by those of these points.
    void Find(std::span<const Vector2> points);
    std::size_t Count() const { return clusterCount; }
    /// Indices into the points, in the order in which they joined. Clusters are in the order
    /// of their first points.
    std::span<const std::uint32_t> Members(std::size_t cluster) const;

private:
    struct Cell {
        std::uint32_t begin = 0;   ///< first of its points in `joined`
        std::uint32_t end = 0;     ///< behind the last that the sweep has met
        std::uint32_t lowest = 0;  ///< lowest cluster among them, the last one's
        Vector2 low, high;         ///< box round them
        std::uint32_t neighboursBegin = 0;
        std::uint32_t neighboursEnd = 0;
        bool neighboursKnown = false;
    };
    struct Joined {
        Vector2 point;
        std::uint32_t cluster;
    };

    void FillCells(std::span<const Vector2> points);
    void FindNeighbours(std::uint32_t cell);
    std::uint32_t LowestLinked(std::uint32_t cell, Vector2 point);
    void Join(Cell& cell, Vector2 point, std::uint32_t cluster);
    void CollectMembers(std::size_t pointCount);

    CellTable table;
    std::vector<Cell> cells;
    std::vector<std::uint32_t> neighbours;  ///< per cell, the other cells that may hold links
    std::vector<Joined> joined;             ///< by cell, and in order within a cell
    std::vector<std::uint32_t> cellOf;      ///< per point
    std::vector<std::uint32_t> clusterOf;   ///< per point
    std::vector<std::uint32_t> members;     ///< by cluster, and in order within a cluster
    std::vector<std::uint32_t> memberEnd;   ///< per cluster
    std::size_t clusterCount = 0;
};
