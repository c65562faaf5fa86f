#pragma once
// The plain tables of `triangles`, `bsp` and `collide`, on standard output. Floats stand with
// nine digits, which give each float back exactly.

#include <list>
#include <string>

#include "level/LevelPolygon.h"

void PrintTriangles(const std::list<LevelPolygon>& polygons);
void PrintTree(std::list<LevelPolygon>& polygons);
/// Answers each line "x y r" of the file with a line; false with `failure` set if a line of
/// the file is no query or the file can't be read.
bool PrintCollisions(std::list<LevelPolygon>& polygons, const std::string& queryFile,
                     std::string& failure);
