#pragma once
// The loaded level as a grid that water flows through: which steps between neighbouring cells
// are open, which are barred by a switch that is off, and what carries water upwards.

#include <cstdint>
#include <vector>

#include "Switches.h"
#include "engine/Vector2.h"

class FlowSpace {
public:
    static constexpr float cellSize = 10.0f;
    static constexpr int directions = 8;
    static constexpr float leastPrice = 10.0f;
    /// What bars a step, or carries: nothing; always; else a switch's index + 1.
    using Bar = std::uint8_t;
    static constexpr Bar nothing = 0;
    static constexpr Bar always = 255;

    /// Reads the loaded level. Switches are collected before.
    FlowSpace();

    int Width() const { return width; }
    int Height() const { return height; }
    std::size_t CellCount() const { return bars.size() / directions; }
    std::size_t CellAt(Vector2 place) const;
    Vector2 Centre(std::size_t cell) const;
    /// The neighbour's cell; CellCount() beyond the border.
    std::size_t Neighbour(std::size_t cell, int direction) const;
    Bar BarOf(std::size_t cell, int direction) const {
        return bars[cell * directions + Index(direction)];
    }
    /// Price of a step in world units, where nothing bars it, at least `leastPrice`; `carried`:
    /// something lifts.
    float Price(std::size_t from, int direction, bool carried) const;
    /// What carries water against gravity here.
    Bar LiftAt(std::size_t cell) const { return lifts[cell]; }
    const std::vector<std::size_t>& Finish() const { return finish; }
    /// Cells in the openers of switch `index`.
    const std::vector<std::size_t>& Openers(std::size_t index) const { return openers[index]; }

private:
    static std::size_t Index(int direction) { return static_cast<std::size_t>(direction); }
    void Measure();
    void BarSolids();
    void BarWalls();
    void BarKills();
    void BarSwitches();
    void LiftByForces();
    void LiftByMovers();
    void LiftBySteam();
    void FindGround();
    void CollectAreas();
    void BarCell(std::size_t cell, Bar bar);
    template <class Each>
    void ForCellsIn(float minX, float minY, float maxX, float maxY, Each each) const;
    std::vector<std::size_t> CellsIn(const Trigger& trigger) const;

    Vector2 origin;
    int width = 0;
    int height = 0;
    std::vector<Bar> bars;
    std::vector<Bar> lifts;
    std::vector<std::uint8_t> closed;    ///< inside of something solid
    std::vector<std::uint8_t> grounded;  ///< something to flow on is near below
    std::vector<std::size_t> finish;
    std::vector<std::vector<std::size_t>> openers;
};
