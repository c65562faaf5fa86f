// Finds edges in line that meet end to start. The game makes one edge of them, with the
// properties of the second: seamless where both are alike, surprising where they differ.

#include <deque>
#include <unordered_map>

#include "Check.h"
#include "level/BspEdges.h"

namespace {

/// Directions this close count as one line when edges are joined.
constexpr float straight = 0.9999f;

/// Corners are whole numbers, so those that agree for the game are equal.
std::uint64_t KeyOf(Vector2 corner) {
    const auto half = [](float value) {
        return static_cast<std::uint32_t>(static_cast<std::int64_t>(value));
    };
    return std::uint64_t{half(corner.x)} << 32 | half(corner.y);
}

std::string At(Vector2 corner) {
    return Message("at (", static_cast<std::int64_t>(corner.x), ", ",
                   static_cast<std::int64_t>(corner.y), ")");
}

}  // namespace

void CheckJoints(const LevelFile& level, std::deque<LevelPolygon>& polygons, Problems& problems) {
    std::unordered_map<const LevelPolygon*, std::size_t> numbers;
    for (const LevelPolygon& polygon : polygons) {
        numbers.emplace(&polygon, numbers.size());
    }
    const std::vector<BspSegment> edges = BspEdges::Collect(polygons);
    std::unordered_multimap<std::uint64_t, std::size_t> byStart;
    for (std::size_t i = 0; i < edges.size(); ++i) {
        byStart.emplace(KeyOf(edges[i].start), i);
    }
    for (std::size_t a = 0; a < edges.size(); ++a) {
        const BspSegment& first = edges[a];
        const auto [begin, end] = byStart.equal_range(KeyOf(first.end));
        for (auto entry = begin; entry != end; ++entry) {
            const BspSegment& second = edges[entry->second];
            const bool joins = entry->second > a && first.start != second.end &&
                               !first.polygon->toggledByTrigger &&
                               !second.polygon->toggledByTrigger &&
                               Dot(first.direction, second.direction) > straight;
            if (!joins) {
                continue;
            }
            const std::size_t one = numbers[first.polygon];
            const std::size_t other = numbers[second.polygon];
            const std::string meeting =
                Message("an edge runs on in line as one of polygon ", other, " ", At(first.end));
            if (first.cutOnly != second.cutOnly) {
                problems.Warning(
                    "polygon", one,
                    Message(meeting, "; a cutting and a solid edge in line become one",
                            second.cutOnly ? ", which doesn't collide" : " solid edge"));
            } else if (!first.cutOnly &&
                       level.polygons[one].surface != level.polygons[other].surface) {
                problems.Warning("polygon", one, Message(meeting, " and takes on its surface"));
            }
        }
    }
}
