#include "app/workbench.h"

#include "fakes.h"

namespace corvane::app {
namespace {

constexpr int kSleep = 0x0063;

TEST_F(WorkbenchTest, EveryGuardComesBeforeTheNextOne) {
    using Command = void (*)(Workbench&);
    const Command load = [](Workbench& w) { w.LoadProgram(); };
    const Command loadFile = [](Workbench& w) { w.LoadProgramFile("/nowhere/a.hex"); };
    const Command select = [](Workbench& w) { EXPECT_TRUE(w.SelectMicrocontroller()); };
    const Command clockFrequency = [](Workbench& w) { w.ChangeClockFrequency(); };
    const Command writeTime = [](Workbench& w) { w.ChangeEepromWriteTime(); };
    const Command conversionTime = [](Workbench& w) { w.ChangeAdConversionTime(); };
    const Window disassembler = Window::Disassembler;
    const Window breakpoints = Window::BreakpointsManager;
    const Window basic = Window::BasicCompiler;
    const Window assembler = Window::Assembler;
    struct Case {
        Command command;
        std::vector<Window> guards;  // in their order, behind the running simulation
    };
    const Case cases[] = {
        {load, {disassembler, breakpoints}},
        {loadFile, {disassembler, breakpoints}},
        {select, {disassembler, breakpoints, basic, assembler}},
        {clockFrequency, {basic, assembler}},
        {writeTime, {}},
        {conversionTime, {}},
    };
    const std::map<Window, std::string> names = {{disassembler, "Disassembler"},
                                                 {breakpoints, "Breakpoints Manager"},
                                                 {basic, "BASIC Compiler"},
                                                 {assembler, "Assembler"}};
    for (const Case& c : cases) {
        store.values = {{"Simulation Rate", "1"}};
        ASSERT_TRUE(StartUp());
        Open({disassembler, breakpoints, basic, assembler, Window::ProgramMemoryViewer});
        workbench->Simulation().Start();
        views.Calls();
        c.command(*workbench);
        EXPECT_EQ(dialogs.Shown(), Texts{"Please stop the simulation first."});
        workbench->Simulation().Stop();
        dialogs.Shown();
        for (const Window guard : c.guards) {
            c.command(*workbench);
            EXPECT_EQ(dialogs.Shown(), Texts{"Please close " + names.at(guard) + " window first."});
            workbench->Windows().Closed(guard);
        }
        EXPECT_EQ(views.Calls(), Texts{}) << "a refused command does nothing";
    }
}

TEST_F(WorkbenchTest, LoadingAProgram) {
    ASSERT_TRUE(StartUp());
    Open({Window::ProgramMemoryViewer, Window::ChipView18});
    workbench->ToggleBreakpoint(dialogs, 3);
    fs::create_directory(folder.path + "sub");
    const std::string path = folder.Write("sub/a.hex", HexOf({0x3005, 0x0086, kSleep}));
    dialogs.texts = {path};
    views.Calls();
    workbench->LoadProgram();

    EXPECT_EQ(dialogs.Shown(),
              (Texts{"Select Program File|Intel HEX files (*.hex)|*.hex|All files (*.*)|*.*|" +
                         folder.path,
                     "Operation completed.\r\nTotal 3 (.002K) program words loaded."}));
    EXPECT_EQ(views.Calls(), (Texts{"program", "memorijaprint", "refreshpic", "ekran"}));
    EXPECT_EQ(workbench->ProgramPath(), path);
    EXPECT_EQ(workbench->LoadedWords(), 3);
    EXPECT_EQ(workbench->LoadedProgram().back(), kSleep);
    EXPECT_TRUE(workbench->Breakpoints().Addresses().empty());
    EXPECT_EQ(store.values.at("Last Path"), folder.path + "sub/");
    EXPECT_TRUE(workbench->Commands().menusEnabled);

    dialogs.texts = {std::nullopt};
    workbench->LoadProgram();
    EXPECT_EQ(workbench->LoadedWords(), 3) << "cancelled";
    dialogs.Shown();

    workbench->LoadProgramFile(folder.path + "gone.hex");
    EXPECT_EQ(dialogs.Shown(), Texts{"File '" + folder.path + "gone.hex' could not be opened."});
    EXPECT_EQ(workbench->ProgramPath(), path) << "the program is still there";
    EXPECT_EQ(store.values.at("Last Path"), folder.path);
    EXPECT_TRUE(workbench->Commands().menusEnabled);

    workbench->ToggleBreakpoint(dialogs, 3);
    workbench->LoadProgramFile(
        folder.Write("bad.hex", HexOf({1, 2}).substr(0, 19) + "\r\n\r\n:00\r\n"));
    EXPECT_EQ(dialogs.Shown(), Texts{"Input program file in Intel Hex Format contains errors.\r\n"
                                     "Line number 3: The record is too short."});
    EXPECT_EQ(workbench->ProgramPath(), "");
    EXPECT_EQ(workbench->LoadedWords(), 0);
    EXPECT_EQ(workbench->Processor().state.programMemory[0], 0);
    EXPECT_TRUE(workbench->Breakpoints().Addresses().empty());
    EXPECT_TRUE(workbench->Commands().menusEnabled);
}

TEST_F(WorkbenchTest, MenusAreDisabledUntilTheLoaderHasReported) {
    ASSERT_TRUE(StartUp());
    views.commandsSeen.clear();
    Load({0});
    ASSERT_EQ(views.commandsSeen.size(), 2U);
    EXPECT_FALSE(views.commandsSeen[0].menusEnabled);
    EXPECT_TRUE(views.commandsSeen[1].menusEnabled);
}

TEST_F(WorkbenchTest, NumbersThatAPersonTypes) {
    struct Case {
        std::optional<std::string> answer;
        const char* clockFrequency;  // settings values; empty: as before
        const char* clockCycles;
    };
    const Case cases[] = {
        {"2.5", "2.5", "2"},
        {"3.579545", "3.579545", "4"},
        {"100.5", "100.5", "100"},
        {"101.5", "101.5", "102"},
        {" 20 MHz", "20", "20"},
        {"1e2", "100", "100"},
        {".5", "0.5", ""},
        {"0.6", "0.6", "1"},
        {"0", "", ""},
        {"-1", "", ""},
        {"", "", ""},
        {"MHz 4", "", ""},
        {"inf", "", ""},
        {"nan", "", ""},
        {"1e999", "", ""},
        {"3000000000", "3000000000", ""},
        {std::nullopt, "", ""},
    };
    for (const Case& c : cases) {
        store.values = {};
        ASSERT_TRUE(StartUp());
        dialogs.texts = {c.answer, c.answer, c.answer};
        workbench->ChangeClockFrequency();
        workbench->ChangeEepromWriteTime();
        workbench->ChangeAdConversionTime();
        EXPECT_EQ(dialogs.Shown(), (Texts{"Enter new clock frequency [MHz].|4",
                                          "Enter new EEPROM write time [clock cycles].|1000",
                                          "Enter new A/D conversion time [clock cycles].|100"}));
        const auto orElse = [](const char* text, const char* before) {
            return std::string(*text == 0 ? before : text);
        };
        const std::string name = c.answer.value_or("cancel");
        EXPECT_EQ(store.values.at("Clock Frequency"), orElse(c.clockFrequency, "4")) << name;
        EXPECT_EQ(store.values.at("EEPROM Write Time"), orElse(c.clockCycles, "1000")) << name;
        EXPECT_EQ(store.values.at("A/D Conversion Time"), orElse(c.clockCycles, "100")) << name;
        EXPECT_EQ(std::to_string(workbench->Processor().eepromWriteTime),
                  orElse(c.clockCycles, "1000"));
        EXPECT_EQ(std::to_string(workbench->Processor().adConversionTime),
                  orElse(c.clockCycles, "100"));
    }
}

TEST_F(WorkbenchTest, SelectingAModelStartsAfresh) {
    ASSERT_TRUE(StartUp());
    Load({0x3005});
    dialogs.texts = {"77", "8"};
    workbench->ChangeEepromWriteTime();
    workbench->SetConfigurationWord(0x0A);
    Open({Window::HardwareStackViewer, Window::ChipView18});
    views.Calls();
    dialogs.Shown();

    dialogs.models = {std::nullopt};
    EXPECT_TRUE(workbench->SelectMicrocontroller());
    EXPECT_EQ(dialogs.Shown(), Texts{"model 1"});
    EXPECT_EQ(views.Calls(), (Texts{"close 7", "close 12"}));
    EXPECT_EQ(workbench->LoadedWords(), 1) << "cancelled: all stays";
    EXPECT_EQ(store.values.at("Microcontroller Model"), "1");

    for (const int row : {5, 5}) {
        workbench->ToggleBreakpoint(dialogs, 0x12);
        dialogs.models = {row};
        EXPECT_TRUE(workbench->SelectMicrocontroller());
        EXPECT_EQ(views.Calls(), (Texts{"program", "model", "ekran"}));
        EXPECT_EQ(workbench->Model().name, "PIC16F877");
        EXPECT_EQ(workbench->LoadedWords(), 0);
        EXPECT_EQ(workbench->ProgramPath(), "");
        EXPECT_EQ(workbench->Processor().state.programMemory[0], 0);
        EXPECT_EQ(workbench->ConfigurationWord(), 0x3D71);
        EXPECT_EQ(workbench->Processor().eepromWriteTime, 77);
        EXPECT_EQ(workbench->Breakpoints().Slots()[0], "0012");
        EXPECT_EQ(store.values.at("Microcontroller Model"), "5");
        Load({0x3005});
    }
    EXPECT_EQ(workbench->MicrocontrollerViewTitle(), "Microcontroller View - PIC16F877");
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

TEST_F(WorkbenchTest, WindowsOpenAndClose) {
    ASSERT_TRUE(StartUp());
    workbench->OpenWindow(Window::Disassembler);
    workbench->OpenWindow(Window::BreakpointsManager);
    EXPECT_EQ(dialogs.Shown(), (Texts{"No program loaded.", "No program loaded."}));
    Load({0});
    workbench->OpenWindow(Window::Disassembler);
    workbench->OpenWindow(Window::BreakpointsManager);
    workbench->OpenWindow(Window::Assembler);
    workbench->OpenMicrocontrollerView();
    EXPECT_EQ(views.Calls(), (Texts{"show 9", "show 11", "show 17", "show 12"}));

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

TEST_F(WorkbenchTest, EveryFamilyHasItsView) {
    const std::map<int, Window> expected = {{0, Window::ChipView18},  {1, Window::ChipView18},
                                            {2, Window::ChipView28},  {3, Window::ChipView40},
                                            {4, Window::ChipView28},  {5, Window::ChipView40},
                                            {6, Window::ChipView62x}, {7, Window::ChipView62x}};
    for (const auto& [row, window] : expected) {
        ASSERT_TRUE(StartUp(row));
        workbench->OpenMicrocontrollerView();
        EXPECT_EQ(views.Calls(), Texts{"show " + std::to_string(static_cast<int>(window))});
    }
}

TEST_F(WorkbenchTest, SavePositionsIsStoredAtOnce) {
    ASSERT_TRUE(StartUp());
    for (const char* value : {"ON", "OFF", "ON"}) {
        workbench->ToggleSavePositions();
        EXPECT_EQ(store.values.at("Save Positions"), value);
        EXPECT_EQ(views.commandsSeen.back().savePositions, value == std::string("ON"));
    }
}

TEST_F(WorkbenchTest, PinsAndAnalogValuesRedrawTheChip) {
    ASSERT_TRUE(StartUp(5));
    workbench->TogglePin({.port = 1, .bit = 5});
    EXPECT_EQ(views.Calls(), Texts{}) << "the view is closed";
    EXPECT_EQ(workbench->Processor().state.dataMemory[0x0B] & 1, 0) << "no edge while stopped";
    Open({Window::ChipView40});
    workbench->Simulation().SetRate(SimulationRate::StepByStep);
    workbench->Simulation().Start();
    views.Calls();
    workbench->TogglePin({.port = 1, .bit = 5});
    EXPECT_EQ(workbench->Processor().state.pinInputs[1], 0x20);
    EXPECT_EQ(workbench->Processor().state.dataMemory[0x0B] & 1, 1);
    workbench->SetAnalogValue(0, 512);
    EXPECT_EQ(workbench->Processor().state.analogValues[0], 512);
    EXPECT_EQ(views.Calls(), (Texts{"refreshpic", "refreshpic"}));
}

}  // namespace
}  // namespace corvane::app
