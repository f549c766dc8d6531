#include "app/workbench.h"

#include "app/source_file.h"
#include "app/translate.h"
#include "fakes.h"

namespace corvane::app {
namespace {

TEST_F(WorkbenchTest, MenusAreDisabledUntilTheLoaderHasReported) {
    ASSERT_TRUE(StartUp());
    views.commandsSeen.clear();
    Load({0});
    ASSERT_EQ(views.commandsSeen.size(), 2U);
    EXPECT_FALSE(views.commandsSeen[0].menusEnabled);
    EXPECT_TRUE(views.commandsSeen[1].menusEnabled);
}

TEST_F(WorkbenchTest, ABadDescriptionFileEndsTheApplication) {
    ASSERT_TRUE(StartUp());
    fs::remove(folder.path + "pic16f83.cfg");
    folder.Write("pic16f873.cfg", "***** Section 1 *****\n00C,00C,RAM,00,ff\n");
    dialogs.models = {0, 2};
    EXPECT_FALSE(workbench->SelectMicrocontroller());
    EXPECT_FALSE(workbench->SelectMicrocontroller());
    EXPECT_FALSE(StartUp()) << "the choice has been stored";
    const Texts shown = dialogs.Shown();
    EXPECT_EQ(shown[1], "File 'pic16f83.cfg' could not be found.\r\nThe program will now end.");
    EXPECT_EQ(shown[3], "File 'pic16f873.cfg' corrupted.\r\nThe program will now end.");
    EXPECT_EQ(shown[4], shown[3]);
    EXPECT_TRUE(StartUp(7)) << "another model was named at the start";
    EXPECT_EQ(workbench->Model().name, "PIC16F628");
}

TEST_F(WorkbenchTest, WindowsAboveTheOthers) {
    ASSERT_TRUE(StartUp());
    OpenWindows& windows = workbench->Windows();
    Open({Window::ChipView62x, Window::Assembler, Window::ProgramMemoryViewer,
          Window::HardwareStackViewer});
    windows.SetAlwaysOnTop(Window::ChipView62x, true);
    windows.SetAlwaysOnTop(Window::HardwareStackViewer, true);
    windows.SetAlwaysOnTop(Window::ProgramMemoryViewer, true);
    windows.SetAlwaysOnTop(Window::ProgramMemoryViewer, false);
    EXPECT_EQ(views.Calls(), (Texts{"top 22", "top 7", "top 4", "untop 4", "top 7", "top 22"}));
    Open({Window::HardwareStackViewer});  // opened again: its box is clear
    windows.SetAlwaysOnTop(Window::ProgramMemoryViewer, false);
    EXPECT_EQ(views.Calls(), (Texts{"untop 4", "top 22"}));
    workbench->CloseSecondaryWindows();
    EXPECT_EQ(views.Calls(), (Texts{"close 4", "close 7", "close 17", "close 22"}));
    EXPECT_FALSE(windows.IsOpen(Window::Assembler));
}

TEST_F(WorkbenchTest, AViewThatIsOpenIsDrawnAfterAChange) {
    ASSERT_TRUE(StartUp(5));
    workbench->TogglePin({.port = 1, .bit = 5});
    workbench->ToggleBreakpoint(dialogs, 3);
    EXPECT_EQ(views.Calls(), Texts{"refresh 1"}) << "the views are closed";
    Open({Window::ChipView40, Window::BreakpointsManager});
    workbench->TogglePin({.port = 1, .bit = 5});
    workbench->SetAnalogValue(0, 512);
    workbench->ToggleBreakpoint(dialogs, 4);
    workbench->ClearBreakpoints();
    EXPECT_EQ(views.Calls(), (Texts{"refresh 1", "refresh 11", "refresh 15", "refresh 1",
                                    "refresh 11", "refresh 15", "refresh 11", "refresh 11"}));
}

TEST_F(WorkbenchTest, AnAssemblyLeavesItsFilesOnlyWithoutErrors) {
    folder.Write("pic16f84.cfg", PlainDescription("PORTB EQU 6\r\n3ABC EQU 1\r\n"));
    ASSERT_TRUE(StartUp());
    SourceFile file(kAssemblerSource, workbench->Settings(), dialogs);
    ASSERT_TRUE(file.OpenPath(folder.Write("test.old.asm", "")));
    AssembleSource(*workbench, dialogs, file, " MOVWF PORTB\r\n");
    EXPECT_EQ(dialogs.Shown(), Texts{"Invalid argument of the EQU directive.\r\n"
                                     "File 'pic16f84.cfg' is corrupted."});
    EXPECT_TRUE(folder.Read("test.hex").starts_with(":0200000086007"));
    AssembleSource(*workbench, dialogs, file, " GOTO A\r\n");
    EXPECT_EQ(folder.Read("test.lst") + folder.Read("test.hex"), "(no file)(no file)");
}

}  // namespace
}  // namespace corvane::app
