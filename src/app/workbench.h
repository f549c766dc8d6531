// The one application-wide state and the commands on it. A command checks its guards in order; the
// first that holds shows its message, and the command does nothing else.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "app/app_settings.h"
#include "app/breakpoint_list.h"
#include "app/breakpoint_listing.h"
#include "app/chip_value.h"
#include "app/clock.h"
#include "app/dialogs.h"
#include "app/open_windows.h"
#include "app/simulation_control.h"
#include "app/stop_list.h"
#include "app/views.h"
#include "common/settings_store.h"
#include "core/pins.h"
#include "core/processor.h"

namespace corvane::app {

struct CommandStates {
    bool menusEnabled;  // the six top-level menus
    bool canStart;
    bool canStep;
    bool canStop;
    bool canGoBack;
    bool canStepOut;      // and not only one step
    SimulationRate rate;  // the one with the check mark
    bool keepHistory;
    bool savePositions;
    bool operator==(const CommandStates&) const = default;
};

class Workbench {
  public:
    // The application folder holds the description files and ends with a separator. The dialogs
    // are those of the main window.
    Workbench(std::string applicationFolder, common::SettingsStore& store, Dialogs& dialogs,
              Views& views, SliceTimer& timer, Clock& clock);
    Workbench(const Workbench&) = delete;
    Workbench& operator=(const Workbench&) = delete;

    // Makes the stored rate and model current; a model given here (a row of the catalogue) is
    // selected instead. False: the description file is missing or corrupt, the person has been
    // told, and the application must end.
    [[nodiscard]] bool StartUp(std::optional<int> modelRow = std::nullopt);

    // State.
    const core::Processor& Processor() const { return processor_; }
    const models::Model& Model() const { return *processor_.model; }
    const std::string& ProgramPath() const { return programPath_; }  // full path, or empty
    int LoadedWords() const { return loadedWords_; }
    std::span<const std::uint16_t> LoadedProgram() const;  // words 0 to LoadedWords - 1
    const BreakpointList& Breakpoints() const { return breakpoints_; }
    int ConfigurationWord() const { return configurationWord_; }
    void SetConfigurationWord(int word) { configurationWord_ = word; }
    CommandStates Commands() const;
    // Where the simulation stands: "Running, Extremely Fast".
    std::string Status() const { return StatusText(simulation_.Status(), processor_); }
    const std::string& ApplicationFolder() const { return applicationFolder_; }
    AppSettings& Settings() { return settings_; }
    const AppSettings& Settings() const { return settings_; }
    OpenWindows& Windows() { return windows_; }
    const OpenWindows& Windows() const { return windows_; }
    SimulationControl& Simulation() { return simulation_; }
    const SimulationControl& Simulation() const { return simulation_; }

    // File.
    void LoadProgram();                             // menuload
    void LoadProgramFile(const std::string& path);  // the same for a file that was dropped
    // What is translated to be loaded is refused for the same reasons, with the dialogs of its
    // window.
    bool RefuseLoading(Dialogs& dialogs);
    // Loads and starts it. A success is not told. False: it is not loaded.
    bool LoadAndStart(Dialogs& dialogs, const std::string& path);

    // Tools.
    void OpenWindow(Window window);  // refuses Disassembler and Breakpoints Manager without program
    void OpenMicrocontrollerView();  // menuperipheraldevices: the one of the model
    std::string MicrocontrollerViewTitle() const;  // "Microcontroller View - PIC16F84"

    // Options.
    void ToggleSavePositions();                  // menusavepositions
    [[nodiscard]] bool SelectMicrocontroller();  // menuselect; false as StartUp
    void ChangeClockFrequency();                 // menuclock
    void ChangeEepromWriteTime();                // menuwritetime
    void ChangeAdConversionTime();               // menuconversiontime

    // Debug. From the next Start on.
    void ToggleKeepHistory();

    // Microcontroller View.
    void TogglePin(core::Pin pin);
    void SetAnalogValue(int channel, int value);

    // Asks for a new value of what a window shows, with that window's dialogs; not while the
    // simulation runs by itself.
    void ChangeValue(Dialogs& dialogs, const ValuePlace& place);

    // menusavesession: what was done at the pins since Start, as a firmware test.
    void SaveSessionAsTest();

    // Breakpoints Manager, with its own dialogs.
    Listing BuildBreakpointListing(Dialogs& dialogs) const;
    void ToggleBreakpoint(Dialogs& dialogs, int address);
    void ClearBreakpoints();

    // The debugger's stops.
    const StopList& Stops() const { return stops_; }
    void ChangeStops(const std::function<void(StopList& stops)>& change);

    // Before the main window ends the application.
    void CloseSecondaryWindows();

  private:
    bool ApplySelectedModel();
    bool RefuseWhileRunning(Dialogs& dialogs);
    bool RefuseWhileRunning() { return RefuseWhileRunning(*dialogs_); }
    bool RefuseChange(Dialogs& dialogs, const ValuePlace& place) const;
    bool RefuseWhileOpen(Window window) { return RefuseWhileOpen(*dialogs_, window); }
    bool RefuseWhileOpen(Dialogs& dialogs, Window window);
    bool ReadProgram(Dialogs& dialogs, const std::string& path);
    void ReplaceProgram(const std::string& path, std::span<const std::uint16_t> words,
                        int loadedWords);
    std::optional<int> AskClockCycles(const std::string& prompt, int current);
    void BreakpointsChanged();
    void SetMenusEnabled(bool enabled);

    std::string applicationFolder_;
    AppSettings settings_;
    Dialogs* dialogs_;
    Views* views_;
    OpenWindows windows_;
    core::Processor processor_;
    SimulationControl simulation_;
    BreakpointList breakpoints_;
    StopList stops_;
    std::string programPath_;
    int loadedWords_ = 0;
    int configurationWord_ = 0;
    bool menusEnabled_ = true;
};

}  // namespace corvane::app
