#pragma once
// The plain tables of `triangles`, `bsp` and `collide`, on standard output. Floats stand with
// nine digits, which give each float back exactly.

#include <deque>
#include <string>

#include "level/LevelPolygon.h"

void PrintTriangles(const std::deque<LevelPolygon>& polygons);
void PrintTree(std::deque<LevelPolygon>& polygons);
/// Answers each line "x y r" of the file with a line; false with `failure` set if a line of
/// the file is no query or the file can't be read.
bool PrintCollisions(std::deque<LevelPolygon>& polygons, const std::string& queryFile,
                     std::string& failure);
