#include <QAccessible>
#include <QCheckBox>
#include <QPushButton>

#include "ui/debugging_fixture.h"

namespace corvane::ui {
namespace {

namespace fs = std::filesystem;

class BreakpointsManagerTest : public DebuggingTest {
  public:
    std::string RowText(int row) const { return std::string(common::TrimRight(Row(row).Text())); }

    // A program of NOPs.
    void LoadWords(int count) {
        std::string hex;
        for (int address = 0; address < count; ++address) {
            const std::string record = "02" + common::Hex4(2 * address) + "000000";
            hex += ":" + record + common::RecordChecksum(record) + "\r\n";
        }
        desktop->Workbench().LoadProgramFile(folder.Write("program.hex", hex));
        ASSERT_EQ(desktop->Workbench().LoadedWords(), count);
        dialogs->Shown();
    }
};

constexpr int kPic16F877 = 5;

TEST_F(BreakpointsManagerTest, ShowsAndScrollsListingsOfAnyLength) {
    struct Case {
        int lines;
        int largestValue;
        int shownRows;
    };
    for (const Case& c : {Case{4, 1, 4}, {20, 1, 20}, {21, 2, 20}, {8196, 8177, 20}}) {
        SCOPED_TRACE(c.lines);
        Start(kPic16F877);
        if (c.lines == 4) {
            Load({0x0063});
            folder.Write("program.lst", "one\ntwo\nthree\n0004    0003    0063    SLEEP");
            OpenManager({true});
            EXPECT_EQ(RowText(3), "0003    0063    SLEEP");
        } else {
            LoadWords(c.lines - 4);
            fs::remove(folder.path + "program.lst");
            OpenManager();
            EXPECT_EQ(RowText(1), "PIC DISASSEMBLER LISTING");
        }
        EXPECT_EQ(Bar().minimum(), 1);
        EXPECT_EQ(Bar().maximum(), c.largestValue);
        EXPECT_EQ(Bar().isEnabled(), c.largestValue > 1);
        EXPECT_EQ(Bar().value(), 1);
        for (int row = 0; row < app::kListingRows; ++row) {
            EXPECT_EQ(RowText(row).empty(), row >= c.shownRows) << row;
        }
        Bar().triggerAction(QScrollBar::SliderToMaximum);
        Click(c.shownRows - 1);
        EXPECT_EQ(Slots(), common::Hex4(c.lines == 4 ? 3 : c.lines - 5)) << "the last line";
        EXPECT_TRUE(HasDot(c.shownRows - 1));
        Press(Qt::Key_PageUp);
        EXPECT_EQ(Bar().value(), std::max(1, c.largestValue - 20));
    }
}

TEST_F(BreakpointsManagerTest, TakesAnyListingFileThatThePersonWants) {
    std::string bytes;
    for (int i = 0; i < 1000; ++i) {
        bytes += static_cast<char>(i);
    }
    constexpr const char* kFolder = "(a folder)";
    struct Case {
        const char* program;
        bool isWanted;
        std::string listing;
        std::string firstRow;
        std::string slotsAfterClicks;  // on each row
    };
    const std::string another = "0001    1FFF    0063    SLEEP\r\n0002    FFFF    0000    NOP\r\n";
    const std::string hyphens(35, '-');
    const Case cases[] = {
        {"another.hex", true, another, "1FFF    0063    SLEEP", "1FFF FFFF"},
        {"unwanted.hex", false, another, hyphens, "0000"},
        {"upper.HEX", false, another, hyphens, "0000"},
        {"unreadable.hex", true, kFolder, hyphens, "0000"},
        {"disassembled.hex", true, "-\nPIC DISASSEMBLER LISTING\n0000    0063    SLEEP\n", "-",
         "0000"},
        {"no_words.hex", true, "0001    0000            X EQU 1\n0001 Error: Unrecognized.\n",
         "                X EQU 1", ""},
        {"empty.hex", true, "", "", ""},
        {"not_text.hex", true, bytes, std::string(bytes, 0, 9), ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.program);
        Start();
        const fs::path listing = fs::path(folder.path + c.program).replace_extension(".lst");
        if (c.listing == kFolder) {
            fs::create_directory(listing);
        } else {
            folder.Write(listing.filename(), c.listing);
        }
        desktop->Workbench().LoadProgramFile(folder.Write(c.program, app::HexOf({0x0063})));
        OpenManager({c.isWanted});
        const bool isAsked = std::string_view(c.program).ends_with(".hex");
        EXPECT_EQ(person->answers.empty(), isAsked);
        EXPECT_EQ(RowText(0), c.firstRow);
        for (int row = 0; row < app::kListingRows; ++row) {
            Click(row);
        }
        EXPECT_EQ(Slots(), c.slotsAfterClicks);
        Press(Qt::Key_Down);
        Press(Qt::Key_End);
    }
}

TEST_F(BreakpointsManagerTest, ClicksSetAndClear) {
    Start();
    LoadWords(16);
    OpenManager();
    Click(2);
    EXPECT_EQ(Slots(), "") << "a heading";
    for (const int row : {10, 6, 8}) {
        Click(row);
    }
    EXPECT_EQ(Slots(), "0002 0004 0006");
    EXPECT_TRUE(HasDot(8));
    Click(8);
    EXPECT_EQ(Slots(), "0002 0006");
    EXPECT_FALSE(HasDot(8));
    for (int row = 11; row < 19; ++row) {
        Click(row);
    }
    Click(19);
    EXPECT_EQ(person->Shown(), Texts{"You can not define more than 10 breakpoints."});
    EXPECT_FALSE(HasDot(19));
    EXPECT_FALSE(Row(19).isChecked());

    manager->close();
    OpenManager();
    EXPECT_EQ(Slots(), "0002 0006 0007 0008 0009 000A 000B 000C 000D 000E") << "kept";
    Child<QPushButton>(*manager, "Command1")->click();
    EXPECT_EQ(Slots(), "");
    EXPECT_FALSE(HasDot(6));
}

TEST_F(BreakpointsManagerTest, KeysReachEveryLine) {
    Start();
    LoadWords(40);
    OpenManager();
    EXPECT_EQ(manager->focusWidget(), &Row(0));
    Press(Qt::Key_Up);
    EXPECT_EQ(Bar().value(), 1);
    for (int i = 0; i < 23; ++i) {
        Press(Qt::Key_Down);
    }
    EXPECT_EQ(Bar().value(), 5) << "the last row scrolls";
    EXPECT_EQ(manager->focusWidget(), &Row(19));
    Press(Qt::Key_Space);
    Press(Qt::Key_Up);
    Press(Qt::Key_Return);
    EXPECT_EQ(Slots(), "0012 0013");
    Press(Qt::Key_Space);
    EXPECT_EQ(Slots(), "0013");
    Press(Qt::Key_Home);
    EXPECT_EQ(Bar().value(), 1);
    EXPECT_EQ(manager->focusWidget(), &Row(0));
    Press(Qt::Key_PageDown);
    EXPECT_EQ(Bar().value(), 21);
    Press(Qt::Key_End);
    EXPECT_EQ(Bar().value(), 25);
    EXPECT_EQ(manager->focusWidget(), &Row(19));
    Press(Qt::Key_Tab);
    EXPECT_EQ(manager->focusWidget()->objectName(), "Command1") << "the listing is one stop";
    QTest::keyClick(manager->focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(manager->focusWidget()->objectName().toStdString(), "linija[19]");
}

TEST_F(BreakpointsManagerTest, SaysWhatARowShows) {
    Start();
    Load({0x3005, 0x0063});
    OpenManager();
    Click(4);
    const auto accessible = [this](int row) {
        return QAccessible::queryAccessibleInterface(&Row(row));
    };
    EXPECT_EQ(accessible(4)->text(QAccessible::Name),
              "0000    3005    MOVLW 0x05, breakpoint, current instruction");
    EXPECT_EQ(accessible(4)->role(), QAccessible::ListItem);
    EXPECT_EQ(accessible(4)->parent()->role(), QAccessible::List);
    EXPECT_TRUE(accessible(4)->state().checked);
    EXPECT_EQ(accessible(5)->text(QAccessible::Name), "0001    0063    SLEEP");
    EXPECT_TRUE(accessible(5)->state().checkable);
    EXPECT_FALSE(accessible(5)->state().checked);
    EXPECT_EQ(accessible(2)->text(QAccessible::Name), "Address Opcode  Instruction");
    EXPECT_FALSE(accessible(2)->state().checkable);
    accessible(5)->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    QCoreApplication::processEvents();
    EXPECT_EQ(Slots(), "0000 0001");
}

TEST_F(BreakpointsManagerTest, HoldsThePcInView) {
    store.values = {{"Simulation Rate", "1"}};
    Start();
    std::vector<int> words(60);
    words[1] = 0x2832;   // GOTO 32h
    words[50] = 0x280A;  // GOTO 0Ah
    Load(words);
    OpenManager();
    Trigger("menustart");
    EXPECT_EQ(PcRow(), 4);
    Trigger("menustep");
    Trigger("menustep");
    EXPECT_EQ(PcRow(), -1) << "out of sight";
    EXPECT_EQ(Bar().value(), 1);
    auto* hold = Child<QCheckBox>(*manager, "Check2");
    hold->click();
    EXPECT_EQ(Bar().value(), 45) << "the last page";
    EXPECT_EQ(PcRow(), 10);
    Bar().setValue(50 - 14);
    EXPECT_EQ(Bar().value(), 36) << "it is in view still";
    EXPECT_EQ(PcRow(), 19);
    Trigger("menustep");
    EXPECT_EQ(Bar().value(), 15) << "at the top";
    EXPECT_EQ(PcRow(), 0);
    hold->click();
    Bar().setValue(1);
    EXPECT_EQ(PcRow(), 14);
}

TEST_F(BreakpointsManagerTest, AStepPaintsTheRowsThatItChanges) {
    struct PaintCounter : QObject {
        bool eventFilter(QObject* watched, QEvent* event) override {
            if (event->type() == QEvent::Paint) {
                painted += watched->objectName().toStdString() + " ";
            }
            return false;
        }
        std::string painted;
    };
    store.values = {{"Simulation Rate", "1"}};
    Start();
    LoadWords(16);
    OpenManager();
    Trigger("menustart");
    QCoreApplication::processEvents();
    PaintCounter counter;
    for (int row = 0; row < app::kListingRows; ++row) {
        Row(row).installEventFilter(&counter);
    }
    Trigger("menustep");
    QCoreApplication::processEvents();
    EXPECT_EQ(counter.painted, "linija[4] linija[5] ");

    manager->showMinimized();
    Trigger("menustep");
    EXPECT_EQ(PcRow(), 5) << "drawn while nobody could see it";
    manager->showNormal();
    EXPECT_EQ(PcRow(), 6);
}

}  // namespace
}  // namespace corvane::ui
