#include "Check.h"

#include <algorithm>
#include <cstdio>
#include <deque>

bool PrintCheck(const LevelFile& level, std::deque<LevelPolygon>& polygons) {
    Problems problems;
    CheckGeometry(level, polygons, problems);
    CheckJoints(level, polygons, problems);
    CheckRecords(level, problems);
    CheckBindings(level, polygons, problems);
    CheckSlides(level, polygons, problems);
    CheckSpace(level, polygons, problems);
    std::printf("polygons %zu\nobjects %zu\nforces %zu\nmovers %zu\ntriggers %zu\nsounds %zu\n",
                level.polygons.size(), level.objects.size(), level.forces.size(),
                level.movers.size(), level.triggers.size(), level.sounds.size());
    std::printf("emitters %zu\n", level.emitters.size());
    for (const Problem& problem : problems.list) {
        std::printf("%s: %s: %s\n", problem.isError ? "error" : "warning", problem.record.c_str(),
                    problem.text.c_str());
    }
    return std::ranges::none_of(problems.list, &Problem::isError);
}
