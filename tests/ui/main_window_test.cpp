#include <QScrollBar>

#include "ui/desktop_fixture.h"

namespace corvane::ui {
namespace {

using MainWindowTest = DesktopTest;

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

TEST_F(MainWindowTest, ALargerWindowLeavesTheTablesWhole) {
    Start();
    const auto top = [this](const char* name) {
        return Child<QLabel>(desktop->Main(), name)->mapTo(&desktop->Main(), QPoint()).y();
    };
    const int distance = top("qsfr[15]") - top("qsfr[0]");
    const int heading = top("qsfr[0]") - top("qpc");
    desktop->Main().resize(1900, 1400);
    QCoreApplication::processEvents();
    EXPECT_EQ(top("qsfr[15]") - top("qsfr[0]"), distance);
    EXPECT_EQ(top("qgpr[15]") - top("qgpr[0]"), distance);
    EXPECT_EQ(top("qsfr[0]") - top("qpc"), heading) << "headings stay with their table";
}

TEST_F(MainWindowTest, WithoutDescriptionFileTheApplicationEnds) {
    modelFolder = folder.path;
    desktop.emplace(Folders{modelFolder, recoveryFolder}, store, clock,
                    [this](QWidget& window) { return MakeDialogs(window); });
    EXPECT_FALSE(desktop->StartUp());
    EXPECT_EQ(dialogs->Shown(), Texts{"File 'pic16f84.cfg' could not be found.\r\n"
                                      "The program will now end."});
}

}  // namespace
}  // namespace corvane::ui
