#include "ui/main/main_menu.h"

#include <QAction>
#include <QMenu>
#include <QShortcut>
#include <array>

#include "ui/main/desktop.h"

namespace corvane::ui {

namespace {

using app::SimulationRate;
using app::Window;

struct Entry {
    const char* name;
    const char* caption;
    const char* shortcut;  // in portable form, or empty
    void (*run)(Desktop& desktop);
};

struct Menu {
    const char* name;
    const char* caption;
    std::vector<Entry> entries;  // one without a name is a separator
};

constexpr std::array kRateNames = {"menuspeed1", "menuspeed2", "menuspeed3", "menuspeed4",
                                   "menuspeed5"};

template <SimulationRate kRate>
void SetRate(Desktop& desktop) {
    desktop.Workbench().Simulation().SetRate(kRate);
}

template <Window kWindow>
void OpenWindow(Desktop& desktop) {
    desktop.Workbench().OpenWindow(kWindow);
}

template <TextWindow kText>
void OpenText(Desktop& desktop) {
    desktop.OpenText(kText);
}

std::vector<Menu> Menus() {
    const Entry separator{"", "", "", nullptr};
    return {
        {"menu1",
         "&File",
         {{"menuload", "&Load Program", "Ctrl+L",
           [](Desktop& desktop) { desktop.Workbench().LoadProgram(); }},
          separator,
          {"menuquit", "&Quit", "Ctrl+Q", [](Desktop& desktop) { desktop.Quit(); }}}},
        {"menu2",
         "&Simulation",
         {{"menustart", "&1 Start", "F5",
           [](Desktop& desktop) { desktop.Workbench().Simulation().Start(); }},
          {"menustep", "&2 Step", "F8",
           [](Desktop& desktop) { desktop.Workbench().Simulation().Step(); }},
          {"menustop", "&3 Stop", "Shift+F5",
           [](Desktop& desktop) { desktop.Workbench().Simulation().Stop(); }}}},
        {"menu3",
         "&Rate",
         {{kRateNames[0], "&1 Step By Step", "Ctrl+1", SetRate<SimulationRate::StepByStep>},
          {kRateNames[1], "&2 Slow", "Ctrl+2", SetRate<SimulationRate::Slow>},
          {kRateNames[2], "&3 Normal", "Ctrl+3", SetRate<SimulationRate::Normal>},
          {kRateNames[3], "&4 Fast", "Ctrl+4", SetRate<SimulationRate::Fast>},
          {kRateNames[4], "&5 Extremely Fast", "Ctrl+5", SetRate<SimulationRate::ExtremelyFast>}}},
        {"menu4",
         "&Tools",
         {{"menumemory", "Program &Memory Viewer", "", OpenWindow<Window::ProgramMemoryViewer>},
          {"menueeprom", "&EEPROM Memory Viewer", "", OpenWindow<Window::EepromMemoryViewer>},
          {"menustack", "Hardware &Stack Viewer", "", OpenWindow<Window::HardwareStackViewer>},
          {"menuperipheraldevices", "Microcontroller &View", "",
           [](Desktop& desktop) { desktop.Workbench().OpenMicrocontrollerView(); }},
          {"menudisassembler", "&Disassembler", "", OpenWindow<Window::Disassembler>},
          {"menubreakpointsmanager", "&Breakpoints Manager", "",
           OpenWindow<Window::BreakpointsManager>},
          separator,
          {"menuassembler", "&Assembler", "", OpenWindow<Window::Assembler>},
          {"menubasic", "BASIC &Compiler", "", OpenWindow<Window::BasicCompiler>}}},
        {"menu5",
         "&Options",
         {{"menusavepositions", "Save Positions", "",
           [](Desktop& desktop) { desktop.Workbench().ToggleSavePositions(); }},
          separator,
          {"menuselect", "Select Microcontroller", "",
           [](Desktop& desktop) { desktop.SelectMicrocontroller(); }},
          {"menuclock", "Change Clock Frequency", "",
           [](Desktop& desktop) { desktop.Workbench().ChangeClockFrequency(); }},
          {"menuwritetime", "Change EEPROM Write Time", "",
           [](Desktop& desktop) { desktop.Workbench().ChangeEepromWriteTime(); }},
          {"menuconversiontime", "Change A/D Conversion Time", "",
           [](Desktop& desktop) { desktop.Workbench().ChangeAdConversionTime(); }}}},
        {"menu6",
         "&Help",
         {{"menututorial", "Getting Started", "", OpenText<TextWindow::GettingStarted>},
          {"menuhelp", "Help Topics", "F1", OpenText<TextWindow::HelpTopics>},
          {"menuhelpcomp", "BASIC Compiler Help Topics", "", OpenText<TextWindow::BasicHelpTopics>},
          separator,
          {"menuabout", "About Corvane", "", OpenText<TextWindow::About>}}},
    };
}

void AddEntry(QMenu& menu, const Entry& entry, Desktop& desktop) {
    if (entry.run == nullptr) {
        menu.addSeparator();
        return;
    }
    QAction* action = menu.addAction(entry.caption);
    action->setObjectName(entry.name);
    action->setShortcut(QKeySequence(entry.shortcut, QKeySequence::PortableText));
    // Queued: a command may wait for a person's answer, and whoever chose the entry (assistive
    // technology, say) must not have to wait with it.
    QObject::connect(
        action, &QAction::triggered, action, [run = entry.run, &desktop] { run(desktop); },
        Qt::QueuedConnection);
}

}  // namespace

MainMenu::MainMenu(QMenuBar& bar, Desktop& desktop) : bar_(&bar) {
    for (const Menu& menu : Menus()) {
        QMenu* added = bar.addMenu(menu.caption);
        added->setObjectName(menu.name);
        for (const Entry& entry : menu.entries) {
            AddEntry(*added, entry, desktop);
        }
    }
    for (const char* name : kRateNames) {
        Action(name)->setCheckable(true);
    }
    Action("menusavepositions")->setCheckable(true);
}

QAction* MainMenu::Action(const char* name) const {
    return bar_->findChild<QAction*>(name);
}

void MainMenu::Show(const app::CommandStates& states) {
    for (QAction* menu : bar_->actions()) {
        menu->setEnabled(states.menusEnabled);
    }
    Action("menustart")->setEnabled(states.canStart);
    Action("menustep")->setEnabled(states.canStep);
    Action("menustop")->setEnabled(states.canStop);
    for (std::size_t i = 0; i < kRateNames.size(); ++i) {
        Action(kRateNames.at(i))->setChecked(i + 1 == static_cast<std::size_t>(states.rate));
    }
    Action("menusavepositions")->setChecked(states.savePositions);
}

QList<QAction*> MainMenu::SimulationActions() const {
    QList<QAction*> actions{Action("menustart"), Action("menustep"), Action("menustop")};
    for (const char* name : kRateNames) {
        actions.append(Action(name));
    }
    return actions;
}

}  // namespace corvane::ui
