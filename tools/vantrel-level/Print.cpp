#include "Print.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <deque>
#include <map>
#include <sstream>
#include <vector>

#include "engine/Text.h"
#include "level/BspTree.h"
#include "level/Collision.h"
#include "platform/WholeFile.h"

namespace {

void PrintFloats(std::initializer_list<float> values) {
    const char* gap = "";
    for (const float value : values) {
        std::printf("%s%.9g", gap, static_cast<double>(value));
        gap = " ";
    }
}

struct Query {
    Vector2 position;
    float radius = 0.0f;
};

bool ParseQuery(const std::string& line, Query& query) {
    const std::vector<std::string> words = SplitWords(line);
    if (words.size() != 3) {
        return false;
    }
    float* const targets[] = {&query.position.x, &query.position.y, &query.radius};
    for (std::size_t i = 0; i < 3; ++i) {
        const char* end = words[i].data() + words[i].size();
        const auto result = std::from_chars(words[i].data(), end, *targets[i]);
        if (result.ec != std::errc() || result.ptr != end || !std::isfinite(*targets[i])) {
            return false;
        }
    }
    return query.radius >= 0.0f;
}

}  // namespace

void PrintTriangles(const std::deque<LevelPolygon>& polygons) {
    std::size_t index = 0;
    for (const LevelPolygon& polygon : polygons) {
        std::printf("POLYGON %zu %u %u\n", index++, unsigned{polygon.winding},
                    polygon.triangleCount);
        for (std::size_t corner = 0; corner < 3 * std::size_t{polygon.triangleCount}; corner += 3) {
            const auto& x = polygon.triangleX;
            const auto& y = polygon.triangleY;
            PrintFloats(
                {x[corner], y[corner], x[corner + 1], y[corner + 1], x[corner + 2], y[corner + 2]});
            std::puts("");
        }
    }
}

void PrintTree(std::deque<LevelPolygon>& polygons) {
    BspTree::Build(polygons);
    std::printf("EDGES %zu\nSIZE %d\nDEPTH %d\n", BspTree::EdgeCount(), BspTree::Size(),
                BspTree::Depth());
    std::map<const LevelPolygon*, std::size_t> indices;
    for (const LevelPolygon& polygon : polygons) {
        indices.emplace(&polygon, indices.size());
    }
    std::vector<BspSegment*> nodes;
    BspTree::CollectNodes(nodes);
    for (const BspSegment* node : nodes) {
        std::printf("NODE ");
        PrintFloats({node->start.x, node->start.y, node->end.x, node->end.y, node->normal.x,
                     node->normal.y, node->length, node->friction});
        std::printf(" %u %zu\n", BspTree::Collides(*node) ? 1u : 0u, indices[node->polygon]);
    }
    BspTree::Destroy();
}

bool PrintCollisions(std::deque<LevelPolygon>& polygons, const std::string& queryFile,
                     std::string& failure) {
    const auto bytes = Platform::ReadWholeFile(queryFile);
    if (!bytes) {
        failure = queryFile + ": cannot be read";
        return false;
    }
    std::istringstream lines(
        std::string(reinterpret_cast<const char*>(bytes->data()), bytes->size()));
    BspTree::Build(polygons);
    std::string line;
    for (int number = 1; failure.empty() && std::getline(lines, line); ++number) {
        Query query;
        if (SplitWords(line).empty()) {
            continue;
        }
        if (!ParseQuery(line, query)) {
            failure = queryFile + ":" + std::to_string(number) + ": expected \"x y r\"";
            break;
        }
        const bool hit = Collision::CollideCircleStatic(query.position, query.radius);
        const Vector2 normal = Collision::ContactNormal();
        std::printf("HIT %d ", hit ? 1 : 0);
        PrintFloats(
            {query.position.x, query.position.y, normal.x, normal.y, Collision::ContactFriction()});
        std::puts("");
    }
    BspTree::Destroy();
    return failure.empty();
}
