#include "app/workbench.h"

#include "app/edited_program.h"
#include "app/source_file.h"
#include "app/source_value.h"
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

// The place is where "|" stands.
TEST_F(WorkbenchTest, NamesInSourceLines) {
    struct Case {
        const char* line;
        const char* name;
    };
    const auto assembler = project::ProgramKind::Assembler;
    const auto basic = project::ProgramKind::Basic;
    const std::map<project::ProgramKind, std::vector<Case>> cases = {
        {assembler,
         {{"LOOP:  MOVWF COU|NT ; COUNT", "COUNT"},
          {"LOOP:  MOVWF COUNT| ; COUNT", "COUNT"},
          {"LOOP:  MOVWF COUNT ; CO|UNT", ""},
          {"|LOOP:  MOVWF COUNT", "LOOP"},
          {"  MOVLW |25", ""},
          {"  bsf STATUS , R|P0", "STATUS.RP0"},
          {"A: btfss STATUS,|5", "STATUS.5"},
          {"  bsf ST|ATUS,RP0", "STATUS"},
          {"  movf COUNT,|W", "W"},
          {" ,|W", "W"},
          {"|", ""}}},
        {basic,
         {{"PORTB.|0 = 1", "PORTB.0"},
          {"POR|TB.0 = 1", "PORTB"},
          {"a = b|.c", "b"},
          {"a = .|c", ""},
          {"a = 5|", ""},
          {"root = Sqr(|n) 'n", "n"},
          {"root = Sqr(n) '|n", ""}}},
    };
    for (const auto& [kind, rows] : cases) {
        for (const Case& row : rows) {
            std::string line = row.line;
            const std::size_t place = line.find('|');
            EXPECT_EQ(NameAt(line.erase(place, 1), place, kind), row.name) << row.line;
        }
    }
}

TEST_F(WorkbenchTest, BreakpointsOfASourceWaitForItsProgram) {
    ASSERT_TRUE(StartUp());
    workbench->Simulation().SetRate(SimulationRate::StepByStep);
    const std::string text = " nop\n; a remark\n nop\n goto 1\n";
    const auto program = [&](const std::string& edited) {
        return EditedProgram(*workbench, "/a.asm", project::ProgramKind::Assembler, edited);
    };
    EXPECT_EQ(program(text).error, "") << "nothing is loaded";
    Load({0, 0, 0x2801});
    EXPECT_EQ(program(text + " clrw\n").error, "Not loaded: another program is");
    EXPECT_EQ(program(text + " nip\n").error, "Not loaded: the text has errors");
    EXPECT_TRUE(program(text + "; another remark\n"));
    const auto found = program(text);
    ASSERT_TRUE(found);
    const auto stepsToBreakpoint = [&] {
        int steps = 0;
        for (workbench->Simulation().Start(); ++steps < 9;) {
            workbench->Simulation().Step();
            if (workbench->Simulation().Status().condition == RunCondition::AtBreakpoint) {
                break;
            }
        }
        workbench->Simulation().Stop();
        dialogs.Shown();
        return steps;
    };
    workbench->ChangeStops([](StopList& stops) {
        stops.Add("/other.asm", 1);
        stops.Add("/a.asm", 2);
        stops.Add("/a.asm", 9);
    });
    EXPECT_EQ(stepsToBreakpoint(), 9);
    workbench->ChangeStops([&](StopList& stops) { stops.Resolve("/a.asm", &*found); });
    EXPECT_EQ(stepsToBreakpoint(), 1) << "the next line with words";
    EXPECT_EQ(NextLine(*found, workbench->Processor().state), 3);
    workbench->ToggleBreakpoint(dialogs, 2);
    workbench->ChangeStops([&](StopList& stops) {
        stops.MoveTo(2, 4);
        stops.Rename("/a.asm", "/b.asm");
        stops.Resolve("/a.asm", nullptr);
        EXPECT_EQ(stops.All()[1].stop.text, "break b.asm:4");
        EXPECT_EQ(stops.Addresses(), (std::vector<int>{1}));
        stops.Resolve("/b.asm", &*found);
        EXPECT_EQ(stops.Addresses(), (std::vector<int>{2}));
        stops.RemoveOf("/b.asm");
    });
    EXPECT_EQ(stepsToBreakpoint(), 2) << "the Breakpoints Manager's";
    ASSERT_EQ(workbench->Stops().All().size(), 1U);
    EXPECT_EQ(workbench->Stops().All()[0].file, "/other.asm");
    Load({0, 0, 0x2801});
    EXPECT_EQ(stepsToBreakpoint(), 9) << "its ten belong to the program that was loaded";
}

}  // namespace
}  // namespace corvane::app
