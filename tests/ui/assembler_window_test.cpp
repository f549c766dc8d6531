#include "ui/asm/assembler_window.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QDropEvent>
#include <QGroupBox>
#include <QMimeData>
#include <QRadioButton>
#include <QSplitter>
#include <QTimer>
#include <QUrl>

#include "ui/source_window_test.h"

namespace corvane::ui {

namespace {

using app::Texts;

constexpr const char* kBlink =
    "        bsf STATUS,RP0\r\n"
    "        clrf TRISB\r\n"
    "LOOP    goto LOOP\r\n";
constexpr const char* kTwoErrors =
    "        movlw 0x05\r\n"
    "        foo 1\r\n"
    "        nop\r\n"
    "        movlw 300\r\n";
const std::string kNoFile = "(no file)";

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

class AssemblerWindowTest : public SourceWindowTest<AssemblerWindow> {
  protected:
    void Open(const std::string& name, std::string_view text) {
        folder.Write(name, text);
        ChooseFile("menuopen", name);
    }
    OutputPane& Output() { return *window->findChild<OutputPane*>("RichTextBox2"); }
    int CaretLine() { return Source().textCursor().blockNumber() + 1; }
};

TEST_F(AssemblerWindowTest, ColorsTheLineThatTheCaretLeaves) {
    Type("  MOVLW 0x05 ; load  ");
    EXPECT_EQ(ColorsOfLine(Source(), 1), ".....................");
    Press(Qt::Key_Return);
    EXPECT_EQ(LineOf(Source(), 1), "  MOVLW 0x05 ; load");
    EXPECT_EQ(ColorsOfLine(Source(), 1), "..kkkkk......cccccc");
}

TEST_F(AssemblerWindowTest, OpensSavesAndRenames) {
    folder.Write("old.asm", "  nop  \nLOOP goto LOOP");
    person->texts.emplace_back(folder.path + "old.asm");
    Choose("menuopen");
    EXPECT_EQ(person->Shown(), Texts{"Open Assembler Source File|Assembler ASM files (*.asm)|*.asm|"
                                     "All files (*.*)|*.*|" +
                                     folder.path});
    EXPECT_EQ(Caption(), "Assembler - old.asm");
    EXPECT_EQ(SourceText(), "  nop\nLOOP goto LOOP\n");
    EXPECT_EQ(ColorsOfLine(Source(), 2), ".....kkkk.....");

    Press(Qt::Key_End, Qt::ControlModifier);
    Type("  sleep   ");
    Choose("menusave");
    EXPECT_EQ(folder.Read("old.asm"), "  nop\r\nLOOP goto LOOP\r\n  sleep\r\n");

    folder.Write("prog.asm", "precious");
    person->texts.emplace_back(folder.path + "prog.txt");
    person->answers = {false};
    Choose("menusaveas");
    EXPECT_EQ(person->Shown().back(),
              "Do you want to overwrite existing file " + folder.path + "prog.asm?");
    EXPECT_EQ(folder.Read("prog.asm"), "precious");
    EXPECT_EQ(Caption(), "Assembler - old.asm");

    person->texts.emplace_back(folder.path + "prog.txt");
    person->answers = {true};
    Choose("menusaveas");
    EXPECT_EQ(folder.Read("prog.asm"), folder.Read("old.asm"));
    EXPECT_EQ(Caption(), "Assembler - prog.asm");

    Choose("menunew");
    EXPECT_EQ(Caption(), "Assembler - UNTITLED");
    EXPECT_EQ(SourceText(), "");
}

TEST_F(AssemblerWindowTest, OpensAFileThatIsDroppedOnTheText) {
    Type("  nop");
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QString::fromStdString(folder.Write("a.asm", "  sleep")))});
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(Source().viewport(), &enter);
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(Source().viewport(), &drop);
    QCoreApplication::processEvents();
    EXPECT_EQ(SourceText(), "  sleep\n");
    EXPECT_EQ(Caption(), "Assembler - a.asm");
}

TEST_F(AssemblerWindowTest, RefusesWhatNeedsANameOrAText) {
    for (const char* command : {"menuassemble", "menuprint", "menuprint2"}) {
        Choose(command);
        EXPECT_EQ(person->Shown(), Texts{"Please save the file first."}) << command;
    }
    ChooseFile("menusaveas", "empty");
    Press(Qt::Key_A, Qt::ControlModifier);
    Press(Qt::Key_Delete);
    for (const char* command : {"menuassemble", "menuprint", "menuprint2"}) {
        Choose(command);
        EXPECT_EQ(person->Shown(), Texts{"The editor is empty."}) << command;
    }
}

TEST_F(AssemblerWindowTest, AssemblesWhatWasTypedIntoHexAndListing) {
    Type(kBlink);
    ChooseFile("menusaveas", "blink.first");
    Choose("menuassemble");
    EXPECT_EQ(person->Shown(), Texts{});
    EXPECT_EQ(folder.Read("blink.hex"),
              ":06000000831686010228B0\r\n:02400E00F13F80\r\n:00000001FF\r\n");
    EXPECT_EQ(Output().Text().toStdString(), folder.Read("blink.lst"));
    EXPECT_EQ(Output().currentIndex().data(), "Number of errors = 0");
    EXPECT_TRUE(window->findChild<QAction*>("menuassemble")->isEnabled());
    EXPECT_FALSE(window->findChild<QGroupBox*>("Frame1")->isVisible());
}

TEST_F(AssemblerWindowTest, LeadsToTheErrorsOfAFailedAssembly) {
    folder.Write("bad.hex", "older");
    folder.Write("bad.lst", "older");
    Open("bad.asm", kTwoErrors);
    Choose("menuassemble");
    EXPECT_EQ(person->Shown(), Texts{"Assembly was not successful.\r\n"
                                     "Your assembler source contains 2 errors."});
    EXPECT_EQ(folder.Read("bad.hex"), kNoFile);
    EXPECT_EQ(folder.Read("bad.lst"), kNoFile);
    const QModelIndex message = Output().model()->index(6, 0);
    EXPECT_TRUE(message.data().toString().startsWith("0002 Error: Unrecognized instruction."));

    Choose("menunexterror");
    EXPECT_EQ(CaretLine(), 2);
    Choose("menunexterror");
    EXPECT_EQ(CaretLine(), 4);
    Choose("menunexterror");
    EXPECT_EQ(CaretLine(), 2) << "behind the last one comes the first";
    Choose("menupreviouserror");
    EXPECT_EQ(CaretLine(), 4);

    Output().scrollTo(message);
    QTest::mouseClick(Output().viewport(), Qt::LeftButton, {},
                      Output().visualRect(message).center());
    EXPECT_EQ(CaretLine(), 2);
    Output().setCurrentIndex(message);
    QTest::keyClick(&Output(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), message.data().toString() + "\n");

    Type("nop ;");
    Choose("menunexterror");
    EXPECT_EQ(CaretLine(), 4);
    Type(";");
    Choose("menuassemble");
    EXPECT_EQ(person->Shown(), Texts{});
    EXPECT_NE(folder.Read("bad.hex"), kNoFile);
    EXPECT_FALSE(window->findChild<QAction*>("menunexterror")->isEnabled());
}

TEST_F(AssemblerWindowTest, WarnsWhenTheProgramDoesNotFitTheChip) {
    Open("far.asm", "  org 0x400\r\n  nop\r\n  sleep\r\n");
    Choose("menuassemble");
    EXPECT_EQ(person->Shown(), Texts{});
    EXPECT_NE(Output().Text().indexOf("Warning in line 2: The program does not fit"), -1);
    Choose("menunexterror");
    EXPECT_EQ(CaretLine(), 2);
}

TEST_F(AssemblerWindowTest, AFailedSaveLosesNothing) {
    Type("  nop");
    std::filesystem::create_directory(folder.path + "gone");
    ChooseFile("menusaveas", "gone/prog.asm");
    std::filesystem::remove_all(folder.path + "gone");
    Type("  sleep");
    for (const char* command : {"menusave", "menuassemble"}) {
        Choose(command);
        EXPECT_EQ(person->Shown(), Texts{"File '" + folder.path +
                                         "gone/prog.asm' could not be written.\r\n"
                                         "No such file or directory."});
        EXPECT_EQ(SourceText(), "  sleep  nop\n");
        EXPECT_EQ(Caption(), "Assembler - prog.asm");
    }
}

TEST_F(AssemblerWindowTest, TurnsColorsOffAndRemembersIt) {
    Open("a.asm", "  nop  ; x\r\n");
    EXPECT_EQ(ColorsOfLine(Source(), 1), "..kkk..ccc");
    Choose("menunocolors");
    EXPECT_EQ(store.values["Turn Off Colors"], "ON");
    EXPECT_EQ(ColorsOfLine(Source(), 1), "..........");
    Press(Qt::Key_End);
    Type("   ");
    Press(Qt::Key_Down);
    Choose("menusave");
    EXPECT_EQ(folder.Read("a.asm"), "  nop  ; x   \r\n");
    OpenWindow();
    EXPECT_TRUE(window->findChild<QAction*>("menunocolors")->isChecked());
    Open("a.asm", "  nop  ");
    EXPECT_EQ(ColorsOfLine(Source(), 1), ".......");
    Choose("menunocolors");
    EXPECT_EQ(store.values["Turn Off Colors"], "OFF");
    EXPECT_EQ(ColorsOfLine(Source(), 1), "..kkk");
}

TEST_F(AssemblerWindowTest, SelectsConfigurationBitsForTheHexFile) {
    WhenAsked([](QWidget* dialog) {
        dialog->findChild<QRadioButton*>("op11")->click();
        dialog->findChild<QRadioButton*>("op22")->click();
        dialog->findChild<QRadioButton*>("op42")->click();
        dialog->findChild<QAbstractButton*>("Command1")->click();
    });
    Choose("menuconfig");
    EXPECT_EQ(workbench->ConfigurationWord(), 0x000A);
    WhenAsked([](QWidget* dialog) {
        dialog->findChild<QRadioButton*>("op12")->click();
        dialog->close();
    });
    Choose("menuconfig");
    EXPECT_EQ(workbench->ConfigurationWord(), 0x000A);
}

TEST_F(AssemblerWindowTest, KeepsItsSizeAndDivider) {
    store.values["Save Positions"] = "ON";
    Start(models::kDefaultModel);
    window->resize(500, 600);
    auto* divider = window->findChild<QSplitter*>("VScroll1");
    QCoreApplication::processEvents();
    divider->setSizes({150, 350});
    const QList<int> sizes = divider->sizes();
    window->close();
    EXPECT_EQ(store.values["Window17 Width"], "7500");
    EXPECT_EQ(store.values["Window17 Height"], "9000");
    OpenWindow();
    EXPECT_EQ(window->size(), QSize(500, 600));
    QCoreApplication::processEvents();
    EXPECT_NEAR(window->findChild<QSplitter*>("VScroll1")->sizes()[0], sizes[0], 2);
    EXPECT_EQ(window->minimumSize(), QSize(367, 403));
}

TEST_F(AssemblerWindowTest, AClosedWindowFinishesItsAssembly) {
    std::string source;
    for (int line = 0; line < 5000; ++line) {
        source += "        movlw 0x05 ; once more\r\n";
    }
    Open("long.asm", source);
    window->findChild<QAction*>("menuassemble")->trigger();
    QTimer::singleShot(0, window, &QWidget::close);  // seen while it assembles, or behind it
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(window.isNull());
    EXPECT_FALSE(workbench->Windows().IsOpen(app::Window::Assembler));
    EXPECT_TRUE(folder.Read("long.hex").ends_with(":00000001FF\r\n"));
}

TEST_F(AssemblerWindowTest, PrintsSourceAndListing) {
    Open("blink.asm", kBlink);
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
}

}  // namespace

}  // namespace corvane::ui
