#pragma once
// Level files made in code.

#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "level/LevelFile.h"

namespace TestLevelFile {

inline LevelFile::Polygon Polygon(std::vector<LevelFile::Point> points, std::uint32_t id = 0) {
    LevelFile::Polygon polygon;
    polygon.id = id;
    polygon.points = std::move(points);
    return polygon;
}

inline LevelFile::Polygon Box(int left, int top, int right, int bottom, std::uint32_t id = 0) {
    return Polygon({{left, top}, {right, top}, {right, bottom}, {left, bottom}}, id);
}

/// Records of every kind, with and without names.
inline LevelFile Rich() {
    LevelFile file;
    file.polygons = {Box(0, 0, 100, 50, 7), Polygon({}, 8), Box(-5, -5, 5, 5, 9)};
    file.polygons[0].texture = "tex\\stone.tga";
    file.polygons[0].surface = 3;
    file.polygons[2].surface = 5;
    file.polygons[2].flags = 3;
    file.polygons[2].layer = 4;
    file.objects = {{7, "obj_FRAME", 2, {10, -20}, 1}, {0, "", 0, {0, 0}, 0}};
    file.forces = {{3, {1, 2}, {0.0f, -1.0f}, 12.5f}};
    file.movers = {{7, 40.0f, {0, 0}, {100, 0}}, {2, 1.0f, {5, 5}, {5, 5}}};
    file.triggers = {{9, 300, 0.5f, {{0, 0}, {1, 0}, {1, 1}, {0, 1}}},
                     {4, 100, 0.0f, {{0, 0}, {9, 0}, {9, 9}, {0, 9}}}};
    file.sounds = {{4, {6, 7}, 300, 1, "snd\\drip.wav"}, {5, {0, 0}, 0, 0, ""}};
    file.emitters = {{6, {8, 9}, {0.0f, 0.0f}, "cfg\\smoke.cfg"}, {6, {8, 9}, {1.0f, 0.0f}, ""}};
    file.waterStart = {-11, 12};
    file.cameraStart = {13, -14};
    return file;
}

/// For files in real directories.
inline std::string_view Text(const std::vector<std::byte>& bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

/// Overwrites a 32-bit field.
inline void Patch(std::vector<std::byte>& bytes, std::size_t at, std::uint32_t value) {
    for (std::size_t i = 0; i < 4; ++i) {
        bytes[at + i] = static_cast<std::byte>(value >> (8 * i));
    }
}

}  // namespace TestLevelFile
