#pragma once
// How the console's text fills its area of cells. Long lines wrap, tabs go on to the next
// multiple of 8 columns.

#include <cstdint>

namespace Console {

/// A place in the text area that moves on with each character.
struct TextCursor {
    int row = 0;
    int column = 0;

    /// Moves past `c` in an area of `columns` columns.
    void Advance(char c, int columns);
};

/// The stretch of the output ring that ends at its newest character.
struct VisibleText {
    std::uint32_t first = 0;  ///< index in the ring
    std::uint32_t count = 0;
};

/// The newest text that is worth drawing in an area of that size: as much as fills `rows`
/// rows, counted backwards from the newest character, and at most the whole ring.
VisibleText FindVisibleText(int rows, int columns);

}  // namespace Console
