#include "app/open_windows.h"

namespace corvane::app {

bool OpenWindows::IsChipViewOpen() const {
    return IsOpen(Window::ChipView18) || IsOpen(Window::ChipView28) || IsOpen(Window::ChipView40) ||
           IsOpen(Window::ChipView62x);
}

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
    if (IsOpen(Window::ProgramMemoryViewer)) {
        views_->memorijaprint();
    }
    RefreshMemories();
    views_->ekran();
}

void OpenWindows::RefreshAfterChange() {
    views_->ekran();
    RefreshMemories();
}

void OpenWindows::RefreshMemories() {
    if (IsOpen(Window::EepromMemoryViewer)) {
        views_->eepromprint();
    }
    if (IsOpen(Window::HardwareStackViewer)) {
        views_->stekprint();
    }
    RefreshBreakpoints();
    if (IsChipViewOpen()) {
        views_->refreshpic();
    }
}

void OpenWindows::RefreshBreakpoints() {
    if (IsOpen(Window::BreakpointsManager)) {
        views_->drawlines();
    }
}

}  // namespace corvane::app
