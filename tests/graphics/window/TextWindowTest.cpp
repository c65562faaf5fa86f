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

    /// Whether the cell of `code` is drawn there as the sheet has it.
    void ExpectCell(int code, int left, int top) const {
        const auto seen = ReadChannel(GL_GREEN, left, top, 16, 16);
        int worst = 0;
        for (int i = 0; i < 16 * 16; ++i) {
            const int row = code / 16 * 16 + i / 16;
            const int column = code % 16 * 16 + i % 16;
            const auto alpha =
                static_cast<int>(sheet[static_cast<std::size_t>(row * 256 + column)] >> 24);
            worst = std::max(worst, std::abs(alpha - seen[static_cast<std::size_t>(i)]));
        }
        EXPECT_LE(worst, 3) << "code " << code << " at " << left << ", " << top;
    }

    std::unique_ptr<Texture> font;
    Pixels sheet;
};

TEST_F(TextWindowTest, LaysCellsOutInLines) {
    font->DrawText("AB\nC\xE9\t", 10, 20, 16, Colours::white);
    ExpectCell('A', 10, 20);
    ExpectCell('B', 26, 20);
    ExpectCell(' ', 42, 20);
    ExpectCell('C', 10, 36);
    ExpectCell(0xE9, 26, 36);
    ExpectCell('\t', 42, 36);
}

TEST_F(TextWindowTest, CentresAndRounds) {
    font->DrawTextCentred("ABCD", 0, 0, 104, 56, 16, Colours::white);
    ExpectCell('A', 20, 20);
    ExpectCell('D', 68, 20);
    font->DrawTextCentred("x", 100.5f, 99.5f, 16, 16, 16, Colours::white);  // up to 101 and 100
    ExpectCell('x', 101, 100);
}

}  // namespace
