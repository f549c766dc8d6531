#include "ui/desktop/ini_settings_store.h"

#include "app/fakes.h"

namespace corvane::ui {
namespace {

class SettingsStoreTest : public testing::Test {
  public:
    app::TemporaryFolder folder;
    std::string path = folder.path + "new/Corvane.ini";
    IniSettingsStore store{path};
};

TEST_F(SettingsStoreTest, NamesAndValuesSurvive) {
    const std::map<std::string, std::string> values = {
        {"A/D Conversion Time", "100"},
        {"A", "a name that is also the beginning of another"},
        {"Last Path", "/home/me/a, b; \"c\" = %20 \\d\\n/\n/\r/\u00e4 \u20AC/"},
        {"Clock Frequency", "3.579545"},
        {"Window4 Left", "-15"},
        {"Empty", ""},
        {"Heading", "[x]"}};
    for (const auto& [name, value] : values) {
        store.Write(name, "something else");
        store.Write(name, value);
    }
    for (const auto& [name, value] : values) {
        EXPECT_EQ(store.Read(name), value) << name;
    }
    EXPECT_EQ(store.Read("D Conversion Time"), std::nullopt);
}

TEST_F(SettingsStoreTest, HandEditedFilesAreReadAndKept) {
    path = folder.Write("mine.ini",
                        "; mine\r\n Simulation Rate = 2 \r\n\n[Other]\nSave Positions=ON\n"
                        "Clock Frequency=4\nClock Frequency=5\nno value\nLast Path=C:\\new");
    IniSettingsStore mine(path);
    EXPECT_EQ(mine.Read("Simulation Rate"), "2");
    EXPECT_EQ(mine.Read("Save Positions"), "ON");
    EXPECT_EQ(mine.Read("Clock Frequency"), "4");
    mine.Write("Clock Frequency", "10");
    mine.Write("Simulation Rate", "3");
    EXPECT_EQ(folder.Read("mine.ini"),
              "; mine\nSimulation Rate=3\n\n[Other]\nSave Positions=ON\n"
              "Clock Frequency=10\nno value\nLast Path=C:\\new\n");
}

TEST_F(SettingsStoreTest, DamagedFilesKeepWhatCanBeRead) {
    std::string garbage = "[General]\nSave Positions=ON\n";
    for (int byte = 0; byte < 256; ++byte) {
        garbage += static_cast<char>(byte);
    }
    garbage += "\n[[[\n=\nMicrocontroller Model=banana\nClock Frequency=" + std::string(5000, '9') +
               "\nSimulation Rate=3";
    IniSettingsStore damaged(folder.Write("damaged.ini", garbage));
    app::AppSettings settings(damaged, "/models/");
    EXPECT_EQ(settings.Rate(), app::SimulationRate::Normal);
    EXPECT_TRUE(settings.SavePositions());
    EXPECT_EQ(settings.LastPath(), "/models/");
    EXPECT_EQ(settings.ClockFrequency(), 4);
    settings.SetClockFrequency(10);
    EXPECT_EQ(damaged.Read("Clock Frequency"), "10");
    EXPECT_EQ(damaged.Read("Simulation Rate"), "3");
}

TEST_F(SettingsStoreTest, WhatCannotBeWrittenIsLostInSilence) {
    app::fs::create_directories(path);  // a folder stands where the file would be
    app::AppSettings settings(store, "/models/");
    settings.SetModelRow(5);
    EXPECT_EQ(settings.ModelRow(), 5);
    EXPECT_EQ(app::AppSettings(store, "/models/").ModelRow(), models::kDefaultModel);
}

}  // namespace
}  // namespace corvane::ui
