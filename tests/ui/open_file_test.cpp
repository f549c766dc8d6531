#include <gtest/gtest.h>

#include <QPlainTextEdit>
#include <QTextBlock>

#include "desktop_fixture.h"

namespace corvane::ui {
namespace {

TEST_F(DesktopTest, AFileIsLoadedOrOpenedByItsExtension) {
    struct Case {
        const char* name;
        const char* text;
        std::optional<app::Window> window;
    };
    const Case cases[] = {
        {"a.HEX", ":00000001FF\r\n", std::nullopt},
        {"b.asm", " NOP\r\n", app::Window::Assembler},
        {"c.BAS", "Dim a As Byte\r\n", app::Window::BasicCompiler},
    };
    Start();
    for (const Case& c : cases) {
        desktop->OpenFile(QString::fromStdString(folder.Write(c.name, c.text)));
        if (!c.window) {
            EXPECT_EQ(dialogs->Shown(),
                      Texts{"Operation completed.\r\nTotal 0 (0K) program words loaded."});
            continue;
        }
        SecondaryWindow* window = desktop->Find(*c.window);
        ASSERT_NE(window, nullptr) << c.name;
        EXPECT_TRUE(window->windowTitle().endsWith(c.name)) << c.name;
        const auto* editor = Child<QPlainTextEdit>(*window, "RichTextBox1");
        EXPECT_EQ(editor->document()->firstBlock().text().toStdString() + "\r\n", c.text);
    }
    desktop->OpenFile("/nowhere/d.hex");
    EXPECT_EQ(dialogs->Shown(), Texts{"File '/nowhere/d.hex' could not be opened."});
}

}  // namespace
}  // namespace corvane::ui
