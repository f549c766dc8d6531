#include "ui/basic/basic_window.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>

#include "ui/source_window_test.h"

namespace corvane::ui {

namespace {

using app::Texts;

using BasicWindowTest = SourceWindowTest<BasicWindow>;

TEST_F(BasicWindowTest, BringsTheLeftLineIntoForm) {
    Type("for i=1 to 10 step -2 'loop");
    EXPECT_EQ(ColorsOfLine(Source(), 1), std::string(27, '.'));
    Press(Qt::Key_Return);
    EXPECT_EQ(LineOf(Source(), 1), "For i = 1 To 10 Step -2 'loop");
    EXPECT_EQ(ColorsOfLine(Source(), 1), "kkk.......kk....kkkk....ccccc");
    Type("portb.0=not a");
    Press(Qt::Key_Up);
    EXPECT_EQ(LineOf(Source(), 2), "PORTB.0 = Not a");
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(LineOf(Source(), 2), "");
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(SourceText(), "for i=1 to 10 step -2 'loop");
    Press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(LineOf(Source(), 1), "For i = 1 To 10 Step -2 'loop");
}

TEST_F(BasicWindowTest, BringsAPastedTextIntoForm) {
    QApplication::clipboard()->setText("dim a as byte\na=0 mod b\n");
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(SourceText(), "Dim a As Byte\na = 0 Mod b\n");
    EXPECT_EQ(ColorsOfLine(Source(), 2), "......kkk..");
}

TEST_F(BasicWindowTest, CompilesToAssemblerSource) {
    Choose("menucompile");
    EXPECT_EQ(person->Shown(), Texts{"Please save the file first."});
    Type("dim a as byte\r\nloop: a=a+1\r\ngoto loop");
    ChooseFile("menusaveas", "test.old.bas");
    EXPECT_EQ(Caption(), "BASIC Compiler - test.bas");
    Choose("menucompile");
    EXPECT_EQ(person->Shown(), Texts{"The compilation process was successful.\r\n"
                                     "Output saved as " +
                                     folder.path + "test.asm"});
    EXPECT_EQ(folder.Read("test.bas"), "Dim a As Byte\r\nloop: a = a + 1\r\nGoto loop\r\n");
    EXPECT_EQ(folder.Read("test.asm").substr(0, 30), "; Begin\r\n        R0L EQU 0xC\r\n");
}

TEST_F(BasicWindowTest, TakesTheCaretToTheLineOfAnError) {
    folder.Write("bad.bas", "Dim a As Byte\r\na = 1\r\na = 256\r\na = 2\r\n");
    folder.Write("bad.asm", "older");
    ChooseFile("menuopen", "bad.bas");
    Choose("menucompile");
    const Texts shown = person->Shown();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0].substr(0, 17), "Error in line 3: ");
    EXPECT_EQ(Source().textCursor().blockNumber() + 1, 3);
    EXPECT_EQ(folder.Read("bad.asm"), "older");
}

TEST_F(BasicWindowTest, GoesToALine) {
    folder.Write("a.bas", "a = 1\r\nb = 2\r\nc = 3\r\n");
    ChooseFile("menuopen", "a.bas");
    person->texts = {"3", "99", "x", std::nullopt};
    for (const int line : {3, 4, 4, 4}) {
        Choose("menugotoline");
        EXPECT_EQ(Source().textCursor().blockNumber() + 1, line);
    }
    EXPECT_EQ(person->Shown().front(), "Go to line (1 to 4).|1");
}

TEST_F(BasicWindowTest, PrintsItsText) {
    folder.Write("a.bas", "a = 1\r\n");
    ChooseFile("menuopen", "a.bas");
    const std::string printed = PrintedBy("menuprint");
    EXPECT_NE(printed.find("Page 1 a.bas"), std::string::npos) << printed;
    EXPECT_NE(printed.find("a = 1"), std::string::npos);
}

}  // namespace

}  // namespace corvane::ui
