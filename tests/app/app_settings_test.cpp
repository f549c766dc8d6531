#include "app/app_settings.h"

#include "fakes.h"

namespace corvane::app {
namespace {

using Values = std::map<std::string, std::string, std::less<>>;

TEST_F(WorkbenchTest, TheFirstRunStoresEveryDefault) {
    ASSERT_TRUE(StartUp());
    EXPECT_EQ(store.values, (Values{{"Last Path", folder.path},
                                    {"Save Positions", "OFF"},
                                    {"Clock Frequency", "4"},
                                    {"EEPROM Write Time", "1000"},
                                    {"A/D Conversion Time", "100"},
                                    {"Simulation Rate", "4"},
                                    {"Microcontroller Model", "1"}}));
    EXPECT_EQ(workbench->Model().name, "PIC16F84");
    EXPECT_EQ(workbench->ConfigurationWord(), 0x3FF1);
    EXPECT_EQ(workbench->Commands(), (CommandStates{.menusEnabled = true,
                                                    .canStart = true,
                                                    .canStep = false,
                                                    .canStop = false,
                                                    .rate = SimulationRate::Fast,
                                                    .savePositions = false}));
    EXPECT_EQ(views.commandsSeen.back(), workbench->Commands());
    EXPECT_EQ(dialogs.Shown(), Texts{});
}

TEST_F(WorkbenchTest, StoredValuesAreTaken) {
    store.values = {{"Last Path", "/home/"},       {"Save Positions", "ON"},
                    {"Clock Frequency", "3.5795"}, {"EEPROM Write Time", "500.5"},
                    {"A/D Conversion Time", "72"}, {"Simulation Rate", "2"},
                    {"Microcontroller Model", "7"}};
    ASSERT_TRUE(StartUp());
    EXPECT_EQ(workbench->Settings().LastPath(), "/home/");
    EXPECT_EQ(workbench->Settings().ClockFrequency(), 3.5795F);
    EXPECT_EQ(workbench->Processor().eepromWriteTime, 500);
    EXPECT_EQ(workbench->Processor().adConversionTime, 72);
    EXPECT_EQ(workbench->Model().name, "PIC16F628");
    EXPECT_EQ(workbench->Commands().rate, SimulationRate::Slow);
    EXPECT_TRUE(workbench->Commands().savePositions);
}

TEST_F(WorkbenchTest, BadValuesFallBackAndTheRestIsKept) {
    const std::string tooLong(255, '9');
    for (const std::string& bad : Texts{"", "x", "-3", "0.0", "99999999999", "nan", tooLong}) {
        store.values = {{"Clock Frequency", bad},     {"EEPROM Write Time", bad},
                        {"A/D Conversion Time", bad}, {"Microcontroller Model", bad},
                        {"Simulation Rate", bad},     {"Save Positions", bad},
                        {"Last Path", "/tmp/"}};
        ASSERT_TRUE(StartUp());
        const AppSettings& settings = workbench->Settings();
        EXPECT_EQ(settings.ClockFrequency(), bad == "99999999999" ? 1e11F : 4) << bad;
        EXPECT_EQ(settings.EepromWriteTime(), 1000) << bad;
        EXPECT_EQ(settings.AdConversionTime(), 100) << bad;
        EXPECT_EQ(settings.Rate(), SimulationRate::Fast) << bad;
        const bool isZero = bad.empty() || bad == "x" || bad == "0.0" || bad == "nan";
        EXPECT_EQ(settings.ModelRow(), isZero ? 0 : 1) << bad;
        EXPECT_FALSE(settings.SavePositions());
        EXPECT_EQ(store.values.at("Simulation Rate"), "4");
        EXPECT_EQ(store.values.at("Last Path"), "/tmp/");
        if (bad == tooLong) {
            EXPECT_EQ(store.values.at("EEPROM Write Time"), "1000");
        }
    }
}

TEST(AppSettings, WindowPositions) {
    common::MapSettingsStore store;
    AppSettings settings(store, "/app/");
    const AppSettings::Position initial = {.left = 100, .top = -20};
    EXPECT_EQ(settings.ReadPosition(Window::Assembler, initial), std::nullopt) << "centred";
    EXPECT_FALSE(store.values.contains("Window17 Left"));
    settings.WritePosition(Window::Assembler, {.left = 15, .top = 30});
    settings.WriteWindowFigure(Window::Assembler, "Height", 6045);
    EXPECT_EQ(store.values.at("Window17 Left"), "15");
    EXPECT_EQ(settings.ReadWindowFigure(Window::Assembler, "Height", 7000), 7000);

    settings.SetSavePositions(true);
    EXPECT_EQ(settings.ReadPosition(Window::Assembler, initial),
              (AppSettings::Position{.left = 15, .top = 30}));
    EXPECT_EQ(settings.ReadWindowFigure(Window::Assembler, "Height", 7000), 6045);
    EXPECT_EQ(settings.ReadPosition(Window::ChipView62x, initial), initial);
    EXPECT_EQ(store.values.at("Window22 Top"), "-20") << "stored when missing";
    store.values["Window22 Top"] = "1e300";
    EXPECT_EQ(settings.ReadPosition(Window::ChipView62x, initial), initial);
}

TEST(AppSettings, TheFolderOfAFile) {
    common::MapSettingsStore store;
    AppSettings settings(store, "/app/");
    settings.SetLastPathOf("/home/me/a b/blink.old.asm");
    EXPECT_EQ(settings.LastPath(), "/home/me/a b/");
    EXPECT_EQ(store.values.at("Last Path"), "/home/me/a b/");
}

}  // namespace
}  // namespace corvane::app
