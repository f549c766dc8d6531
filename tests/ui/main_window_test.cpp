#include <QScrollBar>

#include "ui/desktop_fixture.h"

namespace corvane::ui {
namespace {

using MainWindowTest = DesktopTest;

constexpr int kMovlwA5 = 0x30A5;
constexpr int kMovwf0c = 0x008C;
constexpr int kBsfStatusRp0 = 0x1683;
constexpr int kCall4 = 0x2004;
constexpr int kSleep = 0x0063;

TEST_F(MainWindowTest, ShowsEachStep) {
    store.values = {{"Simulation Rate", "1"}};
    Start();
    Load({kMovlwA5, kMovwf0c, kBsfStatusRp0, kCall4, kSleep});
    EXPECT_EQ(Text("qinst"), "");
    EXPECT_EQ(Text("qprogram"), folder.path + "program.hex");
    EXPECT_EQ(Text("qprocessor"), "PIC16F84");

    Trigger("menustart");
    EXPECT_EQ(Text("qcount"), "4");
    EXPECT_EQ(Text("qbrojinst"), "0");
    Trigger("menustep");
    EXPECT_EQ(Text("qinst"), "MOVLW 0xA5");
    EXPECT_EQ(Text("qw"), "A5");
    EXPECT_EQ(Bit("qwbit[7]"), "W bit 7: 1");
    EXPECT_EQ(Bit("qwbit[6]"), "W bit 6: 0");
    EXPECT_EQ(Text("qpc"), "0001");
    EXPECT_EQ(Bit("qpcbit[0]"), "PC bit 0: 1");
    Trigger("menustep");
    EXPECT_EQ(Text("qgprname[0]"), "00Ch");
    EXPECT_EQ(Text("qgpr[0]"), "A5");
    Trigger("menustep");
    EXPECT_EQ(Text("qsfrname[3]"), "003h  STATUS");
    EXPECT_EQ(Text("qsfr[3]"), "38");
    EXPECT_EQ(Bit("qsfrbit5[3]"), "STATUS bit 5: 1");
    EXPECT_EQ(Bit("qsfrbit6[3]"), "STATUS bit 6: 0");
    Trigger("menustep");
    EXPECT_EQ(Text("qpc"), "0004");
    EXPECT_EQ(Text("qbrojinst"), "4");
    EXPECT_EQ(Text("qcount"), "24");
}

TEST_F(MainWindowTest, SetsOffWhatTheLastStepChanged) {
    store.values = {{"Simulation Rate", "1"}};
    Start();
    Load({kMovlwA5, kMovwf0c, kSleep});
    const auto isBold = [this](const char* label) {
        return Child<QLabel>(desktop->Main(), label)->font().bold();
    };
    Trigger("menustart");
    EXPECT_FALSE(isBold("qw"));
    Trigger("menustep");
    EXPECT_TRUE(isBold("qw"));
    EXPECT_FALSE(isBold("qgpr[0]"));
    Trigger("menustep");
    EXPECT_FALSE(isBold("qw"));
    EXPECT_TRUE(isBold("qgpr[0]"));
    Child<QScrollBar>(desktop->Main(), "qgprpoint")->setValue(2);
    EXPECT_FALSE(isBold("qgpr[0]")) << "it shows another register now";
}

TEST_F(MainWindowTest, ScrollsThroughTheRegisters) {
    Start();
    auto* gprs = Child<QScrollBar>(desktop->Main(), "qgprpoint");
    EXPECT_EQ(gprs->minimum(), 1);
    EXPECT_EQ(gprs->maximum(), 37);  // 68 registers, 32 rows
    gprs->setValue(37);
    EXPECT_EQ(Text("qgprname[0]"), "030h");
    EXPECT_EQ(Text("qgprname[31]"), "04Fh");

    for (int model = 0; model < models::kModelCount; ++model) {
        Start(model);
        auto* sfrs = Child<QScrollBar>(desktop->Main(), "qsfrpoint");
        EXPECT_EQ(sfrs->value(), 1);
        sfrs->setValue(sfrs->maximum());
        EXPECT_EQ(Text("qsfrname[15]"), "TMR0 Prescaler");
        for (int bit = 0; bit < 8; ++bit) {
            const std::string cell = "qsfrbit" + std::to_string(bit) + "[15]";
            EXPECT_EQ(Bit(cell), "TMR0 Prescaler bit " + std::to_string(bit) + ": 0");
        }
    }
}

TEST_F(MainWindowTest, EmptyRowsOfShortLists) {
    std::string description = "***** Section 1 *****\r\n";
    for (int address = 0; address < models::kDataMemorySize; ++address) {
        const std::string hex = common::Hex3(address);
        const char* rest = address == 3      ? ",STATUS,18,E7\r\n"
                           : address == 0x0C ? ",RAM,00,FF\r\n"
                                             : ",XXXX,00,00\r\n";
        description += hex;
        description += "," + hex;
        description += rest;
    }
    folder.Write("pic16f84.cfg", description);
    modelFolder = folder.path;
    Start();
    for (const char* bar : {"qgprpoint", "qsfrpoint"}) {
        EXPECT_EQ(Child<QScrollBar>(desktop->Main(), bar)->maximum(), 1);
        EXPECT_FALSE(Child<QScrollBar>(desktop->Main(), bar)->isEnabled());
    }
    EXPECT_EQ(Text("qgprname[0]"), "00Ch");
    EXPECT_EQ(Text("qgprname[1]") + Text("qgpr[1]"), "");
    EXPECT_EQ(Text("qsfrname[1]"), "TMR0 Prescaler");
    EXPECT_EQ(Text("qsfrname[2]") + Text("qsfr[2]"), "");
    EXPECT_EQ(Child<BitCell>(desktop->Main(), "qsfrbit0[2]")->State(), BitState::Clear);
    EXPECT_EQ(Bit("qsfrbit4[0]"), "STATUS bit 4: not implemented");
}

// Every value is told apart by what it says about itself, in each position of the scroll bars.
TEST_F(MainWindowTest, DescriptionsAreUnique) {
    for (const int model : {1, 5, 7}) {
        Start(model);
        for (const char* bar : {"qgprpoint", "qsfrpoint"}) {
            auto* scrollBar = Child<QScrollBar>(desktop->Main(), bar);
            scrollBar->setValue(scrollBar->maximum());
        }
        std::map<QString, int> seen;
        for (const QLabel* label : desktop->Main().findChildren<QLabel*>()) {
            if (!label->accessibleDescription().isEmpty()) {
                ++seen[label->accessibleDescription()];
            }
        }
        EXPECT_GE(seen.size(), 197U);
        for (const auto& [description, count] : seen) {
            EXPECT_EQ(count, 1) << description.toStdString();
        }
    }
}

TEST_F(MainWindowTest, ScrollBarsNeverKeepTheFocus) {
    Start();
    for (const char* bar : {"qgprpoint", "qsfrpoint"}) {
        Child<QScrollBar>(desktop->Main(), bar)->setFocus();
        EXPECT_EQ(desktop->Main().focusWidget()->objectName(), "Command1");
    }
}

TEST_F(MainWindowTest, MenuStatesFollowTheSimulation) {
    store.values = {{"Simulation Rate", "1"}};
    Start();
    Load({kMovlwA5, kSleep});
    const auto states = [this] {
        std::string text;
        for (const char* name : {"menustart", "menustep", "menustop"}) {
            text += Child<QAction>(desktop->Main(), name)->isEnabled() ? "+" : "-";
        }
        for (int rate = 1; rate <= 5; ++rate) {
            const std::string name = "menuspeed" + std::to_string(rate);
            text += Child<QAction>(desktop->Main(), name)->isChecked() ? std::to_string(rate) : "";
        }
        return text;
    };
    EXPECT_EQ(states(), "+--1");
    Trigger("menustart");
    EXPECT_EQ(states(), "-++1");
    Trigger("menuspeed2");
    EXPECT_EQ(states(), "--+2");
    Trigger("menuspeed1");
    EXPECT_EQ(states(), "-++1");
    Trigger("menustep");
    Trigger("menustep");
    EXPECT_EQ(states(), "+--1") << "SLEEP ends the simulation";
    EXPECT_EQ(dialogs->Shown().size(), 1U);
    Trigger("menusavepositions");
    EXPECT_TRUE(Child<QAction>(desktop->Main(), "menusavepositions")->isChecked());
    EXPECT_EQ(store.values["Save Positions"], "ON");
}

TEST_F(MainWindowTest, MenusAreCompleteAndHaveKeys) {
    Start();
    const char* const expected[] = {
        "&File: &Load Program Ctrl+L | &Quit Ctrl+Q",
        "&Simulation: &1 Start F5, &2 Step F8, &3 Stop Shift+F5",
        "&Rate: &1 Step By Step Ctrl+1, &2 Slow Ctrl+2, &3 Normal Ctrl+3, &4 Fast Ctrl+4, "
        "&5 Extremely Fast Ctrl+5",
        "&Tools: Program &Memory Viewer, &EEPROM Memory Viewer, Hardware &Stack Viewer, "
        "Microcontroller &View, &Disassembler, &Breakpoints Manager | &Assembler, BASIC &Compiler",
        "&Options: Save Positions | Select Microcontroller, Change Clock Frequency, "
        "Change EEPROM Write Time, Change A/D Conversion Time",
        "&Help: Getting Started, Help Topics F1, BASIC Compiler Help Topics | About Corvane"};
    std::size_t row = 0;
    for (const QAction* menu : desktop->Main().menuBar()->actions()) {
        QString text = menu->text() + ":";
        QString separator = " ";
        for (const QAction* entry : menu->menu()->actions()) {
            if (entry->isSeparator()) {
                separator = " | ";
                continue;
            }
            text += separator + entry->text();
            const QString keys = entry->shortcut().toString(QKeySequence::PortableText);
            text += keys.isEmpty() ? "" : " " + keys;
            separator = ", ";
        }
        ASSERT_LT(row, std::size(expected));
        EXPECT_EQ(text.toStdString(), expected[row++]);
    }
    EXPECT_EQ(row, std::size(expected));
}

TEST_F(MainWindowTest, RunsToSleepAtEveryTimedRate) {
    clock.perRead = std::chrono::seconds(2);  // pauses are over as soon as they are looked at
    for (const char* rate : {"3", "4", "5"}) {
        store.values = {{"Simulation Rate", rate}};
        Start();
        Load({kMovlwA5, kMovwf0c, kSleep});
        Trigger("menustart");
        ASSERT_TRUE(WaitFor([this] { return desktop->Workbench().Commands().canStart; }));
        const Texts shown = dialogs->Shown();
        ASSERT_EQ(shown.size(), 1U);
        EXPECT_EQ(shown[0].substr(0, 43), "Total number of executed instructions is 3.");
        EXPECT_EQ(Text("qinst"), "SLEEP");
        EXPECT_EQ(Text("qgpr[0]"), "A5");
    }
}

TEST_F(MainWindowTest, StopsAnEndlessLoop) {
    store.values = {{"Simulation Rate", "5"}};
    clock.perRead = std::chrono::milliseconds(1);
    Start();
    Load({0x0A8C, 0x2800});  // INCF 0x0C,F; GOTO 0
    Trigger("menustart");
    ASSERT_TRUE(WaitFor([this] { return Text("qbrojinst").size() > 4; }));
    Trigger("menustop");
    EXPECT_TRUE(desktop->Workbench().Commands().canStart);
    EXPECT_EQ(dialogs->Shown().size(), 1U);
    const auto executed = desktop->Workbench().Processor().state.instructionCount;
    EXPECT_EQ(Text("qbrojinst"), std::to_string(executed));
}

TEST_F(MainWindowTest, WithoutDescriptionFileTheApplicationEnds) {
    modelFolder = folder.path;
    desktop.emplace(modelFolder, store, clock,
                    [this](QWidget& window) { return MakeDialogs(window); });
    EXPECT_FALSE(desktop->StartUp());
    EXPECT_EQ(dialogs->Shown(), Texts{"File 'pic16f84.cfg' could not be found.\r\n"
                                      "The program will now end."});
}

}  // namespace
}  // namespace corvane::ui
