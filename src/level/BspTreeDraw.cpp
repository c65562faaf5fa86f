// The tree's debug views. Whole trees go out as one batch of lines per colour and width.

#include <GL/gl.h>

#include <vector>

#include "graphics/GLWindowDraw.h"
#include "level/BspTree.h"
#include "level/BspTreeState.h"

namespace {

constexpr float normalLength = 8.0f;
/// A splitter's line goes on this many times the segment each way.
constexpr float lineReach = 9999.0f;

/// Points and lines that are drawn in one call; its storage is kept from frame to frame.
class Batch {
public:
    void Add(Vector2 point) { points.push_back(point); }
    void AddLine(Vector2 from, Vector2 to) {
        points.push_back(from);
        points.push_back(to);
    }
    void AddNormal(const BspSegment& node) {
        const Vector2 middle = (node.start + node.end) * 0.5f;
        AddLine(middle, middle + node.normal * normalLength);
    }

    /// Draws what was added as GL_LINES or GL_POINTS, and empties the batch.
    void Flush(GLenum mode, Colour colour, float size) {
        glColor4f(colour.r, colour.g, colour.b, 1.0f);
        glLineWidth(size);
        glPointSize(size);
        glEnableClientState(GL_VERTEX_ARRAY);
        glVertexPointer(2, GL_FLOAT, sizeof(Vector2), points.data());
        glDrawArrays(mode, 0, static_cast<GLsizei>(points.size()));
        glDisableClientState(GL_VERTEX_ARRAY);
        points.clear();
    }

private:
    std::vector<Vector2> points;
};

Batch batch;

/// All nodes, each before its front subtree and that before its back subtree: later ones
/// cover earlier ones.
const std::vector<const BspSegment*>& FrontFirst() {
    static std::vector<const BspSegment*> order;
    static std::vector<const BspSegment*> open;
    order.clear();
    open.assign(1, BspTree::Root());
    while (!open.empty()) {
        const BspSegment* node = open.back();
        open.pop_back();
        if (node) {
            order.push_back(node);
            open.push_back(node->backChild);
            open.push_back(node->frontChild);
        }
    }
    return order;
}

void DrawSplits() {
    const DebugDraw::State state;
    const auto& order = FrontFirst();
    for (const BspSegment* node : order) {
        batch.AddLine(node->start, node->end);
    }
    batch.Flush(GL_LINES, Colours::black, 2.0f);
    for (const BspSegment* node : order) {
        batch.AddNormal(*node);
    }
    batch.Flush(GL_LINES, Colours::red, 2.0f);
    for (const BspSegment* node : order) {
        const Vector2 reach = (node->end - node->start) * lineReach;
        batch.AddLine(node->start - reach, node->start);
        batch.AddLine(node->end, node->end + reach);
    }
    batch.Flush(GL_LINES, Colours::black, 1.0f);
}

void DrawWalkNode() {
    if (!BspTree::walkNode) {
        return;
    }
    const DebugDraw::State state;
    batch.AddLine(BspTree::walkNode->start, BspTree::walkNode->end);
    batch.Flush(GL_LINES, Colours::yellow, 3.0f);
    batch.AddNormal(*BspTree::walkNode);
    batch.Flush(GL_LINES, Colours::blue, 4.0f);
}

void DrawCast() {
    const DebugDraw::State state;
    for (std::size_t i = 0; i < BspTree::testRayCount; ++i) {
        batch.AddLine(BspTree::testRayStarts[i], BspTree::testRayEnds[i]);
    }
    batch.Flush(GL_LINES, Colours::yellow, 1.0f);
}

void DrawNodes() {
    const DebugDraw::State state;
    const auto& order = FrontFirst();
    for (const bool colliding : {false, true}) {
        for (const BspSegment* node : order) {
            if (BspTree::Collides(*node) == colliding) {
                batch.AddLine(node->start, node->end);
            }
        }
        batch.Flush(GL_LINES, colliding ? Colours::green : Colours::red, 1.0f);
    }
    for (const BspSegment* node : order) {
        batch.AddNormal(*node);
    }
    batch.Flush(GL_LINES, Colours::blue, 1.0f);
    for (const BspSegment* node : order) {
        batch.Add(node->start);
        batch.Add(node->end);
    }
    batch.Flush(GL_POINTS, Colours::white, 2.0f);
}

}  // namespace

void BspTree::DrawDebug() {
    if (splitDraw) {
        DrawSplits();
    }
    if (walkDraw) {
        DrawWalkNode();
    }
    if (castDraw) {
        DrawCast();
    }
    if (nodeDraw) {
        DrawNodes();
    }
}
