#include "ui/desktop/main_menu.h"

#include <QAction>
#include <QMenu>
#include <functional>

#include "app/debug_moves.h"
#include "ui/desktop/desktop.h"
#include "ui/window/command.h"

namespace corvane::ui {

namespace {

using app::SimulationRate;
using app::Window;

using Run = std::function<void()>;

Run OpensWindow(Desktop& desktop, Window window) {
    return [&desktop, window] { desktop.Workbench().OpenWindow(window); };
}

Run OpensText(Desktop& desktop, TextWindow text) {
    return [&desktop, text] { desktop.OpenText(text); };
}

// A menu of the bar while it is filled.
class Menu {
  public:
    Menu(QMenuBar& bar, const char* name, const char* caption) : menu_(bar.addMenu(caption)) {
        menu_->setObjectName(name);
    }

    // The keys are in portable form, or empty.
    QAction* Add(const char* name, const char* caption, const char* keys, const Run& run) {
        const QKeySequence sequence(keys, QKeySequence::PortableText);
        return AddCommand(*menu_, {name, caption, sequence}, *menu_, run);
    }
    void AddSeparator() { menu_->addSeparator(); }

  private:
    QMenu* menu_;
};

void AddFileMenu(QMenuBar& bar, Desktop& desktop) {
    Menu file(bar, "menu1", "&File");
    file.Add("menuload", "&Load Program", "Ctrl+L",
             [&desktop] { desktop.Workbench().LoadProgram(); });
    file.AddSeparator();
    file.Add("menuquit", "&Quit", "Ctrl+Q", [&desktop] { desktop.Quit(); });
}

void AddToolsMenu(QMenuBar& bar, Desktop& desktop) {
    Menu tools(bar, "menu4", "&Tools");
    tools.Add("menumemory", "Program &Memory Viewer", "",
              OpensWindow(desktop, Window::ProgramMemoryViewer));
    tools.Add("menueeprom", "&EEPROM Memory Viewer", "",
              OpensWindow(desktop, Window::EepromMemoryViewer));
    tools.Add("menustack", "Hardware &Stack Viewer", "",
              OpensWindow(desktop, Window::HardwareStackViewer));
    tools.Add("menuperipheraldevices", "Microcontroller &View", "",
              [&desktop] { desktop.Workbench().OpenMicrocontrollerView(); });
    tools.Add("menudisassembler", "&Disassembler", "", OpensWindow(desktop, Window::Disassembler));
    tools.Add("menubreakpointsmanager", "&Breakpoints Manager", "",
              OpensWindow(desktop, Window::BreakpointsManager));
    tools.AddSeparator();
    tools.Add("menuassembler", "&Assembler", "", OpensWindow(desktop, Window::Assembler));
    tools.Add("menubasic", "BASIC &Compiler", "", OpensWindow(desktop, Window::BasicCompiler));
}

void AddHelpMenu(QMenuBar& bar, Desktop& desktop) {
    Menu help(bar, "menu6", "&Help");
    help.Add("menututorial", "Getting Started", "", OpensText(desktop, TextWindow::GettingStarted));
    help.Add("menuhelp", "Help Topics", "F1", OpensText(desktop, TextWindow::HelpTopics));
    help.Add("menuhelpcomp", "BASIC Compiler Help Topics", "",
             OpensText(desktop, TextWindow::BasicHelpTopics));
    help.AddSeparator();
    help.Add("menuabout", "About Corvane", "", OpensText(desktop, TextWindow::About));
}

}  // namespace

MainMenu::MainMenu(QMenuBar& bar, Desktop& desktop) : bar_(&bar) {
    AddFileMenu(bar, desktop);
    AddSimulationMenu(desktop);
    AddRateMenu(desktop);
    AddToolsMenu(bar, desktop);
    AddOptionsMenu(desktop);
    AddDebugMenu(desktop);
    AddHelpMenu(bar, desktop);
}

void MainMenu::AddSimulationMenu(Desktop& desktop) {
    Menu simulation(*bar_, "menu2", "&Simulation");
    start_ = simulation.Add("menustart", "&1 Start", "F5",
                            [&desktop] { desktop.Workbench().Simulation().Start(); });
    step_ = simulation.Add("menustep", "&2 Step", "F8",
                           [&desktop] { desktop.Workbench().Simulation().Step(); });
    stop_ = simulation.Add("menustop", "&3 Stop", "Shift+F5",
                           [&desktop] { desktop.Workbench().Simulation().Stop(); });
}

void MainMenu::AddRateMenu(Desktop& desktop) {
    Menu rate(*bar_, "menu3", "&Rate");
    const auto setsRate = [&desktop](SimulationRate chosen) -> Run {
        return [&desktop, chosen] { desktop.Workbench().Simulation().SetRate(chosen); };
    };
    rates_ = {
        rate.Add("menuspeed1", "&1 Step By Step", "Ctrl+1", setsRate(SimulationRate::StepByStep)),
        rate.Add("menuspeed2", "&2 Slow", "Ctrl+2", setsRate(SimulationRate::Slow)),
        rate.Add("menuspeed3", "&3 Normal", "Ctrl+3", setsRate(SimulationRate::Normal)),
        rate.Add("menuspeed4", "&4 Fast", "Ctrl+4", setsRate(SimulationRate::Fast)),
        rate.Add("menuspeed5", "&5 Extremely Fast", "Ctrl+5",
                 setsRate(SimulationRate::ExtremelyFast))};
    for (QAction* entry : rates_) {
        entry->setCheckable(true);
    }
}

void MainMenu::AddOptionsMenu(Desktop& desktop) {
    Menu options(*bar_, "menu5", "&Options");
    savePositions_ = options.Add("menusavepositions", "Save Positions", "",
                                 [&desktop] { desktop.Workbench().ToggleSavePositions(); });
    savePositions_->setCheckable(true);
    options.AddSeparator();
    options.Add("menuselect", "Select Microcontroller", "",
                [&desktop] { desktop.SelectMicrocontroller(); });
    options.Add("menuclock", "Change Clock Frequency", "",
                [&desktop] { desktop.Workbench().ChangeClockFrequency(); });
    options.Add("menuwritetime", "Change EEPROM Write Time", "",
                [&desktop] { desktop.Workbench().ChangeEepromWriteTime(); });
    options.Add("menuconversiontime", "Change A/D Conversion Time", "",
                [&desktop] { desktop.Workbench().ChangeAdConversionTime(); });
}

void MainMenu::AddDebugMenu(Desktop& desktop) {
    using app::Direction;
    Menu debug(*bar_, "menudebug", "Deb&ug");
    const auto moves = [&desktop](auto move) -> Run {
        return [&desktop, move] { move(desktop.Workbench().Simulation()); };
    };
    movesBack_ = {debug.Add("menustepback", "Step &Back", "Shift+F8", moves(app::StepBack)),
                  debug.Add("menurunback", "Run B&ack", "Shift+F9", moves(app::RunBack))};
    debug.AddSeparator();
    stepOver_ =
        debug.Add("menustepover", "Step &Over", "F10",
                  moves([](auto& simulation) { app::StepOver(simulation, Direction::Forward); }));
    stepOut_ =
        debug.Add("menustepout", "Step O&ut", "Shift+F10",
                  moves([](auto& simulation) { app::StepOut(simulation, Direction::Forward); }));
    movesBack_ +=
        debug.Add("menustepoverback", "Step O&ver Backwards", "Ctrl+F10",
                  moves([](auto& simulation) { app::StepOver(simulation, Direction::Back); }));
    movesBack_ +=
        debug.Add("menustepoutback", "Step Out Bac&kwards", "Ctrl+Shift+F10",
                  moves([](auto& simulation) { app::StepOut(simulation, Direction::Back); }));
    movesBack_ += debug.Add("menulastchange", "Run Back to &Last Change", "",
                            [&desktop] { desktop.RunBackToLastChange(); });
    debug.AddSeparator();
    debug.Add("menuruntests", "Run &Tests...", "", [&desktop] { desktop.RunTests(); });
    debug.Add("menusavesession", "&Save Session as Test...", "",
              [&desktop] { desktop.Workbench().SaveSessionAsTest(); });
    debug.AddSeparator();
    keepHistory_ = debug.Add("menukeephistory", "Keep &History", "",
                             [&desktop] { desktop.Workbench().ToggleKeepHistory(); });
    keepHistory_->setCheckable(true);
    debug.AddSeparator();
    debug.Add("menutestinghelp", "Testing &Firmware", "",
              OpensText(desktop, TextWindow::TestingFirmware));
}

void MainMenu::Show(const app::CommandStates& states) {
    for (QAction* menu : bar_->actions()) {
        menu->setEnabled(states.menusEnabled);
    }
    start_->setEnabled(states.canStart);
    step_->setEnabled(states.canStep);
    stop_->setEnabled(states.canStop);
    for (qsizetype i = 0; i < rates_.size(); ++i) {
        rates_[i]->setChecked(i + 1 == static_cast<qsizetype>(states.rate));
    }
    savePositions_->setChecked(states.savePositions);
    for (QAction* move : movesBack_) {
        move->setEnabled(states.canGoBack);
    }
    stepOver_->setEnabled(states.canStep && states.keepHistory);
    stepOut_->setEnabled(states.canStepOut);
    keepHistory_->setChecked(states.keepHistory);
}

QList<QAction*> MainMenu::SimulationActions() const {
    return QList<QAction*>{start_, step_, stop_, stepOver_, stepOut_} + rates_ + movesBack_;
}

}  // namespace corvane::ui
