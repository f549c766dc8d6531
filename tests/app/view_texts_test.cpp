#include <gtest/gtest.h>

#include "app/memory_texts.h"
#include "app/page_layout.h"
#include "app/pin_appearance.h"
#include "common/text.h"

namespace corvane::app {
namespace {

TEST(MemoryTexts, ProgramMemory) {
    core::ProcessorState state;
    state.programMemory[5] = 0x2805;
    const std::string text = ProgramMemoryText(state, 1);
    const std::vector<std::string_view> lines = common::SplitLines(text);
    ASSERT_EQ(lines.size(), 16U);
    EXPECT_EQ(lines[5], "0005h   2805h   10100000000101");
    EXPECT_FALSE(text.ends_with("\n"));
    EXPECT_EQ(LargestProgramMemoryScrollValue(1024), 1009);
    EXPECT_TRUE(ProgramMemoryText(state, 8177).ends_with("1FFFh   0000h   00000000000000"));
}

TEST(MemoryTexts, EepromAndStack) {
    core::ProcessorState state;
    for (int i = 0; i < 16; ++i) {
        state.eepromMemory.at(static_cast<std::size_t>(0x30 + i)) = static_cast<std::uint8_t>(i);
    }
    EXPECT_EQ(common::SplitLines(EepromText(state, 64)).at(3),
              "0F 0E 0D 0C 0B 0A 09 08 07 06 05 04 03 02 01 00 ");
    EXPECT_EQ(common::SplitLines(EepromText(state, 256)).size(), 16U);
    EXPECT_EQ(EepromRowHeading(64), "00h\r\n10h\r\n20h\r\n30h");
    EXPECT_TRUE(EepromRowHeading(256).ends_with("\r\nF0h"));
    state.hardwareStack[1] = 5;
    EXPECT_TRUE(StackText(state).starts_with("Level 1:  0005h   0000000000101\r\nLevel 2:  "));
    EXPECT_TRUE(StackText(state).ends_with("\r\nLevel 8:  0000h   0000000000000"));
    EXPECT_EQ(StackPointerText(state), "Level 8");
}

TEST(PinAppearance, ByDirectionLevelAndAnalogSetUp) {
    constexpr std::size_t k84 = 1;
    constexpr std::size_t k876 = 4;
    constexpr std::size_t k877 = 5;
    constexpr std::size_t k628 = 7;
    struct Case {
        std::size_t model;
        core::Pin pin;
        bool input;
        bool high;
        int analogFlag;  // the entry of analogPinFlags that is set, or -1
        PinAppearance expected;
    };
    const auto none = PinButton::None;
    const auto button = PinButton::Input;
    const auto analog = PinButton::Analog;
    const auto value = PinLevel::Analog;
    const Case cases[] = {
        {k84, {0, 2}, true, true, 2, {button, PinLevel::High, "ON", true}},
        {k84, {1, 7}, true, false, -1, {button, PinLevel::Low, "OFF", true}},
        {k84, {1, 7}, false, true, -1, {none, PinLevel::High, "ON", false}},
        {k877, {0, 0}, true, true, 0, {analog, value, "333", true}},
        {k877, {0, 0}, false, true, 0, {none, PinLevel::High, "ON", false}},
        {k877, {0, 5}, true, false, 4, {analog, value, "333", true}},
        {k877, {4, 2}, true, false, 7, {analog, value, "333", true}},
        {k877, {0, 4}, true, false, 4, {button, PinLevel::Low, "OFF", true}},
        {k876, {0, 2}, true, true, core::kRa2Reference, {none, value, "VREF-", true}},
        {k876, {0, 3}, true, false, core::kRa3Reference, {none, value, "VREF+", true}},
        {k876, {0, 3}, false, false, core::kRa3Reference, {none, PinLevel::Low, "OFF", false}},
        {k876, {2, 3}, true, false, core::kRa3Reference, {button, PinLevel::Low, "OFF", true}},
        {k628, {0, 3}, true, false, 3, {analog, value, "3.33V", true}},
        {k628, {0, 2}, true, false, core::kRa2Reference, {button, value, "3.33V", true}},
        {k628, {0, 5}, true, false, 4, {button, PinLevel::Low, "OFF", true}},
    };
    for (const Case& c : cases) {
        core::Processor processor = core::MakeProcessor(models::kModelCatalogue.at(c.model), {});
        const auto port = static_cast<std::size_t>(c.pin.port);
        const auto mask = static_cast<std::uint8_t>(1 << c.pin.bit);
        processor.state.analogPinFlags = {};
        processor.state.analogValues.fill(333);
        processor.state.dataMemory.at(0x85 + port) = c.input ? mask : 0;
        processor.state.portValues.at(port) = c.high ? mask : 0;
        if (c.analogFlag >= 0) {
            processor.state.analogPinFlags.at(static_cast<std::size_t>(c.analogFlag)) = true;
        }
        EXPECT_EQ(AppearanceOf(processor, c.pin), c.expected)
            << processor.model->name << " R" << static_cast<char>('A' + c.pin.port) << c.pin.bit;
    }
    EXPECT_EQ(VoltsText(5), "0.05V");
    EXPECT_EQ(VoltsText(250), "2.50V");
    EXPECT_EQ(VoltsText(500), "5.00V");
}

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
