#include "water/Neighbours.h"

#include <cmath>
#include <cstring>
#include <span>

namespace {

/// Two particles closer than this have no direction to be pushed apart in.
constexpr float nearZeroDistance = 0.00001f;

/// The lanes whose bits are set, moved to the front.
struct Selection {
    Int4 lanes;
    std::size_t count;
};
constexpr Selection selections[16] = {
    {{}, 0},     {{0}, 1},       {{1}, 1},       {{0, 1}, 2},     //
    {{2}, 1},    {{0, 2}, 2},    {{1, 2}, 2},    {{0, 1, 2}, 3},  //
    {{3}, 1},    {{0, 3}, 2},    {{1, 3}, 2},    {{0, 1, 3}, 3},  //
    {{2, 3}, 2}, {{0, 2, 3}, 3}, {{1, 2, 3}, 3}, {{0, 1, 2, 3}, 4}};

/// Collects who of a cell touches the position, four at a time and without a branch that hangs on
/// it, since such a branch is foretold wrongly as often as not: a third less time in dense water.
class TouchFinder {
public:
    TouchFinder(const ParticleGrid& from, Vector2 position, std::uint32_t* list)
        : grid(from), x(position.x), y(position.y), touching(list) {}

    void Visit(const ParticleGrid::Cell& cell) {
        for (std::uint32_t slot = cell.begin; slot < cell.end; slot += 4) {
            VisitFour(slot, cell.end);
        }
    }
    std::size_t Count() const { return count; }

private:
    static Float4 Load(const float* from) {
        Float4 four;
        std::memcpy(&four, from, sizeof four);
        return four;
    }
    void VisitFour(std::uint32_t slot, std::uint32_t end) {
        const Float4 dx = x - Load(&grid.x[slot]);
        const Float4 dy = y - Load(&grid.y[slot]);
        const int left = static_cast<int>(end - slot);
        // The root of a float below 16 is below 4, so the squares decide; and so written, a
        // distance that is no number is no contact.
        const Int4 touches =
            (dx * dx + dy * dy < contactDistance * contactDistance) & (Int4{0, 1, 2, 3} < left);
        const Selection& selection = selections[LanesOf(touches)];
        const Int4 slots = static_cast<int>(slot) + selection.lanes;
        std::memcpy(touching + count, &slots, sizeof slots);
        count += selection.count;
    }

    const ParticleGrid& grid;
    const float x;
    const float y;
    std::uint32_t* touching;
    std::size_t count = 0;
};

/// Visits the particle's cell and the two columns beside it, each column from its middle row
/// down and then up, but not the cells right above and below: stacked particles let each other
/// through until one drifts aside.
std::span<const std::uint32_t> FindTouching(Vector2 position, const ParticleGrid::Cell* cell,
                                            WaterWorkspace& work) {
    constexpr int row = ParticleGrid::nextRow;
    constexpr int column = ParticleGrid::nextColumn;
    // Four are stored at a time.
    work.touching.resize(work.grid.x.size() + 4);
    TouchFinder finder(work.grid, position, work.touching.data());
    for (const int place :
         {0, -column, -column + row, -column - row, column, column + row, column - row}) {
        finder.Visit(cell[place]);
    }
    return {work.touching.data(), finder.Count()};
}

}  // namespace

Push MeetNeighbours(Motion& motion, const Particle& particle, WaterWorkspace& work) {
    const Vector2 position = motion.position;
    ParticleGrid& grid = work.grid;
    const auto touched = FindTouching(position, grid.At(particle.gridX, particle.gridY), work);
    if (touched.empty()) {
        return {};
    }
    // Contact mixes the two at once, so the order of pairs is part of the result.
    Float4 flow{motion.velocity.x, motion.velocity.y, motion.pushVelocity.x, motion.pushVelocity.y};
    float temperature = motion.temperature;
    Vector2 direction;
    float depth = 0.0f;
    int count = 0;
    for (const std::uint32_t slot : touched) {
        const Vector2 d = position - Vector2{grid.x[slot], grid.y[slot]};
        const float distance = Length(d);
        if (distance > nearZeroDistance) {
            direction += d / distance;
            depth += contactDistance - distance;
            ++count;
        }
        grid.flow[slot] = flow = (flow + grid.flow[slot]) * 0.5f;
        grid.temperature[slot] = temperature = (temperature + grid.temperature[slot]) * 0.5f;
    }
    motion.velocity = {flow[0], flow[1]};
    motion.pushVelocity = {flow[2], flow[3]};
    motion.temperature = temperature;
    if (count == 0) {
        return {};
    }
    direction /= static_cast<float>(count);
    Normalise(direction);
    return {direction, depth / static_cast<float>(count)};
}
