#include "ui/disasm/disassembler_window.h"

#include <QGroupBox>
#include <QPlainTextEdit>
#include <QPrinter>

#include "disasm/listing.h"
#include "ui/debugging_fixture.h"

namespace corvane::ui {
namespace {

using disasm::ListingFormat;

class DisassemblerWindowTest : public DebuggingTest {
  public:
    void SetUp() override {
        Start();
        Load({0x3005, 0x0086, 0x2802});
    }
    void OpenWindow() {
        window = dynamic_cast<DisassemblerWindow*>(&Open(app::Window::Disassembler));
    }
    bool IsBusy() const { return Child<QGroupBox>(*window, "Frame1")->isVisible(); }
    bool WaitForListing() {
        return WaitFor([this] { return !IsBusy(); });
    }
    QPlainTextEdit& Viewer() const { return *Child<QPlainTextEdit>(*window, "RichTextBox1"); }
    std::string Expected(ListingFormat format) {
        return common::WithLf(
            disasm::DisassembleProgram(desktop->Workbench().LoadedProgram(), format));
    }
    std::string Listing() const { return Viewer().toPlainText().toStdString(); }
    QAction& Command(const char* name) const { return *Child<QAction>(*window, name); }

    DisassemblerWindow* window = nullptr;
};

TEST_F(DisassemblerWindowTest, ListsTheProgramWithAndWithoutOpcodes) {
    OpenWindow();
    EXPECT_TRUE(IsBusy());
    EXPECT_EQ(Child<QGroupBox>(*window, "Frame1")->title(), "Disassembling in progress...");
    EXPECT_EQ(TextOf(*window, "Label1"), "");
    EXPECT_EQ(Listing(), "");
    for (const char* menu : {"menu1", "menu2"}) {
        EXPECT_FALSE(Child<QMenu>(*window, menu)->menuAction()->isEnabled());
    }
    EXPECT_EQ(store.values.at("Listing Without Opcodes"), "OFF");
    ASSERT_TRUE(WaitForListing());
    EXPECT_EQ(Listing(), Expected(ListingFormat::WithOpcodes));
    EXPECT_EQ(TextOf(*window, "Label1"), "Performing pass 1.");
    EXPECT_EQ(TextOf(*window, "Label2"), "Line 3");

    EXPECT_FALSE(Command("menunoopcodes").isChecked());
    Command("menunoopcodes").trigger();
    EXPECT_TRUE(IsBusy());
    EXPECT_EQ(store.values.at("Listing Without Opcodes"), "ON");
    ASSERT_TRUE(WaitForListing());
    EXPECT_EQ(Listing(), Expected(ListingFormat::WithoutOpcodes));
    for (const char* menu : {"menu1", "menu2"}) {
        EXPECT_TRUE(Child<QMenu>(*window, menu)->menuAction()->isEnabled());
    }

    window->close();
    OpenWindow();
    EXPECT_TRUE(Command("menunoopcodes").isChecked()) << "remembered";
}

TEST_F(DisassemblerWindowTest, SavesAndPrints) {
    OpenWindow();
    ASSERT_TRUE(WaitForListing());
    folder.Write("saved.lst", "old");
    person->texts.assign(3, folder.path + "saved.old.txt");
    person->texts[0].reset();
    person->answers = {false, true};
    const auto listingAfterSave = [this] {
        Command("menusave").trigger();
        return folder.Read("saved.lst");
    };
    EXPECT_EQ(listingAfterSave(), "old") << "cancelled";
    EXPECT_EQ(person->Shown().at(0).substr(0, 28), "Save Disassembler Listing As");
    EXPECT_EQ(listingAfterSave(), "old") << "not to be overwritten";
    EXPECT_EQ(listingAfterSave(), common::WithCrLf(Expected(ListingFormat::WithOpcodes)));

    std::string printed;
    window->SetPrinterChooser([&](const QPrinter& printer) {
        printed = printer.docName().toStdString();
        return false;
    });
    Command("menuprint").trigger();
    EXPECT_EQ(printed, "program.hex");
    Viewer().clear();
    Command("menuprint").trigger();
    EXPECT_EQ(person->Shown().back(), "The viewer is empty.");
}

TEST_F(DisassemblerWindowTest, MayBeClosedWhileItIsBusy) {
    for (const bool isListed : {false, true}) {
        OpenWindow();
        const QPointer<DisassemblerWindow> closed = window;
        if (isListed) {
            ASSERT_TRUE(WaitFor([this] { return !Listing().empty(); }));
        }
        ASSERT_TRUE(IsBusy());
        window->close();
        EXPECT_TRUE(WaitFor([&] { return closed.isNull(); }));
    }
    Load({0x0000});  // which an open window forbids
    OpenWindow();
    const QPointer<DisassemblerWindow> left = window;
    desktop.reset();
    EXPECT_TRUE(left.isNull());
}

}  // namespace
}  // namespace corvane::ui
