#include <QCheckBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTreeWidget>
#include <algorithm>

#include "ui/desktop_fixture.h"
#include "ui/window/window_placement.h"

namespace corvane::ui {
namespace {

using app::Window;
using SecondaryWindowsTest = DesktopTest;

QWidget& TopLevel(const char* name) {
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto found = std::ranges::find(windows, QLatin1String(name), &QWidget::objectName);
    EXPECT_NE(found, windows.end()) << name;
    return **found;
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
        EXPECT_TRUE(screen.contains(viewer.frameGeometry())) << far;
    }
}

TEST_F(SecondaryWindowsTest, AreNoLargerThanTheScreen) {
    store.values = {{"Microcontroller Model", "5"}};
    Start();
    const QRect screen = desktop->Main().screen()->availableGeometry();
    EXPECT_TRUE(screen.contains(desktop->Main().frameGeometry()));
    Trigger("menuperipheraldevices");
    const SecondaryWindow& view = *desktop->Find(Window::ChipView40);
    EXPECT_TRUE(screen.contains(view.frameGeometry()));
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

TEST_F(SecondaryWindowsTest, AFailedTestLeadsToItsLine) {
    folder.Write("a.asm", "LOOP: GOTO LOOP\n");
    folder.Write("a.test",
                 "program a.asm\ntest \"stays\"\n  wait 1 us\ntest \"ends\"\n  wait 1 us\n  end\n");
    folder.Write("b.test", "program a.asm\n");
    Start();
    desktop->Workbench().Settings().SetLastPathOf(folder.path + "a.test");
    desktop->RunTests();
    QWidget& tests = TopLevel("TestsWindow");
    const auto& list = *Child<QTreeWidget>(tests, "testslist");
    ASSERT_EQ(list.topLevelItemCount(), 3);
    EXPECT_EQ(list.topLevelItem(0)->text(0).toStdString(), "a.test: stays");
    EXPECT_EQ(list.topLevelItem(0)->text(1).toStdString(), "✓ passed");
    QTreeWidgetItem& failed = *list.topLevelItem(1);
    EXPECT_EQ(failed.text(1).toStdString(), "✗ failed");
    EXPECT_EQ(failed.text(2).toStdString(), "3 us");
    EXPECT_TRUE(failed.child(1)->text(0).startsWith("the program has not ended"));
    EXPECT_EQ(list.topLevelItem(2)->text(1).toStdString(), "✗ refused");
    EXPECT_EQ(TextOf(tests, "testssummary"), "1 passed, 2 failed");
    emit Child<QTreeWidget>(tests, "testslist")->itemActivated(&failed, 0);
    const auto& view = *Child<QPlainTextEdit>(TopLevel("TextViewWindow"), "viewedText");
    EXPECT_EQ(view.textCursor().block().text().toStdString(), "  end");
}

TEST_F(SecondaryWindowsTest, AHelpTextIsSearchedRoundItsEnds) {
    Start();
    desktop->OpenText(TextWindow::HelpTopics);
    QWidget& help = TopLevel("HelpWindow");
    QApplication::setActiveWindow(&help);
    auto& text = *Child<QTextBrowser>(help, "helpText");
    auto& words = *Child<QLineEdit>(help, "findText");
    QTest::keyClick(&text, Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(help.focusWidget(), &words);
    QTest::keyClicks(&words, "EEPROM");
    const auto found = [&](Qt::Key key, Qt::KeyboardModifiers modifiers) {
        QTest::keyClick(&words, key, modifiers);
        EXPECT_EQ(text.textCursor().selectedText().toLower(), "eeprom");
        return text.textCursor().position();
    };
    const int first = found(Qt::Key_Return, Qt::NoModifier);
    const int second = found(Qt::Key_F3, Qt::NoModifier);
    EXPECT_LT(first, second);
    EXPECT_EQ(found(Qt::Key_Return, Qt::ShiftModifier), first);
    EXPECT_GT(found(Qt::Key_F3, Qt::ShiftModifier), second) << "from the end";
    EXPECT_EQ(TextOf(help, "findMessage"), "");
    words.setText("xyzzy");
    QTest::keyClick(&words, Qt::Key_Return);
    EXPECT_EQ(TextOf(help, "findMessage"), "Not found");
    QTest::keyClick(&words, Qt::Key_Escape);
    EXPECT_FALSE(help.isVisible());
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

}  // namespace
}  // namespace corvane::ui
