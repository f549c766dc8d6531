#include "ui/editor/source_editor.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QScrollBar>
#include <QtTest>
#include <array>
#include <random>

#include "common/text.h"
#include "ui/editor/find_bar.h"
#include "ui/editor/text_encoding.h"
#include "ui/shown_text.h"

namespace corvane::ui {

namespace {

// Upper case, single blanks; a line that begins with ! is a comment, X is a keyword.
std::string Formed(std::string_view line) {
    std::string formed;
    for (const char c : common::ToUpper(common::Trim(line))) {
        if (c != ' ' || formed.back() != ' ') {
            formed += c;
        }
    }
    return formed;
}

std::vector<common::ColoredSpan> Colored(std::string_view line) {
    std::vector<common::ColoredSpan> spans;
    if (line.starts_with('!')) {
        spans.push_back({0, static_cast<int>(line.size()), common::TextColor::Quoted});
    }
    if (const std::size_t found = line.find('X'); found != std::string_view::npos) {
        spans.push_back({static_cast<int>(found), 1, common::TextColor::Keyword});
    }
    return spans;
}

class SourceEditorTest : public testing::Test {
  protected:
    void SetUp() override { editor.resize(400, 300); }

    void Type(const char* text) { QTest::keyClicks(&editor, QString::fromUtf8(text)); }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&editor, key, modifiers);
    }
    std::string Text() const { return editor.Text().toStdString(); }

    SourceEditor editor{{.form = Formed, .color = Colored}};
};

TEST_F(SourceEditorTest, FormsAndColorsALineWhenTheCaretLeavesIt) {
    Type("a  x");
    EXPECT_EQ(Text(), "a  x");
    EXPECT_EQ(ColorsOfLine(editor, 1), "....");
    Press(Qt::Key_Return);
    EXPECT_EQ(Text(), "A X\n");
    EXPECT_EQ(ColorsOfLine(editor, 1), "..k");
    Type("x");
    EXPECT_EQ(ColorsOfLine(editor, 2), ".");
    Press(Qt::Key_Up);
    EXPECT_EQ(ColorsOfLine(editor, 2), "k");
    Press(Qt::Key_Down);
    EXPECT_EQ(ColorsOfLine(editor, 1), "..k") << "merely visited, not edited";
}

TEST_F(SourceEditorTest, EnterWithinALineFormsTheLeftHalf) {
    Type("x a b ");
    Press(Qt::Key_Left);
    Press(Qt::Key_Left);
    Press(Qt::Key_Return);
    EXPECT_EQ(Text(), "X A\nb ");
    EXPECT_EQ(ColorsOfLine(editor, 1), "k..");
    EXPECT_EQ(editor.CaretLine(), 2);
}

TEST_F(SourceEditorTest, JoinedLinesAreBeingEdited) {
    editor.Load("x\nx");
    Press(Qt::Key_Down);
    EXPECT_EQ(ColorsOfLine(editor, 2), "k");
    Press(Qt::Key_Backspace);
    EXPECT_EQ(ColorsOfLine(editor, 1), "..");
    Press(Qt::Key_Down);
    EXPECT_EQ(ColorsOfLine(editor, 1), "k.");
}

TEST_F(SourceEditorTest, UndoTakesAnEditBackWithItsForm) {
    editor.Load("one\ntwo");
    Type("a  x ");
    Press(Qt::Key_Down);
    EXPECT_EQ(Text(), "A X ONE\nTWO\n");
    EXPECT_EQ(ColorsOfLine(editor, 1), "..k....");
    editor.Undo();
    EXPECT_EQ(Text(), "ONE\nTWO\n");
    editor.Redo();
    EXPECT_EQ(Text(), "A X ONE\nTWO\n");
    EXPECT_EQ(ColorsOfLine(editor, 1), "..k....");
    editor.Undo();
    EXPECT_FALSE(editor.document()->isUndoAvailable());
    Press(Qt::Key_Down);
    Press(Qt::Key_Up);
    EXPECT_TRUE(editor.document()->isRedoAvailable()) << "moving about forgets nothing";
}

TEST_F(SourceEditorTest, UndoGoesStepByStepThroughEveryKindOfEdit) {
    const auto snapshot = [this] { return Text(); };
    std::vector<std::string> states = {snapshot()};
    const auto step = [&](const std::function<void()>& edit) {
        edit();
        states.push_back(snapshot());
    };
    step([&] {
        Type("go  x");
        Press(Qt::Key_Return);
    });
    step([&] { Press(Qt::Key_Return); });
    step([&] {
        Type("b  b");
        Press(Qt::Key_Up);
    });
    step([&] {
        Press(Qt::Key_Delete);
        Press(Qt::Key_Up);
    });
    step([&] {
        Press(Qt::Key_A, Qt::ControlModifier);
        Press(Qt::Key_X, Qt::ControlModifier);
    });
    step([&] { Press(Qt::Key_V, Qt::ControlModifier); });
    ASSERT_EQ(states[1], "GO X\n");
    for (std::size_t i = states.size(); i-- > 2;) {
        EXPECT_EQ(Text(), states[i]) << i;
        Press(Qt::Key_Z, Qt::ControlModifier);
    }
    EXPECT_EQ(Text(), states[1]);
    Press(Qt::Key_Z, Qt::ControlModifier);  // the line end and its line's form
    EXPECT_EQ(Text(), "go  x");
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Text(), "");
    for (std::size_t i = 0; i < states.size(); ++i) {
        editor.Redo();
    }
    EXPECT_EQ(Text(), states.back());
}

// The toolkit breaks where its layout is used while it is not yet that of the text, or where the
// scroll bars of a small editor come and go because of each other.
TEST_F(SourceEditorTest, SurvivesRandomKeysInASmallWindow) {
    constexpr std::array kKeys = {Qt::Key_K,      Qt::Key_Tab,       Qt::Key_Return, Qt::Key_Up,
                                  Qt::Key_Delete, Qt::Key_Backspace, Qt::Key_PageUp, Qt::Key_End,
                                  Qt::Key_A,      Qt::Key_X,         Qt::Key_V,      Qt::Key_Z};
    constexpr std::array<Qt::KeyboardModifier, 4> kModifiers = {
        Qt::NoModifier, Qt::NoModifier, Qt::ControlModifier, Qt::ShiftModifier};
    std::minstd_rand random(1);
    const auto pick = [&](std::size_t count) { return static_cast<int>(random() % count); };
    editor.show();
    for (int round = 0; round < 40; ++round) {
        editor.Load(QStringLiteral("a line\n").repeated(pick(60)));
        for (int i = 0; i < 60; ++i) {
            if (pick(8) == 0) {
                editor.resize(61 + pick(200), 61 + pick(100));
                editor.verticalScrollBar()->setValue(pick(60));
            }
            Press(kKeys.at(random() % kKeys.size()), kModifiers.at(random() % kModifiers.size()));
        }
        EXPECT_EQ(editor.document()->isEmpty(), Text().empty());
    }
}

TEST_F(SourceEditorTest, KeepsTheCaretsPlaceInALineThatChanges) {
    editor.Load("one\ntwo");
    Type("a  b  ");
    QTextCursor second(editor.document()->findBlockByNumber(1));
    second.movePosition(QTextCursor::Right);
    editor.setTextCursor(second);
    EXPECT_EQ(Text(), "A B ONE\nTWO\n");
    EXPECT_EQ(editor.textCursor().positionInBlock(), 1);
    EXPECT_EQ(editor.CaretLine(), 2);
}

TEST_F(SourceEditorTest, ACaretAtTheEndStaysInItsLine) {
    Type("a  b");
    editor.FormWholeText();
    EXPECT_EQ(Text(), "A B\n");
    EXPECT_EQ(editor.CaretLine(), 1);
    EXPECT_TRUE(editor.textCursor().atBlockEnd());
}

TEST_F(SourceEditorTest, TabShiftsTheSelectedLines) {
    editor.SetFormEnabled(false);
    editor.Load("one\n\n\ttwo\n          three\nfour");
    const auto select = [this](int anchor, int position) {
        QTextCursor selection = editor.textCursor();
        selection.setPosition(anchor);
        selection.setPosition(position, QTextCursor::KeepAnchor);
        editor.setTextCursor(selection);
    };
    select(1, 26);  // the end of the selection has but reached the last line
    Press(Qt::Key_Tab);
    EXPECT_EQ(Text(), "\tone\n\n\t\ttwo\n\t          three\nfour");
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(Text(), "one\n\ntwo\n  three\nfour");
    editor.Undo();
    editor.Undo();
    editor.Undo();
    EXPECT_EQ(Text(), "one\n\n\ttwo\n          three\nfour");
    select(0, 3);  // a whole line
    Press(Qt::Key_Tab);
    EXPECT_EQ(Text(), "\tone\n\n\ttwo\n          three\nfour");
    select(2, 1);  // a part of a line is replaced, as by any other key
    Press(Qt::Key_Tab);
    EXPECT_EQ(Text(), "\t\tne\n\n\ttwo\n          three\nfour");
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(Text(), "\tne\n\n\ttwo\n          three\nfour");
}

TEST_F(SourceEditorTest, TheViewStaysWhenTheWholeTextIsFormedOrLoadedAnew) {
    const QString text = QStringLiteral("line  x\n").repeated(200) + "end";
    editor.show();
    editor.SetFormEnabled(false);
    editor.Load(text);
    editor.SetFormEnabled(true);
    editor.GoToLine(20);
    editor.verticalScrollBar()->setValue(100);  // the caret is out of view
    editor.FormWholeText();
    EXPECT_EQ(editor.verticalScrollBar()->value(), 100);
    EXPECT_EQ(editor.CaretLine(), 20);
    editor.LoadAnew(text);
    EXPECT_EQ(editor.verticalScrollBar()->value(), 100);
    EXPECT_EQ(editor.CaretLine(), 20);
    editor.LoadAnew("short");
    EXPECT_EQ(editor.CaretLine(), 2);
}

TEST_F(SourceEditorTest, PastedTextIsFormedAndUndoneAsOne) {
    editor.Load("end");
    QApplication::clipboard()->setText("x  y\nz  z");
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Text(), "X Y\nZ ZEND\n");
    EXPECT_EQ(ColorsOfLine(editor, 1), "k..");
    editor.Undo();
    EXPECT_EQ(Text(), "END\n");
    EXPECT_FALSE(editor.document()->isUndoAvailable());
    QApplication::clipboard()->clear();
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Text(), "END\n");
}

TEST_F(SourceEditorTest, WithoutFormNothingIsTouched) {
    editor.SetFormEnabled(false);
    editor.Load("a  x");
    Type("b  ");
    Press(Qt::Key_Return);
    editor.FormWholeText();
    EXPECT_EQ(Text(), "b  \na  x");
    EXPECT_EQ(ColorsOfLine(editor, 2), "....");
    editor.SetFormEnabled(true);
    editor.FormWholeText();
    EXPECT_EQ(Text(), "B\nA X\n");
    EXPECT_EQ(ColorsOfLine(editor, 2), "..k");
}

TEST_F(SourceEditorTest, ColorsCharactersBeyondAscii) {
    editor.Load(QString::fromUtf8("äö€ 😀 x"));
    EXPECT_EQ(ColorsOfLine(editor, 1), ".......k");
}

TEST_F(SourceEditorTest, ShiftEnterEndsALineToo) {
    Type("a");
    Press(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(Text(), "A\n");
    EXPECT_EQ(editor.blockCount(), 2);
}

TEST_F(SourceEditorTest, DarkBackgroundsGetLightColors) {
    editor.Load("x");
    QPalette dark;
    dark.setColor(QPalette::Base, QColor(30, 30, 30));
    editor.setPalette(dark);
    const QTextLayout& layout = *editor.document()->firstBlock().layout();
    ASSERT_EQ(layout.formats().size(), 1);
    EXPECT_GT(layout.formats().constFirst().format.foreground().color().lightness(), 128);
}

TEST_F(SourceEditorTest, FindsForwardsBackwardsAndAroundTheEnd) {
    editor.Load("ab\ncd\nAB");
    FindBar bar(editor);
    bar.Open();
    auto* text = bar.findChild<QLineEdit*>("findText");
    QTest::keyClicks(text, "ab");
    EXPECT_EQ(editor.CaretLine(), 1);
    QTest::keyClick(text, Qt::Key_Return);
    EXPECT_EQ(editor.CaretLine(), 3);
    bar.FindNext();
    EXPECT_EQ(editor.CaretLine(), 1);
    bar.FindPrevious();
    EXPECT_EQ(editor.CaretLine(), 3);
    EXPECT_EQ(editor.textCursor().selectedText(), "AB");
    QTest::keyClicks(text, "z");
    EXPECT_EQ(bar.findChild<QLabel*>("findMessage")->text(), "Not found");
}

TEST(TextEncoding, KeepsEveryByte) {
    for (const std::string bytes :
         {"caf\xE9 \xFF", "caf\xC3\xA9", "plain", "", "\xC3", "\xE2\x80\xA9\xE2\x80\xA8"}) {
        const TextEncoding encoding = EncodingOf(bytes);
        EXPECT_EQ(EncodedText(DecodedText(bytes, encoding), encoding), bytes);
    }
    EXPECT_EQ(EncodedText(QString::fromUtf8("é€"), TextEncoding::Latin1), "é€");
    EXPECT_EQ(EncodedText(QString::fromUtf8("Ã©"), TextEncoding::Latin1), "Ã©")
        << "as Latin-1 it would be taken for UTF-8";
    EXPECT_FALSE(IsEditable(EncodingOf("\xEF\xB7\x92"))) << "U+FDD2, which is no character";
}

}  // namespace

}  // namespace corvane::ui
