// The menu bar of the main window: captions, shortcuts, and which command each entry runs.
#pragma once

#include <QList>
#include <QMenuBar>

#include "app/workbench.h"

namespace corvane::ui {

class Desktop;

class MainMenu {
  public:
    MainMenu(QMenuBar& bar, Desktop& desktop);

    // Brings enabled states and check marks up to date.
    void Show(const app::CommandStates& states);
    // Start, Step, Stop, the rates and the moves of Debug, whose shortcuts are useful in other
    // windows too.
    QList<QAction*> SimulationActions() const;

  private:
    void AddSimulationMenu(Desktop& desktop);
    void AddRateMenu(Desktop& desktop);
    void AddOptionsMenu(Desktop& desktop);
    void AddDebugMenu(Desktop& desktop);

    QMenuBar* bar_;
    QAction* start_ = nullptr;
    QAction* step_ = nullptr;
    QAction* stop_ = nullptr;
    QList<QAction*> rates_;  // in the order of app::SimulationRate
    QAction* savePositions_ = nullptr;
    QList<QAction*> movesBack_;
    QAction* stepOver_ = nullptr;
    QAction* stepOut_ = nullptr;
    QAction* keepHistory_ = nullptr;
};

}  // namespace corvane::ui
