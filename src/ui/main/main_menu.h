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
    // Start, Step, Stop and the rates, whose shortcuts are useful in other windows too.
    QList<QAction*> SimulationActions() const;

  private:
    QAction* Action(const char* name) const;

    QMenuBar* bar_;
};

}  // namespace corvane::ui
