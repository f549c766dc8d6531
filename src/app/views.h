// What the workbench tells the windows. All of it happens on the interface thread, and every call
// is only a notice: the windows read the state from the workbench when they redraw.
#pragma once

#include <chrono>

#include "app/windows.h"

namespace corvane::app {

class Views {
  public:
    virtual ~Views() = default;

    // Redraw; called only while the window in question is open.
    virtual void memorijaprint() = 0;  // Program Memory Viewer
    virtual void eepromprint() = 0;    // EEPROM Memory Viewer
    virtual void stekprint() = 0;      // Hardware Stack Viewer
    virtual void drawlines() = 0;      // Breakpoints Manager: rows, markers, labels of the slots
    virtual void refreshpic() = 0;     // the Microcontroller View
    virtual void ekran() = 0;          // main window

    // The program has come to a breakpoint: every window that lists it goes to the line of pc.
    virtual void BringPcIntoView() = 0;

    // The model's register lists are other ones: tables go to their first rows, scroll bars get
    // their new ranges. Model name and memory sizes may have changed too.
    virtual void ModelChanged() = 0;
    // Another program file, or none: Workbench::ProgramPath.
    virtual void ProgramChanged() = 0;
    // Workbench::Commands has changed.
    virtual void CommandsChanged() = 0;

    virtual void ShowWindow(Window window) = 0;   // open it, or bring it forward when it is open
    virtual void CloseWindow(Window window) = 0;  // it is open
    virtual void SetTopmost(Window window, bool topmost) = 0;

    // Call SimulationControl::RunSlice once, as soon as the delay has passed and pending events
    // are done with. A new request takes the place of one that still waits.
    virtual void ScheduleSlice(std::chrono::nanoseconds delay) = 0;
};

}  // namespace corvane::app
