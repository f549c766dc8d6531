#include <QCheckBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>

#include "ui/common/window_placement.h"
#include "ui/desktop_fixture.h"

namespace corvane::ui {
namespace {

using app::Window;
using SecondaryWindowsTest = DesktopTest;

std::string MemoryOf(const QWidget& window) {
    return DesktopTest::Child<QPlainTextEdit>(window, "Text1")->toPlainText().toStdString();
}

// The fields that are set off.
std::string BoldOf(const QWidget& window) {
    std::string bold;
    const auto* text = DesktopTest::Child<QPlainTextEdit>(window, "Text1");
    for (QTextBlock line = text->document()->begin(); line.isValid(); line = line.next()) {
        for (const QTextLayout::FormatRange& range : line.layout()->formats()) {
            bold += line.text().mid(range.start, range.length).toStdString() + " ";
        }
    }
    return bold;
}

TEST_F(SecondaryWindowsTest, ProgramMemoryViewer) {
    Start();
    const QWidget& viewer = Open(Window::ProgramMemoryViewer);
    auto* bar = Child<QScrollBar>(viewer, "VScroll1");
    EXPECT_EQ(bar->minimum(), 1);
    EXPECT_EQ(bar->maximum(), 1009);
    bar->setValue(3);
    Load({0x1111, 0x2222, 0x2805});
    EXPECT_EQ(bar->value(), 3);
    EXPECT_EQ(MemoryOf(viewer).substr(0, 30), "0002h   2805h   10100000000101");
    bar->setValue(bar->maximum());
    const std::string text = MemoryOf(viewer);
    EXPECT_EQ(text.substr(0, 5), "03F0h");
    EXPECT_EQ(text.substr(text.rfind('\n') + 1, 5), "03FFh");
    bar->setValue(1);
    EXPECT_EQ(MemoryOf(viewer).substr(0, 30), "0000h   1111h   01000100010001");
    desktop->Workbench().LoadProgramFile(folder.Write("bad.hex", ":00\r\n"));
    EXPECT_EQ(MemoryOf(viewer).substr(0, 30), "0000h   0000h   00000000000000");
}

TEST_F(SecondaryWindowsTest, EepromMemoryViewerHasTheModelsSize) {
    struct Case {
        int model;
        int rows;
        const char* lastRow;
    };
    for (const Case& c : {Case{1, 4, "30h"}, Case{7, 8, "70h"}, Case{5, 16, "F0h"}}) {
        Start(c.model);
        const QWidget& viewer = Open(Window::EepromMemoryViewer);
        const std::string headings =
            Child<QPlainTextEdit>(viewer, "Text2")->toPlainText().toStdString();
        EXPECT_EQ(headings.substr(headings.rfind('\n') + 1), c.lastRow);
        auto* text = Child<QPlainTextEdit>(viewer, "Text1");
        EXPECT_EQ(text->blockCount(), c.rows);
        EXPECT_LE(text->document()->size().height(), c.rows) << "all lines are in sight";
        EXPECT_EQ(text->verticalScrollBar()->maximum(), 0);
        EXPECT_EQ(text->horizontalScrollBar()->maximum(), 0);
    }
}

TEST_F(SecondaryWindowsTest, ViewersFollowEachStep) {
    store.values = {{"Simulation Rate", "1"}};
    Start();
    // MOVLW 0x5A; MOVWF EEDATA; CALL 3; then the EEPROM write sequence in bank 1.
    Load({0x305A, 0x0088, 0x2003, 0x1683, 0x1508, 0x3055, 0x0089, 0x30AA, 0x0089, 0x1488, 0x2803});
    desktop->Workbench().Settings().SetEepromWriteTime(8);
    const QWidget& stack = Open(Window::HardwareStackViewer);
    const QWidget& eeprom = Open(Window::EepromMemoryViewer);
    Trigger("menustart");
    EXPECT_EQ(TextOf(stack, "stekpoint"), "Level 8");
    EXPECT_EQ(MemoryOf(stack).substr(0, 31), "Level 1:  0000h   0000000000000");
    for (int step = 0; step < 3; ++step) {
        Trigger("menustep");
    }
    EXPECT_EQ(TextOf(stack, "stekpoint"), "Level 1");
    EXPECT_EQ(MemoryOf(stack).substr(0, 31), "Level 1:  0003h   0000000000011");
    EXPECT_EQ(BoldOf(stack), "0003h 0000000000011 ") << "what the last step changed";
    Trigger("menustep");
    EXPECT_EQ(BoldOf(stack), "");
    std::string written;
    while (Text("qbrojinst") != "400") {
        Trigger("menustep");
        written += BoldOf(eeprom);
    }
    EXPECT_EQ(written, "5A ") << "set off for one step";
    EXPECT_EQ(MemoryOf(eeprom).substr(0, 48), "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 5A ");
}

TEST_F(SecondaryWindowsTest, TextAreasGiveTheFocusToClose) {
    Start();
    for (const Window number :
         {Window::ProgramMemoryViewer, Window::EepromMemoryViewer, Window::HardwareStackViewer}) {
        SecondaryWindow& viewer = Open(number);
        EXPECT_EQ(viewer.focusWidget()->objectName(), "Command1");
        const std::string before = MemoryOf(viewer);
        auto* text = Child<QPlainTextEdit>(viewer, "Text1");
        QTest::mouseClick(text->viewport(), Qt::LeftButton);
        QTest::keyClicks(viewer.focusWidget(), "7");
        EXPECT_EQ(viewer.focusWidget()->objectName(), "Command1");
        EXPECT_EQ(MemoryOf(viewer), before);
    }
}

TEST_F(SecondaryWindowsTest, OpensOnceAndCanBeOpenedAgain) {
    Start();
    QPointer<SecondaryWindow> first = &Open(Window::HardwareStackViewer);
    EXPECT_EQ(&Open(Window::HardwareStackViewer), first);
    Child<QPushButton>(*first, "Command1")->click();
    EXPECT_FALSE(desktop->Workbench().Windows().IsOpen(Window::HardwareStackViewer));
    SecondaryWindow& second = Open(Window::HardwareStackViewer);
    EXPECT_TRUE(WaitFor([&] { return first.isNull(); }));
    EXPECT_EQ(desktop->Find(Window::HardwareStackViewer), &second);
    EXPECT_TRUE(second.isVisible());
}

TEST_F(SecondaryWindowsTest, EveryToolsEntryOpensItsWindow) {
    Start();
    Load({0x0063});
    struct Case {
        const char* command;
        const char* title;
    };
    const Case cases[] = {{"menumemory", "Program Memory Viewer"},
                          {"menueeprom", "EEPROM Memory Viewer"},
                          {"menustack", "Hardware Stack Viewer"},
                          {"menuperipheraldevices", "Microcontroller View - PIC16F84"}};
    for (const Case& c : cases) {
        Trigger(c.command);
        bool isThere = false;
        for (const QWidget* window : QApplication::topLevelWidgets()) {
            isThere |= window->isVisible() && window->windowTitle() == c.title;
        }
        EXPECT_TRUE(isThere) << c.title;
    }
    EXPECT_NE(desktop->Find(Window::ChipView18), nullptr);
}

TEST_F(SecondaryWindowsTest, CentredUnlessPositionsAreKept) {
    Start();
    const QPoint middle = desktop->Main().screen()->availableGeometry().center();
    SecondaryWindow& centred = Open(Window::HardwareStackViewer);
    constexpr int kFrame = 8;  // a frame counts or not, as the screen's platform has it
    EXPECT_LE((centred.frameGeometry().center() - middle).manhattanLength(), kFrame);
    centred.move(30, 40);
    centred.close();
    EXPECT_EQ(store.values["Window7 Left"], "450");
    EXPECT_EQ(store.values["Window7 Top"], "600");
    EXPECT_LE(
        (Open(Window::HardwareStackViewer).frameGeometry().center() - middle).manhattanLength(),
        kFrame);
    Trigger("menusavepositions");
    desktop->Find(Window::HardwareStackViewer)->close();
    store.values["Window7 Left"] = "450";
    store.values["Window7 Top"] = "600 or so";
    EXPECT_EQ(Open(Window::HardwareStackViewer).pos(), QPoint(30, 40));
}

TEST_F(SecondaryWindowsTest, NeverOpensOutOfReach) {
    store.values = {{"Save Positions", "ON"}};
    for (const char* far : {"-900000", "900000", "nonsense"}) {
        store.values["Window7 Left"] = far;
        store.values["Window7 Top"] = far;
        Start();
        const SecondaryWindow& viewer = Open(Window::HardwareStackViewer);
        const QRect screen = viewer.screen()->availableGeometry();
        EXPECT_TRUE(screen.intersects(QRect(viewer.pos(), QSize(viewer.width(), 20)))) << far;
        EXPECT_GE(viewer.pos().y(), screen.top());
    }
}

TEST_F(SecondaryWindowsTest, MinimisedAndMaximisedWindowsStoreTheirNormalPosition) {
    Start();
    for (const Qt::WindowState state : {Qt::WindowMinimized, Qt::WindowMaximized}) {
        SecondaryWindow& viewer = Open(Window::EepromMemoryViewer);
        viewer.move(75, 60);
        viewer.setWindowState(state);
        QCoreApplication::processEvents();
        viewer.close();
        EXPECT_EQ(store.values["Window6 Left"], "1125");
        EXPECT_EQ(store.values["Window6 Top"], "900");
    }
}

TEST_F(SecondaryWindowsTest, AlwaysOnTop) {
    Start();
    SecondaryWindow& memory = Open(Window::ProgramMemoryViewer);
    SecondaryWindow& stack = Open(Window::HardwareStackViewer);
    const auto isOnTop = [](const SecondaryWindow& window) {
        return window.windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint);
    };
    const QPoint place = memory.pos();
    Child<QCheckBox>(memory, "Check1")->click();
    Child<QCheckBox>(stack, "Check1")->click();
    EXPECT_TRUE(isOnTop(memory));
    EXPECT_TRUE(memory.isVisible());
    EXPECT_EQ(memory.pos(), place);
    Child<QCheckBox>(stack, "Check1")->click();
    EXPECT_FALSE(isOnTop(stack));
    EXPECT_TRUE(isOnTop(memory));
    memory.close();
    EXPECT_FALSE(Child<QCheckBox>(Open(Window::ProgramMemoryViewer), "Check1")->isChecked());
}

TEST_F(SecondaryWindowsTest, TheMainWindowTakesTheOthersAlong) {
    Start();
    Open(Window::HardwareStackViewer);
    Open(Window::ProgramMemoryViewer);
    Open(Window::EepromMemoryViewer);
    desktop->OpenText(TextWindow::HelpTopics);
    const QSignalSpy ended(qApp, &QCoreApplication::aboutToQuit);
    QMetaObject::invokeMethod(
        &desktop->Main(), [this] { desktop->Main().close(); }, Qt::QueuedConnection);
    QApplication::exec();
    EXPECT_EQ(ended.size(), 1);
    for (const char* window : {"Window1", "Window4", "Window6", "Window7"}) {
        EXPECT_TRUE(store.values.contains(window + std::string(" Left"))) << window;
        EXPECT_TRUE(store.values.contains(window + std::string(" Top"))) << window;
    }
    EXPECT_EQ(desktop->Find(Window::EepromMemoryViewer), nullptr);
}

TEST_F(SecondaryWindowsTest, HiddenWindowsDrawWhenTheyAppear) {
    store.values = {{"Simulation Rate", "1"}};
    Start();
    Load({0x2002, 0x0000, 0x2003, 0x0063});
    SecondaryWindow& stack = Open(Window::HardwareStackViewer);
    Trigger("menustart");
    stack.showMinimized();
    Trigger("menustep");
    EXPECT_EQ(TextOf(stack, "stekpoint"), "Level 8") << "drawn while nobody could see it";
    stack.showNormal();
    EXPECT_EQ(TextOf(stack, "stekpoint"), "Level 1");
}

TEST_F(SecondaryWindowsTest, SelectMicrocontrollerClosesTheViewers) {
    Start();
    Load({0x0063});
    Open(Window::ProgramMemoryViewer);
    Trigger("menuperipheraldevices");
    dialogs->models = {5};
    Trigger("menuselect");
    EXPECT_EQ(desktop->Find(Window::ProgramMemoryViewer), nullptr);
    EXPECT_EQ(desktop->Find(Window::ChipView18), nullptr);
    EXPECT_EQ(Text("qprocessor"), "PIC16F877");
    EXPECT_EQ(Text("qprogram"), "");
    EXPECT_EQ(Child<QScrollBar>(Open(Window::ProgramMemoryViewer), "VScroll1")->maximum(), 8177);
}

TEST_F(SecondaryWindowsTest, TextWindowsOpenOnce) {
    Start();
    const auto shown = [](const QString& title) {
        qsizetype count = 0;
        for (const QWidget* window : QApplication::topLevelWidgets()) {
            count += window->isVisible() && window->windowTitle() == title ? 1 : 0;
        }
        return count;
    };
    struct Case {
        const char* command;
        const char* title;
    };
    for (const Case& c : {Case{"menututorial", "Getting Started"},
                          {"menuhelp", "Help Topics"},
                          {"menuhelpcomp", "BASIC Compiler Help Topics"},
                          {"menuabout", "About Corvane"}}) {
        Trigger(c.command);
        Trigger(c.command);
        EXPECT_EQ(shown(c.title), 1) << c.title;
    }
}

}  // namespace
}  // namespace corvane::ui
