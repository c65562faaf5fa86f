// Rasterises the loaded level; see FlowSpace.h.

#include "FlowSpace.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <deque>

#include "actors/ForceManager.h"
#include "actors/MoverManager.h"
#include "actors/TriggerManager.h"
#include "engine/Geometry.h"
#include "level/BspTree.h"
#include "level/LevelData.h"

namespace {

constexpr std::array<int, FlowSpace::directions> stepX{0, 1, 1, 1, 0, -1, -1, -1};
constexpr std::array<int, FlowSpace::directions> stepY{1, 1, 0, -1, -1, -1, 0, 1};

// Price of ten units by direction: down, down aslant, along, up aslant, straight up. Water
// runs up a slope that a tilt turns into a descent; straight up, and in the air, it only
// splashes.
constexpr std::array<float, FlowSpace::directions> plainPrice{10, 14, 12, 40, 150, 40, 12, 14};
constexpr float inAirPrice = 180;
constexpr std::array<float, FlowSpace::directions> carriedPrice{10, 14, 10, 14, 10, 14, 10, 14};

/// Even-odd test against the outline.
bool IsInside(const LevelPolygon& polygon, Vector2 place) {
    bool inside = false;
    for (std::size_t i = 0, j = polygon.PointCount() - 1; i < polygon.PointCount(); j = i++) {
        const Vector2 a = polygon.Point(i);
        const Vector2 b = polygon.Point(j);
        if ((a.y > place.y) != (b.y > place.y) &&
            place.x < (b.x - a.x) * (place.y - a.y) / (b.y - a.y) + a.x) {
            inside = !inside;
        }
    }
    return inside;
}

struct Box {
    float minX, minY, maxX, maxY;
};

Box BoxOf(const LevelPolygon& polygon) {
    const auto [left, right] = std::minmax_element(polygon.pointsX.begin(), polygon.pointsX.end());
    const auto [top, bottom] = std::minmax_element(polygon.pointsY.begin(), polygon.pointsY.end());
    return {*left, *top, *right, *bottom};
}

/// Static edges of polygons that a trigger can take out are left aside while a wall is looked
/// for; a gate isn't a wall.
class GatesOpen {
public:
    GatesOpen() {
        for (const auto& [polygon, segments] : LevelData::polygonSegments) {
            for (const BspSegment* const segment : segments) {
                if (polygon->toggledByTrigger != 0) {
                    LevelData::current.segmentsCollide[BspTree::NumberOf(*segment)] = 0;
                }
            }
        }
    }
    ~GatesOpen() { LevelData::current.segmentsCollide = before; }
    GatesOpen(const GatesOpen&) = delete;
    GatesOpen& operator=(const GatesOpen&) = delete;

private:
    const std::vector<std::uint8_t> before = LevelData::current.segmentsCollide;
};

bool IsGate(const LevelPolygon& polygon) {
    return polygon.toggledByTrigger != 0 || polygon.movedByMover != 0;
}

}  // namespace

float FlowSpace::Price(std::size_t from, int direction, bool carried) const {
    if (carried) {
        return carriedPrice[Index(direction)];
    }
    const bool climbs = stepY[Index(direction)] < 0;
    return climbs && grounded[from] == 0 ? inAirPrice : plainPrice[Index(direction)];
}

FlowSpace::FlowSpace() {
    Measure();
    const auto cells = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    bars.assign(cells * directions, nothing);
    lifts.assign(cells, nothing);
    closed.assign(cells, 0);
    BarSolids();
    BarWalls();
    BarKills();
    BarSwitches();
    LiftByForces();
    LiftByMovers();
    LiftBySteam();
    FindGround();
    CollectAreas();
}

void FlowSpace::Measure() {
    Vector2 low = LevelData::waterStart;
    Vector2 high = LevelData::waterStart;
    const auto include = [&](float minX, float minY, float maxX, float maxY) {
        low = {std::min(low.x, minX), std::min(low.y, minY)};
        high = {std::max(high.x, maxX), std::max(high.y, maxY)};
    };
    for (const LevelPolygon& polygon : LevelData::polygons) {
        if (polygon.solid != 0 && polygon.PointCount() > 0) {
            const Box box = BoxOf(polygon);
            include(box.minX, box.minY, box.maxX, box.maxY);
        }
    }
    for (const Trigger& trigger : TriggerManager::triggers) {
        include(trigger.minX, trigger.minY, trigger.maxX, trigger.maxY);
    }
    // Beyond this a level is a mistake; what lies there counts as the border.
    constexpr float most = 8000.0f;
    high = {std::min(high.x, low.x + most), std::min(high.y, low.y + most)};
    origin = low - Vector2{cellSize, cellSize};
    width = static_cast<int>((high.x - low.x) / cellSize) + 3;
    height = static_cast<int>((high.y - low.y) / cellSize) + 3;
}

Vector2 FlowSpace::Centre(std::size_t cell) const {
    const auto columns = static_cast<std::size_t>(width);
    const std::size_t column = cell % columns;
    const std::size_t row = cell / columns;
    return origin + Vector2{(static_cast<float>(column) + 0.5f) * cellSize,
                            (static_cast<float>(row) + 0.5f) * cellSize};
}

std::size_t FlowSpace::CellAt(Vector2 place) const {
    const Vector2 at = (place - origin) / cellSize;
    const float x = std::clamp(at.x, 0.0f, static_cast<float>(width - 1));
    const float y = std::clamp(at.y, 0.0f, static_cast<float>(height - 1));
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
           static_cast<std::size_t>(x);
}

std::size_t FlowSpace::Neighbour(std::size_t cell, int direction) const {
    const int x =
        static_cast<int>(cell % static_cast<std::size_t>(width)) + stepX[Index(direction)];
    const int y =
        static_cast<int>(cell / static_cast<std::size_t>(width)) + stepY[Index(direction)];
    if (x < 0 || y < 0 || x >= width || y >= height) {
        return CellCount();
    }
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
           static_cast<std::size_t>(x);
}

template <class Each>
void FlowSpace::ForCellsIn(float minX, float minY, float maxX, float maxY, Each each) const {
    const std::size_t first = CellAt({minX, minY});
    const std::size_t last = CellAt({maxX, maxY});
    const auto columns = static_cast<std::size_t>(width);
    for (std::size_t y = first / columns; y <= last / columns; ++y) {
        for (std::size_t x = first % columns; x <= last % columns; ++x) {
            each(y * columns + x);
        }
    }
}

std::vector<std::size_t> FlowSpace::CellsIn(const Trigger& trigger) const {
    std::vector<std::size_t> cells;
    ForCellsIn(trigger.minX, trigger.minY, trigger.maxX, trigger.maxY, [&](std::size_t cell) {
        if (trigger.Contains(Centre(cell)) && closed[cell] == 0) {
            cells.push_back(cell);
        }
    });
    return cells;
}

/// Bars all ways into and out of the cell; what always bars stays.
void FlowSpace::BarCell(std::size_t cell, Bar bar) {
    for (int direction = 0; direction < directions; ++direction) {
        const std::size_t neighbour = Neighbour(cell, direction);
        Bar& out = bars[cell * directions + Index(direction)];
        out = std::max(out, bar);
        if (neighbour != CellCount()) {
            Bar& in = bars[neighbour * directions + Index((direction + 4) % directions)];
            in = std::max(in, bar);
        }
    }
}

void FlowSpace::BarSolids() {
    for (const LevelPolygon& polygon : LevelData::polygons) {
        if (polygon.solid == 0 || IsGate(polygon) || polygon.PointCount() < 3) {
            continue;
        }
        const Box box = BoxOf(polygon);
        ForCellsIn(box.minX, box.minY, box.maxX, box.maxY, [&](std::size_t cell) {
            if (closed[cell] == 0 && IsInside(polygon, Centre(cell))) {
                closed[cell] = 1;
                BarCell(cell, always);
            }
        });
    }
}

/// Walls that are thinner than a cell.
void FlowSpace::BarWalls() {
    const GatesOpen gatesOpen;
    for (std::size_t cell = 0; cell < CellCount(); ++cell) {
        for (int direction = 0; direction < directions; ++direction) {
            Bar& bar = bars[cell * directions + Index(direction)];
            const std::size_t neighbour = Neighbour(cell, direction);
            if (neighbour == CellCount()) {
                bar = always;
            } else if (bar == nothing) {
                Vector2 to = Centre(neighbour);
                bar = BspTree::CastRay(Centre(cell), to) != nullptr ? always : nothing;
            }
        }
    }
}

void FlowSpace::BarKills() {
    for (const Trigger& trigger : TriggerManager::triggers) {
        if (trigger.Kind() == TriggerKind::Kill) {
            for (const std::size_t cell : CellsIn(trigger)) {
                BarCell(cell, always);
            }
        }
    }
}

void FlowSpace::BarSwitches() {
    for (std::size_t i = 0; i < Switches::all.size(); ++i) {
        const auto bar = static_cast<Bar>(i + 1);
        for (const LevelPolygon* const polygon : Switches::all[i].polygons) {
            if (polygon->PointCount() < 3) {
                continue;
            }
            const Box box = BoxOf(*polygon);
            ForCellsIn(box.minX, box.minY, box.maxX, box.maxY, [&](std::size_t cell) {
                if (IsInside(*polygon, Centre(cell))) {
                    BarCell(cell, bar);
                }
                for (int direction = 0; direction < directions; ++direction) {
                    const std::size_t neighbour = Neighbour(cell, direction);
                    Bar& out = bars[cell * directions + Index(direction)];
                    if (out == nothing && neighbour != CellCount() &&
                        polygon->EdgeCrossesOutline(Centre(cell), Centre(neighbour))) {
                        out = bar;
                    }
                }
            });
        }
    }
}

void FlowSpace::LiftByForces() {
    for (const Trigger& trigger : TriggerManager::triggers) {
        const TriggerKind kind = trigger.Kind();
        const bool directed =
            kind == TriggerKind::ForceDirectional || kind == TriggerKind::ForceInstantaneous;
        const bool radial = kind == TriggerKind::ForcePull || kind == TriggerKind::ForcePush;
        for (const std::uint32_t place : trigger.forces) {
            // Sideways forces save no height.
            if (radial || (directed && ForceManager::forces[place].direction.y < -0.3f)) {
                for (const std::size_t cell : CellsIn(trigger)) {
                    lifts[cell] = always;
                }
            }
        }
    }
}

/// A mover that goes upwards carries what stands on its polygons, over their whole way.
void FlowSpace::LiftByMovers() {
    constexpr float onTop = 60.0f;
    for (std::size_t i = 0; i < Switches::all.size(); ++i) {
        for (const std::uint32_t place : Switches::all[i].movers) {
            const Mover& mover = MoverManager::movers[place];
            const Vector2 way = mover.end - mover.start;
            if (std::fabs(way.y) < 20.0f) {
                continue;
            }
            for (const LevelPolygon* const polygon : Switches::all[i].polygons) {
                const Box box = BoxOf(*polygon);
                ForCellsIn(box.minX + std::min(way.x, 0.0f),
                           box.minY + std::min(way.y, 0.0f) - onTop,
                           box.maxX + std::max(way.x, 0.0f), box.maxY + std::max(way.y, 0.0f),
                           [&](std::size_t cell) {
                               if (lifts[cell] == nothing) {
                                   lifts[cell] = static_cast<Bar>(i + 1);
                               }
                           });
            }
        }
    }
}

/// Steam rises from where it is made, and some way to the sides.
void FlowSpace::LiftBySteam() {
    constexpr int sideways = 40;  // cells
    std::vector<int> left(CellCount(), -1);
    std::deque<std::size_t> waiting;
    for (const Trigger& trigger : TriggerManager::triggers) {
        if (trigger.Kind() == TriggerKind::ToSteam) {
            for (const std::size_t cell : CellsIn(trigger)) {
                left[cell] = sideways;
                waiting.push_back(cell);
            }
        }
    }
    while (!waiting.empty()) {
        const std::size_t cell = waiting.front();
        waiting.pop_front();
        lifts[cell] = always;
        for (const int direction : {2, 3, 4, 5, 6}) {
            const std::size_t next = Neighbour(cell, direction);
            const int rest = left[cell] - (stepY[Index(direction)] == 0 ? 1 : 0);
            if (BarOf(cell, direction) != always && rest > left[next]) {
                left[next] = rest;
                waiting.push_back(next);
            }
        }
    }
}

void FlowSpace::FindGround() {
    constexpr int reach = 3;  // cells
    grounded.assign(CellCount(), 0);
    for (std::size_t cell = 0; cell < CellCount(); ++cell) {
        std::size_t below = cell;
        for (int i = 0; i < reach && below != CellCount() && grounded[cell] == 0; ++i) {
            grounded[cell] = BarOf(below, 0) != nothing ? 1 : 0;
            below = Neighbour(below, 0);
        }
    }
}

void FlowSpace::CollectAreas() {
    for (const Trigger& trigger : TriggerManager::triggers) {
        if (trigger.Kind() == TriggerKind::LevelEnd) {
            const std::vector<std::size_t> cells = CellsIn(trigger);
            finish.insert(finish.end(), cells.begin(), cells.end());
        }
    }
    for (const Switch& which : Switches::all) {
        std::vector<std::size_t>& cells = openers.emplace_back();
        for (const Trigger* const trigger : which.openers) {
            const std::vector<std::size_t> more = CellsIn(*trigger);
            cells.insert(cells.end(), more.begin(), more.end());
        }
    }
}
