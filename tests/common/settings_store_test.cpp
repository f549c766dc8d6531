#include "common/settings_store.h"

#include <gtest/gtest.h>

#include "common/decimal_text.h"

namespace corvane::common {
namespace {

TEST(SettingsStore, AValueThatCannotBeReadIsReplaced) {
    MapSettingsStore store;
    store.values = {
        {"empty", ""}, {"longest", std::string(254, 'a')}, {"long", std::string(255, 'a')}};
    EXPECT_EQ(ReadSetting(store, "empty", "x"), "");
    EXPECT_EQ(ReadSetting(store, "longest", "x"), std::string(254, 'a'));
    EXPECT_EQ(ReadSetting(store, "long", "x"), "x");
    EXPECT_EQ(ReadSetting(store, "missing", "x"), "x");
    EXPECT_EQ(store.values.at("long"), "x");
    EXPECT_EQ(store.values.at("missing"), "x");
}

TEST(SettingsStore, ASwitchIsOffUnlessItSaysOn) {
    MapSettingsStore store;
    EXPECT_FALSE(ReadSwitchSetting(store, "Turn Off Colors"));
    EXPECT_EQ(store.values.at("Turn Off Colors"), "OFF");
    for (const bool on : {true, false}) {
        WriteSwitchSetting(store, "Turn Off Colors", on);
        EXPECT_EQ(ReadSwitchSetting(store, "Turn Off Colors"), on);
    }
    store.values["Turn Off Colors"] = "on";
    EXPECT_FALSE(ReadSwitchSetting(store, "Turn Off Colors"));
}

TEST(DecimalText, NumbersBothWays) {
    EXPECT_EQ(LeadingNumber(" \t+12.75e1 MHz"), 127.5);
    EXPECT_EQ(LeadingNumber("-.5"), -0.5);
    EXPECT_EQ(LeadingNumber("5.,1"), 5);
    EXPECT_EQ(LeadingNumber("2e"), 2);
    for (const char* text : {"", "-", "+-1", "x1", "inf", "-nan", ".", "1e999"}) {
        EXPECT_EQ(LeadingNumber(text), 0) << text;
    }
    EXPECT_EQ(RoundToInt(0.5), 0);
    EXPECT_EQ(RoundToInt(1.5), 2);
    EXPECT_EQ(RoundToInt(-2.5), -2);
    EXPECT_EQ(RoundToInt(2147483647.4), 2147483647);
    EXPECT_EQ(RoundToInt(2147483648.0), std::nullopt);
    EXPECT_EQ(DecimalText(4), "4");
    EXPECT_EQ(DecimalText(3.579545F), "3.579545");
    EXPECT_EQ(DecimalText(0.1F), "0.1");
    EXPECT_EQ(DecimalText(1e10F), "10000000000");
    EXPECT_EQ(DecimalText(1e-7F), "0.0000001");
}

}  // namespace
}  // namespace corvane::common
