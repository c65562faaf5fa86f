#pragma once
// The labels of a debug view, kept readable where many things stand close together: each has a
// dark backing, and one that would cover another goes down until it finds room. Begin, collect with
// Add, inside of a DebugDraw::State, then Draw once.

#include <string>
#include <string_view>
#include <vector>

#include "engine/Vector2.h"
#include "level/View.h"

class DebugLabels {
public:
    /// Height of a line of text and width of a character, world units.
    static constexpr float size = 8.0f;

    /// Labels out of this view are left out from now on.
    void Begin(const View& view) { rectangle = view.Rectangle(); }
    /// A white label with its top left at `at`, unless it is out of view.
    void Add(Vector2 at, std::string_view text);
    /// Draws all labels and forgets them.
    void Draw();

private:
    struct Label {
        Vector2 at;
        Vector2 end;  // bottom right
        std::string text;
    };
    ViewRectangle rectangle;
    std::vector<Label> labels;
    std::size_t used = 0;  // labels keep their storage from frame to frame
};
