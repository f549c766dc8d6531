// The settings in force. Each is read once and stored the moment it changes.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "app/windows.h"
#include "common/settings_store.h"

namespace corvane::app {

enum class SimulationRate : std::uint8_t {
    StepByStep = 1,
    Slow = 2,
    Normal = 3,
    Fast = 4,
    ExtremelyFast = 5,
};

// Switches that belong to one window, which reads and writes them with ReadSwitchSetting and
// WriteSwitchSetting.
inline constexpr std::string_view kListingWithoutOpcodes = "Listing Without Opcodes";
inline constexpr std::string_view kShowCycles = "Show Cycles";
inline constexpr std::string_view kTurnOffColors = "Turn Off Colors";
inline constexpr std::string_view kAssembleWithGpasm = "Assemble With gpasm";
inline constexpr std::string_view kCheckProgram = "Check Program";
// The last one, once it has been chosen; else what gpasm assembles is checked.
bool ChecksProgram(common::SettingsStore& store);

class AppSettings {
  public:
    // Reads every value; a missing one is stored with its default. Model and rate out of range,
    // and figures that are not above 0, count as their defaults. The application folder ends with
    // a separator; it is the default of LastPath.
    AppSettings(common::SettingsStore& store, std::string_view applicationFolder);

    common::SettingsStore& Store() const { return *store_; }

    // The folder in which file dialogs start, with trailing separator.
    const std::string& LastPath() const { return lastPath_; }
    float ClockFrequency() const { return clockFrequency_; }    // MHz
    int EepromWriteTime() const { return eepromWriteTime_; }    // clock cycles
    int AdConversionTime() const { return adConversionTime_; }  // clock cycles
    SimulationRate Rate() const { return rate_; }
    int ModelRow() const { return modelRow_; }                     // row of the model catalogue
    bool SavePositions() const { return savePositions_ == "ON"; }  // the check mark
    // Whether a simulation can be gone back in.
    bool KeepHistory() const { return keepHistory_; }

    // Takes the folder of a file that was chosen: the path up to its last separator.
    void SetLastPathOf(std::string_view filePath);
    void SetClockFrequency(float megahertz);
    void SetEepromWriteTime(int clockCycles);
    void SetAdConversionTime(int clockCycles);
    void SetRate(SimulationRate rate);
    void SetModelRow(int row);
    void SetSavePositions(bool on);
    void SetKeepHistory(bool on);

    // Where a window that opens is placed, in twips: at its stored position, by default the given
    // one; nothing when it is to be centred on the screen.
    struct Position {
        int left;
        int top;
        bool operator==(const Position&) const = default;
    };
    std::optional<Position> ReadPosition(Window window, Position current) const;
    // Stores the position of a window that closes, whatever SavePositions says.
    void WritePosition(Window window, Position position) const;

    // Another figure of a window, such as "Height": stored under "Window17 Height". It is the
    // current one when positions are not to be restored.
    int ReadWindowFigure(Window window, std::string_view name, int current) const;
    void WriteWindowFigure(Window window, std::string_view name, int value) const;

  private:
    common::SettingsStore* store_;
    std::string lastPath_;
    std::string savePositions_;
    bool keepHistory_;
    float clockFrequency_;
    int eepromWriteTime_;
    int adConversionTime_;
    SimulationRate rate_;
    int modelRow_;
};

}  // namespace corvane::app
