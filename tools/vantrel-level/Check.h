#pragma once
// What is wrong with a level: errors that the game would show as missing or dead things, and
// warnings about geometry that works out differently from how it looks.

#include <deque>
#include <string>
#include <vector>

#include "Message.h"
#include "level/LevelFile.h"
#include "level/LevelPolygon.h"

struct Problem {
    bool isError = false;
    std::string record;  ///< kind and number from 0, like "polygon 3"
    std::string text;
};

class Problems {
public:
    void Error(const char* kind, std::size_t number, std::string text) {
        Add(true, kind, number, std::move(text));
    }
    void Warning(const char* kind, std::size_t number, std::string text) {
        Add(false, kind, number, std::move(text));
    }

    std::vector<Problem> list;

private:
    void Add(bool isError, const char* kind, std::size_t number, std::string text) {
        list.push_back({isError, Message(kind, " ", number), std::move(text)});
    }
};

/// Files that aren't there, emitters that emit nothing.
void CheckRecords(const LevelFile& level, Problems& problems);
/// Who acts on whom: targets that nothing bears, triggers that never fire, movers and forces
/// that do nothing or harm, a level without a finish.
void CheckBindings(const LevelFile& level, const std::deque<LevelPolygon>& polygons,
                   Problems& problems);
/// Outlines: polygons without triangles, overlaps, twins, and where the water starts.
void CheckGeometry(const LevelFile& level, const std::deque<LevelPolygon>& polygons,
                   Problems& problems);
/// Edges that the game joins into one although they differ.
void CheckJoints(const LevelFile& level, std::deque<LevelPolygon>& polygons, Problems& problems);
/// Moving sides in the line of a wall, which let water through it.
void CheckSlides(const LevelFile& level, std::deque<LevelPolygon>& polygons, Problems& problems);
/// Ways for water to get lost: walls too thin to hold it, edges inside of solids, and a bottom
/// that is open.
void CheckSpace(const LevelFile& level, std::deque<LevelPolygon>& polygons, Problems& problems);

/// The number of images that a name stands for and that are there.
std::size_t CountFrames(const std::string& name);

/// Prints counts and problems; true if none is an error.
bool PrintCheck(const LevelFile& level, std::deque<LevelPolygon>& polygons);
