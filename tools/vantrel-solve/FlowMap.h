#pragma once
// How far it is from anywhere in the level to the finish, as water goes: down is cheap, up is
// dear unless something lifts, and where a gate is in the way the path leads over what opens
// it first.

#include <cstdint>
#include <vector>

#include "FlowSpace.h"

class FlowMap {
public:
    /// Reads the loaded level, on so many threads; takes a second or so on one.
    explicit FlowMap(unsigned threads = 1);

    bool HasFinish() const { return !space.Finish().empty(); }
    /// World units still to go, weighted by how hard they are, with the switches in `state`.
    float Distance(Vector2 place, std::uint64_t state) const;
    /// Of the switches in `state`, those that matter for the way; others open side rooms.
    std::uint32_t Gates(std::uint64_t state) const;
    std::size_t GateCount() const { return gates.size(); }

private:
    using Field = std::vector<float>;
    using Sources = std::vector<std::pair<std::size_t, float>>;

    /// Distances to the sources. Steps that `isBarred` are not taken, but where there is no
    /// other way at all.
    template <class IsBarred>
    Field Spread(const Sources& sources, IsBarred isBarred) const;
    template <class IsBarred>
    void Relax(Field& field, const Sources& sources, IsBarred isBarred, float barPrice) const;
    void FindGates();
    /// From the start of the water, with the switch whose bar is `off` off and all others on.
    float WayTo(const std::vector<std::size_t>& goal, FlowSpace::Bar off) const;
    Field FieldOf(std::uint32_t open) const;

    FlowSpace space;
    std::vector<std::size_t> gates;      ///< indices of switches
    std::vector<std::uint32_t> gateBit;  ///< per switch: its bit in a set of gates, or 0
    /// By the set of open gates. Where no way leads from, minus a guess through walls.
    std::vector<Field> fields;
};
