#include "ui/disasm/disassembler_window.h"

#include <QGroupBox>
#include <QPlainTextEdit>
#include <QPrinter>

#include "ui/desktop_fixture.h"

namespace corvane::ui {
namespace {

class DisassemblerWindowTest : public DesktopTest {
  public:
    void SetUp() override {
        Start();
        Load({0x3005, 0x0086, 0x2802});
    }
    void OpenWindow() {
        window = dynamic_cast<DisassemblerWindow*>(&Open(app::Window::Disassembler));
    }
    QPlainTextEdit& Viewer() const { return *Child<QPlainTextEdit>(*window, "RichTextBox1"); }

    QPointer<DisassemblerWindow> window;
};

TEST_F(DisassemblerWindowTest, PrintsUnderTheNameOfTheProgram) {
    OpenWindow();
    ASSERT_TRUE(WaitFor([this] { return !Child<QGroupBox>(*window, "Frame1")->isVisible(); }));
    std::string printed;
    window->SetPrinterChooser([&](const QPrinter& printer) {
        printed = printer.docName().toStdString();
        return false;
    });
    Child<QAction>(*window, "menuprint")->trigger();
    EXPECT_EQ(printed, "") << "whoever chose the command waits for its dialogs";
    QCoreApplication::processEvents();
    EXPECT_EQ(printed, "program.hex");
}

TEST_F(DisassemblerWindowTest, MayBeClosedWhileItIsBusy) {
    OpenWindow();
    ASSERT_TRUE(WaitFor([this] { return !Viewer().toPlainText().isEmpty(); }));
    window->close();
    EXPECT_TRUE(WaitFor([&] { return window.isNull(); }));
    OpenWindow();
    desktop.reset();
    EXPECT_TRUE(window.isNull());
}

}  // namespace
}  // namespace corvane::ui
