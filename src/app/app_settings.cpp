#include "app/app_settings.h"

#include <cmath>
#include <filesystem>

#include "common/decimal_text.h"
#include "models/catalogue.h"
#include "models/defaults.h"

namespace corvane::app {

namespace {

using common::ReadSetting;

constexpr std::string_view kLastPath = "Last Path";
constexpr std::string_view kSavePositions = "Save Positions";
constexpr std::string_view kKeepHistory = "Keep History";
constexpr std::string_view kClockFrequency = "Clock Frequency";
constexpr std::string_view kEepromWriteTime = "EEPROM Write Time";
constexpr std::string_view kAdConversionTime = "A/D Conversion Time";
constexpr std::string_view kSimulationRate = "Simulation Rate";
constexpr std::string_view kModel = "Microcontroller Model";

constexpr int kDefaultRate = static_cast<int>(SimulationRate::Fast);

float ReadClockFrequency(common::SettingsStore& store) {
    const std::string text =
        ReadSetting(store, kClockFrequency, common::DecimalText(models::kDefaultClockFrequency));
    const auto value = static_cast<float>(common::LeadingNumber(text));
    return value > 0 && std::isfinite(value) ? value : models::kDefaultClockFrequency;
}

int ReadNumberInRange(common::SettingsStore& store, std::string_view name, int defaultValue,
                      int lowest, int highest) {
    const int value = common::ReadNumberSetting(store, name, defaultValue);
    return value >= lowest && value <= highest ? value : defaultValue;
}

int ReadClockCycles(common::SettingsStore& store, std::string_view name, int defaultValue) {
    const int value = common::ReadNumberSetting(store, name, defaultValue);
    return value > 0 ? value : defaultValue;
}

std::string WindowSetting(Window window, std::string_view figure) {
    return "Window" + std::to_string(static_cast<int>(window)) + " " + std::string(figure);
}

}  // namespace

bool ChecksProgram(common::SettingsStore& store) {
    const std::string chosen = store.Read(kCheckProgram).value_or("");
    return common::ReadSwitchSetting(store, chosen.empty() ? kAssembleWithGpasm : kCheckProgram);
}

AppSettings::AppSettings(common::SettingsStore& store, std::string_view applicationFolder)
    : store_(&store),
      lastPath_(ReadSetting(store, kLastPath, applicationFolder)),
      savePositions_(ReadSetting(store, kSavePositions, "OFF")),
      keepHistory_(ReadSetting(store, kKeepHistory, "ON") == "ON"),
      clockFrequency_(ReadClockFrequency(store)),
      eepromWriteTime_(ReadClockCycles(store, kEepromWriteTime, models::kDefaultEepromWriteTime)),
      adConversionTime_(
          ReadClockCycles(store, kAdConversionTime, models::kDefaultAdConversionTime)),
      rate_(static_cast<SimulationRate>(
          ReadNumberInRange(store, kSimulationRate, kDefaultRate, 1, 5))),
      modelRow_(
          ReadNumberInRange(store, kModel, models::kDefaultModel, 0, models::kModelCount - 1)) {}

void AppSettings::SetLastPathOf(std::string_view filePath) {
    const std::size_t separator =
        filePath.rfind(static_cast<char>(std::filesystem::path::preferred_separator));
    lastPath_ = filePath.substr(0, separator == std::string_view::npos ? 0 : separator + 1);
    store_->Write(kLastPath, lastPath_);
}

void AppSettings::SetClockFrequency(float megahertz) {
    clockFrequency_ = megahertz;
    store_->Write(kClockFrequency, common::DecimalText(megahertz));
}

void AppSettings::SetEepromWriteTime(int clockCycles) {
    eepromWriteTime_ = clockCycles;
    common::WriteNumberSetting(*store_, kEepromWriteTime, clockCycles);
}

void AppSettings::SetAdConversionTime(int clockCycles) {
    adConversionTime_ = clockCycles;
    common::WriteNumberSetting(*store_, kAdConversionTime, clockCycles);
}

void AppSettings::SetRate(SimulationRate rate) {
    rate_ = rate;
    common::WriteNumberSetting(*store_, kSimulationRate, static_cast<int>(rate));
}

void AppSettings::SetModelRow(int row) {
    modelRow_ = row;
    common::WriteNumberSetting(*store_, kModel, row);
}

void AppSettings::SetSavePositions(bool on) {
    savePositions_ = on ? "ON" : "OFF";
    store_->Write(kSavePositions, savePositions_);
}

void AppSettings::SetKeepHistory(bool on) {
    keepHistory_ = on;
    store_->Write(kKeepHistory, on ? "ON" : "OFF");
}

std::optional<AppSettings::Position> AppSettings::ReadPosition(Window window,
                                                               Position current) const {
    if (savePositions_ == "OFF") {
        return std::nullopt;
    }
    return Position{ReadWindowFigure(window, "Left", current.left),
                    ReadWindowFigure(window, "Top", current.top)};
}

void AppSettings::WritePosition(Window window, Position position) const {
    WriteWindowFigure(window, "Left", position.left);
    WriteWindowFigure(window, "Top", position.top);
}

int AppSettings::ReadWindowFigure(Window window, std::string_view name, int current) const {
    return savePositions_ == "OFF"
               ? current
               : common::ReadNumberSetting(*store_, WindowSetting(window, name), current);
}

void AppSettings::WriteWindowFigure(Window window, std::string_view name, int value) const {
    common::WriteNumberSetting(*store_, WindowSetting(window, name), value);
}

}  // namespace corvane::app
