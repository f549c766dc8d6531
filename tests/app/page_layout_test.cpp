#include <gtest/gtest.h>

#include "app/page_layout.h"
#include "common/text.h"

namespace corvane::app {
namespace {

// Every character is 2 mm wide, as in a fixed-pitch font.
double FixedPitch(std::string_view line) {
    return 2.0 * static_cast<double>(common::CharacterCount(line));
}

TEST(PageLayout, LinesArePlacedDownToTheBottomLimit) {
    // 10 + 3 header lines x 5 = 25 mm; the limit is 80.9 - 10, whole millimetres: 70 mm.
    const PageMetrics metrics = {.printableWidth = 60, .printableHeight = 80.9, .lineHeight = 5};
    const auto pagesOf = [&](int lines, int copies) {
        std::string text;
        for (int i = 1; i <= lines; ++i) {
            text += "line " + std::to_string(i) + (i < lines ? "\r\n" : "");
        }
        return LayOutPages("blink.asm", text, copies, metrics, FixedPitch);
    };
    const std::vector<PrintedPage> one = pagesOf(9, 1);
    ASSERT_EQ(one.size(), 1U) << "the ninth line ends exactly at the limit";
    ASSERT_EQ(one[0].size(), 10U);
    EXPECT_EQ(one[0][0].text, "Page 1          blink.asm");
    EXPECT_EQ(one[0][0].top, 10);
    EXPECT_EQ(one[0][1].top, 25);
    EXPECT_EQ(one[0][9].top, 65);

    const std::vector<PrintedPage> two = pagesOf(11, 2);
    ASSERT_EQ(two.size(), 4U);
    EXPECT_EQ(two[0].back().text, "line 10") << "it leaves the position beyond the limit";
    EXPECT_EQ(two[1][0].text, "Page 2          blink.asm");
    EXPECT_EQ(two[1][1].text, "line 11");
    EXPECT_EQ(two[1][1].top, 25);
    EXPECT_EQ(two[2][0].text, "Page 1          blink.asm") << "the second copy";

    const std::vector<PrintedPage> empty = LayOutPages("t", "", 1, metrics, FixedPitch);
    ASSERT_EQ(empty.size(), 1U);
    EXPECT_EQ(empty[0].size(), 1U) << "only the header";
    EXPECT_EQ(LayOutPages("t", "a\r\n\r\nb\r\n", 1, metrics, FixedPitch)[0].back().top, 35);
    EXPECT_EQ(LayOutPages("t", "a\nb", 1, {60, 10, 5}, FixedPitch).size(), 3U) << "a tiny page";
}

TEST(PageLayout, ALineIsCutInProportion) {
    EXPECT_EQ(FittedLine("12345678901234567890", 60, FixedPitch), "12345678901234567890");
    EXPECT_EQ(FittedLine("123456789012345678901", 60, FixedPitch), "12345678901234567890");
    EXPECT_EQ(FittedLine("\xC2\xB5\xC2\xB5\xC2\xB5", 24, FixedPitch), "\xC2\xB5\xC2\xB5");
    EXPECT_EQ(FittedLine("wide", 15, FixedPitch), "") << "no room between the margins";
    // 10 characters, 45 mm wide: 10 x 40 / 45 = 8.9.
    EXPECT_EQ(FittedLine("iiiiWWWWWW", 60, [](std::string_view) { return 45.0; }), "iiiiWWWW");
}

}  // namespace
}  // namespace corvane::app
