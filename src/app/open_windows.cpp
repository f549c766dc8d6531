#include "app/open_windows.h"

namespace corvane::app {

void OpenWindows::Opened(Window window) {
    StateOf(window) = {.open = true, .alwaysOnTop = false};
}

void OpenWindows::Closed(Window window) {
    StateOf(window).open = false;
}

void OpenWindows::SetAlwaysOnTop(Window window, bool on) {
    StateOf(window).alwaysOnTop = on;
    views_->SetTopmost(window, on);
    if (on) {
        return;
    }
    // So that the others stay above the one that has just been let go.
    for (const Window other : kSecondaryWindows) {
        if (IsOpen(other) && StateOf(other).alwaysOnTop) {
            views_->SetTopmost(other, true);
        }
    }
}

void OpenWindows::Close(Window window) {
    if (IsOpen(window)) {
        views_->CloseWindow(window);
    }
}

void OpenWindows::RefreshAfterReset() {
    Refresh(Window::ProgramMemoryViewer);
    RefreshMemories();
    views_->Refresh(Window::Main);
}

void OpenWindows::RefreshAfterChange() {
    views_->Refresh(Window::Main);
    RefreshMemories();
}

void OpenWindows::RefreshMemories() {
    for (const Window window :
         {Window::EepromMemoryViewer, Window::HardwareStackViewer, Window::BreakpointsManager,
          Window::ChipView18, Window::ChipView28, Window::ChipView40, Window::ChipView62x}) {
        Refresh(window);
    }
    RefreshEditors();
}

void OpenWindows::RefreshBreakpoints() {
    Refresh(Window::BreakpointsManager);
}

void OpenWindows::RefreshEditors() {
    Refresh(Window::Assembler);
    Refresh(Window::BasicCompiler);
}

void OpenWindows::Refresh(Window window) {
    if (IsOpen(window)) {
        views_->Refresh(window);
    }
}

}  // namespace corvane::app
