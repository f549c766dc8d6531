// Which secondary windows are open, and the refreshes that the open ones get.
#pragma once

#include <array>

#include "app/views.h"
#include "app/windows.h"

namespace corvane::app {

class OpenWindows {
  public:
    explicit OpenWindows(Views& views) : views_(&views) {}

    bool IsOpen(Window window) const { return StateOf(window).open; }

    // To be called by a window at the end of its loading, and as soon as its close is requested.
    void Opened(Window window);
    void Closed(Window window);

    // The window's "Always On Top" box was clicked; it is cleared each time a window opens.
    void SetAlwaysOnTop(Window window, bool on);

    // Closes the window if it is open.
    void Close(Window window);

    // After a processor reset; after steps, or what a person did to the chip between two of them.
    void RefreshAfterReset();
    void RefreshAfterChange();
    void RefreshBreakpoints();
    void RefreshEditors();

  private:
    void RefreshMemories();
    void Refresh(Window window);

    struct State {
        bool open = false;
        bool alwaysOnTop = false;
    };
    State& StateOf(Window window) { return states_.at(static_cast<std::size_t>(window)); }
    const State& StateOf(Window window) const {
        return states_.at(static_cast<std::size_t>(window));
    }

    Views* views_;
    std::array<State, static_cast<std::size_t>(Window::ChipView62x) + 1> states_{};
};

}  // namespace corvane::app
