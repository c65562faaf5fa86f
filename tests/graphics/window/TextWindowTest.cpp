#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string>

#include "WindowFixture.h"

namespace {

class TextWindowTest : public WindowFixture {
protected:
    void SetUp() override {
        WindowFixture::SetUp();
        font = std::make_unique<Texture>("no_such_font", "DEFAULT_FONT");
        ASSERT_EQ(font->width, 256u);
        sheet = ReadTexture(*font);
    }
    void TearDown() override {
        font.reset();
        WindowFixture::TearDown();
    }

    /// The sheet's alpha where the cell of `code` has its pixel (x, y), in cells of `size`
    /// pixels: 16 as it is, 8 as the mean of four.
    int Expected(int code, int x, int y, int size) const {
        const int step = 16 / size;
        int sum = 0;
        for (int dy = 0; dy < step; ++dy) {
            for (int dx = 0; dx < step; ++dx) {
                const int row = code / 16 * 16 + y * step + dy;
                const int column = code % 16 * 16 + x * step + dx;
                sum += static_cast<int>(sheet[static_cast<std::size_t>(row * 256 + column)] >> 24);
            }
        }
        return sum / (step * step);
    }
    void ExpectCell(unsigned char code, int left, int top, int size) const {
        const auto seen = ReadChannel(GL_GREEN, left, top, size, size);
        int worst = 0;
        for (int i = 0; i < size * size; ++i) {
            const int expected = Expected(code, i % size, i / size, size);
            worst = std::max(worst, std::abs(expected - seen[static_cast<std::size_t>(i)]));
        }
        EXPECT_LE(worst, 3) << "code " << int{code} << " at " << left << ", " << top;
    }

    std::unique_ptr<Texture> font;
    Pixels sheet;
};

TEST_F(TextWindowTest, LaysCellsOutInLines) {
    font->DrawText("AB\nC\xE9\t", 10, 20, 16, Colours::white);
    ExpectCell('A', 10, 20, 16);
    ExpectCell('B', 26, 20, 16);
    ExpectCell(' ', 42, 20, 16);
    ExpectCell('C', 10, 36, 16);
    ExpectCell(0xE9, 26, 36, 16);
    ExpectCell('\t', 42, 36, 16);
}

TEST_F(TextWindowTest, CentresAndRounds) {
    font->DrawTextCentred("ABCD", 0, 0, 104, 56, 16, Colours::white);
    ExpectCell('A', 20, 20, 16);
    ExpectCell('D', 68, 20, 16);
    font->DrawTextCentred("x", 100.5f, 99.5f, 16, 16, 16, Colours::white);  // up to 101 and 100
    ExpectCell('x', 101, 100, 16);
}

}  // namespace
