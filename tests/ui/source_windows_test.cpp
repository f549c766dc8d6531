// What the scripts cannot say of the source windows: drops, modal dialogs, printing, the end.
#include <QClipboard>
#include <QDropEvent>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPrinter>
#include <QProcess>
#include <QRadioButton>
#include <QSplitter>
#include <QTest>
#include <QTimer>
#include <QUrl>

#include "ui/asm/output_pane.h"
#include "ui/desktop_fixture.h"
#include "ui/editor/numbered_editor.h"
#include "ui/editor/source_window.h"

namespace corvane::ui {
namespace {

// Answers the next modal dialog.
void WhenAsked(const std::function<void(QWidget*)>& answer) {
    QTimer::singleShot(0, [answer] {
        if (QWidget* dialog = QApplication::activeModalWidget()) {
            answer(dialog);
        } else {
            WhenAsked(answer);
        }
    });
}

class SourceWindowTest : public DesktopTest {
  public:
    void OpenFile(const std::string& name, std::string_view text, app::Window number) {
        if (!desktop) {
            Start();
        }
        window = dynamic_cast<SourceWindow*>(&Open(number));
        desktop->OpenFile(QString::fromStdString(folder.Write(name, text)));
        QCoreApplication::processEvents();
    }
    void Choose(const char* menuCommand) const {
        Child<QAction>(*window, menuCommand)->trigger();
        QCoreApplication::processEvents();
    }

    // Prints with this command and reads back what was printed, with single blanks.
    std::string PrintedBy(const char* menuCommand, int copies = 1) {
        const QString pdf = QString::fromStdString(folder.path) + "printed.pdf";
        window->SetPrinterChooser([&](QPrinter& printer) {
            printer.setPageSize(QPageSize(QPageSize::A4));
            printer.setOutputFileName(pdf);
            printer.setCopyCount(copies);
            return true;
        });
        Choose(menuCommand);
        QProcess reader;
        reader.start("pdftotext", {"-layout", pdf, "-"});
        reader.waitForFinished(-1);
        std::string text = reader.readAllStandardOutput().toStdString();
        const auto isRepeated = [](char a, char b) { return a == ' ' && b == ' '; };
        text.erase(std::unique(text.begin(), text.end(), isRepeated), text.end());
        return text;
    }

    QPointer<SourceWindow> window;
};

void Drop(QWidget& target, const std::string& path) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QString::fromStdString(path))});
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&target, &enter);
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&target, &drop);
    QCoreApplication::processEvents();
}

TEST_F(SourceWindowTest, OpensAFileThatIsDroppedOnTheTextOrTheMainWindow) {
    OpenFile("b.asm", "  nop", app::Window::Assembler);
    Drop(*Child<QPlainTextEdit>(*window, "RichTextBox1")->viewport(),
         folder.Write("Größe 1.asm", "  sleep"));
    EXPECT_EQ(window->windowTitle(), "Assembler - Größe 1.asm");
    Drop(desktop->Main(), folder.Write("Größe 2.hex", app::HexOf({0x0063})));
    EXPECT_EQ(desktop->Workbench().LoadedWords(), 1);
}

TEST_F(SourceWindowTest, BreakpointsStayAtTheirLines) {
    OpenFile("a.asm", " nop\r\n sleep\r\n\r\n clrw\r\n clrf 12\r\n", app::Window::Assembler);
    auto& editor = *Child<NumberedEditor>(*window, "RichTextBox1");
    const auto clickBeside = [&](int line) {
        QTextCursor place(editor.document()->findBlockByNumber(line - 1));
        const QPoint beside(-2, editor.cursorRect(place).center().y());
        const QPoint point = editor.viewport()->mapTo(&editor, beside);
        QWidget* margin = editor.childAt(point);
        QTest::mouseClick(margin, Qt::LeftButton, {}, margin->mapFrom(&editor, point));
    };
    const auto edit = [&](const char* keys) {
        for (const QString& key : QString(keys).split(' ')) {
            QTest::keySequence(&editor, QKeySequence(key, QKeySequence::PortableText));
        }
        return editor.Marks().breakpoints;
    };
    using Lines = std::vector<int>;
    for (const int line : {5, 2, 4, 1, 4}) {
        clickBeside(line);
    }
    EXPECT_EQ(editor.Marks().breakpoints, (Lines{1, 2, 5}));
    EXPECT_FALSE(editor.Marks().areValid) << "no program is loaded";
    EXPECT_EQ(edit("Ctrl+Home Return"), (Lines{2, 3, 6})) << "before the first line";
    EXPECT_EQ(edit("Down End Return"), (Lines{2, 3, 7})) << "behind a line";
    EXPECT_EQ(edit("Ctrl+Z Ctrl+Z"), (Lines{1, 2, 5}));
    EXPECT_EQ(edit("Ctrl+Home Down Tab Shift+End Del x"), (Lines{1, 2, 5})) << "another text";
    EXPECT_EQ(edit("Ctrl+Home Down Shift+Down Del"), (Lines{1, 4})) << "its line has gone";
    EXPECT_EQ(edit("Ctrl+A Del"), Lines{}) << "all have gone";
    EXPECT_TRUE(desktop->Workbench().Stops().All().empty());
}

TEST_F(SourceWindowTest, ALineOfTheOutputIsFollowedAndCopied) {
    OpenFile("a.asm", " org 0x400\r\n nop\r\n nop", app::Window::Assembler);
    Choose("menuassemble");
    auto& output = *Child<OutputPane>(*window, "RichTextBox2");
    const QModelIndex message = output.currentIndex();
    EXPECT_TRUE(message.data().toString().startsWith("Warning in line 2: "));
    output.scrollTo(message);
    QTest::mouseClick(output.viewport(), Qt::LeftButton, {}, output.visualRect(message).center());
    const auto& editor = *Child<QPlainTextEdit>(*window, "RichTextBox1");
    EXPECT_EQ(editor.textCursor().blockNumber(), 1);
    output.setCurrentIndex(message);
    QTest::keyClick(&output, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), message.data().toString() + "\n");
}

TEST_F(SourceWindowTest, SelectsConfigurationBitsForTheHexFile) {
    OpenFile("a.asm", " nop", app::Window::Assembler);
    WhenAsked([](QWidget* dialog) {
        dialog->findChild<QRadioButton*>("op11")->click();
        dialog->findChild<QRadioButton*>("op22")->click();
        dialog->findChild<QRadioButton*>("op42")->click();
        dialog->findChild<QAbstractButton*>("Command1")->click();
    });
    Choose("menuconfig");
    EXPECT_EQ(desktop->Workbench().ConfigurationWord(), 0x000A);
    WhenAsked([](QWidget* dialog) {
        dialog->findChild<QRadioButton*>("op12")->click();
        dialog->close();
    });
    Choose("menuconfig");
    EXPECT_EQ(desktop->Workbench().ConfigurationWord(), 0x000A);
}

TEST_F(SourceWindowTest, KeepsItsDivider) {
    store.values["Save Positions"] = "ON";
    OpenFile("a.asm", " nop", app::Window::Assembler);
    window->resize(500, 600);
    auto* divider = window->findChild<QSplitter*>("VScroll1");
    QCoreApplication::processEvents();
    divider->setSizes({150, 350});
    const QList<int> sizes = divider->sizes();
    window->close();
    OpenFile("a.asm", " nop", app::Window::Assembler);
    QCoreApplication::processEvents();
    EXPECT_NEAR(window->findChild<QSplitter*>("VScroll1")->sizes()[0], sizes[0], 2);
}

TEST_F(SourceWindowTest, AClosedWindowFinishesItsAssembly) {
    std::string source;
    for (int line = 0; line < 5000; ++line) {
        source += "        movlw 0x05 ; once more\r\n";
    }
    OpenFile("long.asm", source, app::Window::Assembler);
    Child<QAction>(*window, "menuassemble")->trigger();
    QTimer::singleShot(0, window, &QWidget::close);  // seen while it assembles, or behind it
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(window.isNull());
    EXPECT_FALSE(desktop->Workbench().Windows().IsOpen(app::Window::Assembler));
    EXPECT_TRUE(folder.Read("long.hex").ends_with(":00000001FF\r\n"));
}

TEST_F(SourceWindowTest, PrintsSourceAndListing) {
    OpenFile("blink.asm", " bsf STATUS,RP0\r\n clrf TRISB\r\n", app::Window::Assembler);
    Choose("menuassemble");
    const std::string source = PrintedBy("menuprint", 2);
    const std::string header = "Page 1 blink.asm";
    EXPECT_NE(source.find(header), std::string::npos) << source;
    EXPECT_NE(source.find(header, source.find('\f')), std::string::npos) << "the second copy";
    EXPECT_NE(source.find("clrf TRISB"), std::string::npos);
    const std::string listing = PrintedBy("menuprint2");
    EXPECT_NE(listing.find("Page 1 blink.lst"), std::string::npos) << listing;
    EXPECT_NE(listing.find("0002 0001 0186 clrf TRISB"), std::string::npos);
    EXPECT_NE(listing.find("Number of errors = 0"), std::string::npos);
    EXPECT_EQ(std::count(listing.begin(), listing.end(), '\f'), 1);
    OpenFile("a.bas", "a = 1\r\n", app::Window::BasicCompiler);
    const std::string basic = PrintedBy("menuprint");
    EXPECT_NE(basic.find("Page 1 a.bas"), std::string::npos) << basic;
    EXPECT_NE(basic.find("a = 1"), std::string::npos);
}

}  // namespace
}  // namespace corvane::ui
