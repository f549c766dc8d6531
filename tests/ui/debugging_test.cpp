#include <QCheckBox>
#include <QPlainTextEdit>
#include <QPushButton>

#include "ui/asm/output_pane.h"
#include "ui/debugging_fixture.h"

namespace corvane::ui {
namespace {

// From the source to the end of the program, as a person finds out how an example works.
TEST_F(DebuggingTest, AnExampleFromItsSourceToSleep) {
    store.values = {{"Simulation Rate", "5"}};
    Start();
    const std::string source =
        common::ReadTextFile(CORVANE_SOURCE_DIR "/examples/deep_calls.asm").value.value_or("");
    folder.Write("deep_calls.asm", source);

    QWidget& assembler = Open(app::Window::Assembler);
    person->texts = {folder.path + "deep_calls.asm"};
    Child<QAction>(assembler, "menuopen")->trigger();
    ASSERT_TRUE(WaitFor([&] { return assembler.windowTitle().endsWith("deep_calls.asm"); }));
    Child<QAction>(assembler, "menuassemble")->trigger();
    const auto* output = Child<OutputPane>(assembler, "RichTextBox2");
    ASSERT_TRUE(WaitFor([=] { return output->Text().endsWith("Number of errors = 0\r\n"); }));
    assembler.close();

    dialogs->texts = {folder.path + "deep_calls.hex"};
    Trigger("menuload");
    EXPECT_EQ(dialogs->Shown().back().substr(0, 20), "Operation completed.");
    OpenManager({true});
    Press(Qt::Key_End);
    const auto rowOf = [this](const std::string& text) {
        int row = 0;
        while (Row(row).Text().find(text) == std::string::npos) {
            ++row;
        }
        return row;
    };
    for (const char* line : {"CALL DOWN", "INCF CALLS,F", "SLEEP"}) {
        Click(rowOf(line));
    }
    EXPECT_EQ(Slots(), "0004 0005 0006");
    Child<QCheckBox>(*manager, "Check2")->click();

    const auto isWaiting = [this] { return desktop->Workbench().Commands().canStep; };
    const auto runOn = [&] {
        Trigger("menuspeed5");
        ASSERT_TRUE(WaitFor(isWaiting));
    };
    Trigger("menustart");
    ASSERT_TRUE(WaitFor(isWaiting));
    EXPECT_EQ(Text("qpc"), "0004");
    EXPECT_EQ(store.values.at("Simulation Rate"), "1");
    EXPECT_EQ(Row(PcRow()).accessibleName().section(',', 1).toStdString(),
              " breakpoint, current instruction");
    runOn();
    EXPECT_EQ(Text("qpc"), "0006");
    Trigger("menustep");
    EXPECT_EQ(Text("qpc"), "0007") << "over the breakpoint";
    for (int call = 2; call <= 8; ++call) {
        runOn();
        EXPECT_EQ(Text("qpc"), "0006") << call;
    }
    Child<QPushButton>(*manager, "Command1")->click();
    Trigger("menuspeed5");
    ASSERT_TRUE(WaitFor([this] { return desktop->Workbench().Commands().canStart; }));
    EXPECT_EQ(Text("qinst"), "SLEEP");
    EXPECT_EQ(dialogs->Shown().back().substr(0, 41), "Total number of executed instructions is ");
    EXPECT_EQ(Row(PcRow()).Address(), 0x0005);
}

}  // namespace
}  // namespace corvane::ui
