// What the workbench tells the windows. All of it happens on the interface thread, and every call
// is only a notice: the windows read the state from the workbench when they redraw.
#pragma once

#include <cstdint>

#include "app/windows.h"

namespace corvane::app {

class Views {
  public:
    virtual ~Views() = default;

    // Draw this open window anew.
    virtual void Refresh(Window window) = 0;

    // The program has come to a breakpoint: every window that lists it goes to the line of pc.
    virtual void BringPcIntoView() = 0;

    // The model's register lists are other ones: tables go to their first rows, scroll bars get
    // their new ranges. Model name and memory sizes may have changed too.
    virtual void ModelChanged() = 0;
    // Another program file, or none: Workbench::ProgramPath.
    virtual void ProgramChanged() = 0;
    // Workbench::Commands has changed.
    virtual void CommandsChanged() = 0;

    // The simulation goes through its history. Told again and again, so that pending events, and
    // with them a Stop, can be let in; then once that it has arrived.
    virtual void GoingThroughHistory(std::int64_t step) = 0;
    virtual void ArrivedInHistory() = 0;

    virtual void ShowWindow(Window window) = 0;   // open it, or bring it forward when it is open
    virtual void CloseWindow(Window window) = 0;  // it is open
    virtual void SetTopmost(Window window, bool topmost) = 0;
};

}  // namespace corvane::app
