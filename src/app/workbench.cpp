#include "app/workbench.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <utility>

#include "app/debug_moves.h"
#include "app/hex_input.h"
#include "app/source_file.h"
#include "common/decimal_text.h"
#include "core/reset.h"
#include "disasm/listing.h"
#include "loader/intel_hex.h"
#include "project/model_files.h"
#include "project/program_kind.h"

namespace corvane::app {

namespace {

const models::Model& ModelOfRow(int row) {
    return models::kModelCatalogue.at(static_cast<std::size_t>(row));
}

std::string_view NameInRefusals(Window window) {
    switch (window) {
        case Window::Disassembler:
            return "Disassembler";
        case Window::BreakpointsManager:
            return "Breakpoints Manager";
        case Window::BasicCompiler:
            return "BASIC Compiler";
        case Window::Assembler:
            return "Assembler";
        default:
            return "";
    }
}

// The listing file that the assembler writes beside the program; empty when the program's name
// does not lead to one.
std::string ListingPathOf(const std::string& programPath) {
    constexpr std::string_view kHex = ".hex";
    constexpr std::string_view kListing = ".lst";
    std::string path = programPath;
    if (path.ends_with(kHex)) {
        path.replace(path.size() - kHex.size(), kHex.size(), kListing);
    }
    return path.ends_with(kListing) ? path : "";
}

}  // namespace

Workbench::Workbench(std::string applicationFolder, common::SettingsStore& store, Dialogs& dialogs,
                     Views& views, SliceTimer& timer, Clock& clock)
    : applicationFolder_(std::move(applicationFolder)),
      settings_(store, applicationFolder_),
      dialogs_(&dialogs),
      views_(&views),
      windows_(views),
      processor_(core::MakeProcessor(ModelOfRow(models::kDefaultModel), {})),
      simulation_(processor_, settings_, windows_, dialogs, views, timer, clock) {}

bool Workbench::StartUp(std::optional<int> modelRow) {
    simulation_.SetRate(settings_.Rate());
    if (modelRow) {
        settings_.SetModelRow(*modelRow);
    }
    return ApplySelectedModel();
}

bool Workbench::ApplySelectedModel() {
    const models::Model& model = ModelOfRow(settings_.ModelRow());
    project::Messages messages;
    std::optional<project::ModelFile> modelFile =
        project::ReadModelFile({.model = &model, .folder = applicationFolder_}, messages);
    if (!modelFile) {
        const bool isCorrupted = messages.size() > 1;
        dialogs_->Inform("File '" + models::DescriptionFileName(model.name) + "' " +
                         (isCorrupted ? "corrupted." : "could not be found.") +
                         "\r\nThe program will now end.");
        return false;
    }
    programPath_.clear();
    loadedWords_ = 0;
    breakpoints_.Clear();
    stops_.ForgetAddresses();
    processor_ = core::MakeProcessor(model, std::move(modelFile->description));
    processor_.eepromWriteTime = settings_.EepromWriteTime();
    processor_.adConversionTime = settings_.AdConversionTime();
    configurationWord_ = model.defaultConfigurationWord;
    simulation_.ForgetRun();
    BreakpointsChanged();
    views_->ProgramChanged();
    views_->ModelChanged();
    windows_.RefreshAfterReset();
    return true;
}

std::span<const std::uint16_t> Workbench::LoadedProgram() const {
    return std::span(processor_.programMemory).first(static_cast<std::size_t>(loadedWords_));
}

CommandStates Workbench::Commands() const {
    return {.menusEnabled = menusEnabled_,
            .canStart = simulation_.CanStart(),
            .canStep = simulation_.CanStep(),
            .canStop = simulation_.CanStop(),
            .canGoBack = simulation_.CanGoBack(),
            .canStepOut = CanStepOut(simulation_, processor_),
            .rate = settings_.Rate(),
            .keepHistory = settings_.KeepHistory(),
            .savePositions = settings_.SavePositions()};
}

bool Workbench::RefuseWhileRunning(Dialogs& dialogs) {
    if (!simulation_.SimulationRunning()) {
        return false;
    }
    dialogs.Inform("Please stop the simulation first.");
    return true;
}

bool Workbench::RefuseWhileOpen(Dialogs& dialogs, Window window) {
    if (!windows_.IsOpen(window)) {
        return false;
    }
    dialogs.Inform("Please close " + std::string(NameInRefusals(window)) + " window first.");
    return true;
}

bool Workbench::RefuseLoading(Dialogs& dialogs) {
    return RefuseWhileRunning(dialogs) || RefuseWhileOpen(dialogs, Window::Disassembler) ||
           RefuseWhileOpen(dialogs, Window::BreakpointsManager);
}

void Workbench::LoadProgram() {
    if (RefuseLoading(*dialogs_)) {
        return;
    }
    const std::optional<std::string> path =
        dialogs_->OpenFile({.title = "Select Program File",
                            .filters = "Intel HEX files (*.hex)|*.hex|All files (*.*)|*.*",
                            .folder = settings_.LastPath()});
    if (path && !path->empty()) {
        LoadProgramFile(*path);
    }
}

void Workbench::LoadProgramFile(const std::string& path) {
    if (RefuseLoading(*dialogs_)) {
        return;
    }
    settings_.SetLastPathOf(path);
    SetMenusEnabled(false);
    if (ReadProgram(*dialogs_, path)) {
        dialogs_->Inform(loader::LoadedMessage(loadedWords_));
    }
    SetMenusEnabled(true);
}

bool Workbench::LoadAndStart(Dialogs& dialogs, const std::string& path) {
    if (RefuseLoading(dialogs) || !ReadProgram(dialogs, path)) {
        return false;
    }
    simulation_.Start();
    return true;
}

bool Workbench::ReadProgram(Dialogs& dialogs, const std::string& path) {
    const std::optional<std::string> text = ReadFileOrInform(dialogs, path);
    if (!text) {
        return false;
    }
    const common::Result<loader::Program, loader::HexError> program =
        loader::ReadIntelHex(*text, Model().programWords);
    if (!program) {
        ReplaceProgram("", {}, 0);
        dialogs.Inform(loader::HexErrorMessage(program.error));
        return false;
    }
    ReplaceProgram(path, program->words, program->loadedWords);
    return true;
}

void Workbench::ReplaceProgram(const std::string& path, std::span<const std::uint16_t> words,
                               int loadedWords) {
    core::Clean(processor_);
    core::FillProgramMemory(processor_, words);
    simulation_.ForgetRun();
    programPath_ = path;
    loadedWords_ = loadedWords;
    breakpoints_.Clear();
    stops_.ForgetAddresses();
    BreakpointsChanged();
    views_->ProgramChanged();
    windows_.RefreshAfterReset();
}

void Workbench::SetMenusEnabled(bool enabled) {
    menusEnabled_ = enabled;
    views_->CommandsChanged();
}

void Workbench::OpenWindow(Window window) {
    const bool needsProgram =
        window == Window::Disassembler || window == Window::BreakpointsManager;
    if (needsProgram && loadedWords_ == 0) {
        dialogs_->Inform("No program loaded.");
        return;
    }
    views_->ShowWindow(window);
}

void Workbench::OpenMicrocontrollerView() {
    views_->ShowWindow(ChipViewOf(Model().family));
}

std::string Workbench::MicrocontrollerViewTitle() const {
    return "Microcontroller View - " + std::string(Model().name);
}

void Workbench::ToggleSavePositions() {
    settings_.SetSavePositions(!settings_.SavePositions());
    views_->CommandsChanged();
}

void Workbench::ToggleKeepHistory() {
    settings_.SetKeepHistory(!settings_.KeepHistory());
    views_->CommandsChanged();
}

bool Workbench::SelectMicrocontroller() {
    if (RefuseWhileRunning() || RefuseWhileOpen(Window::Disassembler) ||
        RefuseWhileOpen(Window::BreakpointsManager) || RefuseWhileOpen(Window::BasicCompiler) ||
        RefuseWhileOpen(Window::Assembler)) {
        return true;
    }
    CloseSecondaryWindows();  // none but viewers is open here
    const std::optional<int> row = dialogs_->ChooseModel(settings_.ModelRow());
    if (!row) {
        return true;
    }
    settings_.SetModelRow(*row);
    return ApplySelectedModel();
}

void Workbench::ChangeClockFrequency() {
    if (RefuseWhileRunning() || RefuseWhileOpen(Window::BasicCompiler) ||
        RefuseWhileOpen(Window::Assembler)) {
        return;
    }
    const std::optional<std::string> answer = dialogs_->Input(
        "Enter new clock frequency [MHz].", common::DecimalText(settings_.ClockFrequency()));
    const auto frequency = static_cast<float>(common::LeadingNumber(answer.value_or("")));
    if (frequency > 0 && std::isfinite(frequency)) {
        settings_.SetClockFrequency(frequency);
    }
}

std::optional<int> Workbench::AskClockCycles(const std::string& prompt, int current) {
    if (RefuseWhileRunning()) {
        return std::nullopt;
    }
    const std::optional<std::string> answer = dialogs_->Input(prompt, std::to_string(current));
    const int cycles = common::RoundToInt(common::LeadingNumber(answer.value_or(""))).value_or(0);
    return cycles > 0 ? std::optional(cycles) : std::nullopt;
}

void Workbench::ChangeEepromWriteTime() {
    if (const std::optional<int> cycles = AskClockCycles(
            "Enter new EEPROM write time [clock cycles].", settings_.EepromWriteTime())) {
        settings_.SetEepromWriteTime(*cycles);
        processor_.eepromWriteTime = *cycles;
    }
}

void Workbench::ChangeAdConversionTime() {
    if (const std::optional<int> cycles = AskClockCycles(
            "Enter new A/D conversion time [clock cycles].", settings_.AdConversionTime())) {
        settings_.SetAdConversionTime(*cycles);
        processor_.adConversionTime = *cycles;
    }
}

void Workbench::TogglePin(core::Pin pin) {
    simulation_.TogglePin(pin);
    windows_.RefreshAfterChange();
}

void Workbench::SetAnalogValue(int channel, int value) {
    simulation_.SetAnalogValue(channel, value);
    windows_.RefreshAfterChange();
}

bool Workbench::RefuseChange(Dialogs& dialogs, const ValuePlace& place) const {
    if (simulation_.RunsByItself()) {
        dialogs.Inform("Please select Step By Step or stop the simulation first.");
        return true;
    }
    if (ChangeableBits(processor_, place) == 0) {
        dialogs.Inform(NameOf(processor_, place) + " can not be changed.");
        return true;
    }
    return false;
}

void Workbench::ChangeValue(Dialogs& dialogs, const ValuePlace& place) {
    if (RefuseChange(dialogs, place)) {
        return;
    }
    const models::Model* model = processor_.model;
    const bool isWide = place.kind == ValueKind::Pc || place.kind == ValueKind::StackLevel;
    const std::optional<int> value = AskHex(
        dialogs,
        {.prompt = "Enter new value of " + NameOf(processor_, place),
         .digits = place.bit ? 1
                   : isWide  ? 4
                             : 2,
         .current = ValueAt(processor_, place),
         .largest = place.bit                           ? 1
                    : place.kind == ValueKind::Register ? 0xFF
                                                        : ChangeableBits(processor_, place),
         .remark = simulation_.SimulationRunning() ? "" : "The next Start resets the processor."});
    // While the person was thinking, another window may have started it or chosen another model.
    if (value && processor_.model == model && !RefuseChange(dialogs, place)) {
        simulation_.Edit(
            [&place, &value](core::Processor& processor) { StoreValue(processor, place, *value); });
        windows_.RefreshAfterChange();
    }
}

void Workbench::SaveSessionAsTest() {
    const std::optional<SessionRecording>& session = simulation_.Session();
    if (!session || programPath_.empty()) {
        dialogs_->Inform("There is no session. Load a program and start the simulation first.");
        return;
    }
    if (session->hasChangedValues) {
        dialogs_->Inform("Values have been changed by hand, which a test can not do.");
        return;
    }
    const SessionEnd end = session->end.value_or(EndOf(processor_));
    const std::string name = std::filesystem::path(programPath_).filename().string();
    const std::optional<std::string> path =
        AskSavePath(*dialogs_, settings_, kFirmwareTest, project::NameBeside(name, ".test"));
    if (path) {
        const std::filesystem::path folder = std::filesystem::path(*path).parent_path();
        WriteFileOrInform(
            *dialogs_, *path,
            SessionAsTest(
                *session, end,
                {.path = std::filesystem::path(programPath_).lexically_proximate(folder).string(),
                 .model = Model(),
                 .clockFrequency = common::DecimalText(settings_.ClockFrequency()),
                 .eepromWriteTime = processor_.eepromWriteTime,
                 .adConversionTime = processor_.adConversionTime}));
    }
}

Listing Workbench::BuildBreakpointListing(Dialogs& dialogs) const {
    const std::string path = ListingPathOf(programPath_);
    std::error_code error;
    if (!path.empty() && std::filesystem::exists(path, error) &&
        dialogs.Ask("Do you want to use existing listing file " + path + "?")) {
        if (const std::optional<std::string> text = ReadFileOrInform(dialogs, path)) {
            return ListingOfFile(*text);
        }
    }
    return ListingOfDisassembly(
        disasm::DisassembleProgram(LoadedProgram(), disasm::ListingFormat::WithOpcodes));
}

void Workbench::ToggleBreakpoint(Dialogs& dialogs, int address) {
    if (!breakpoints_.Toggle(address)) {
        dialogs.Inform("You can not define more than 10 breakpoints.");
        return;
    }
    BreakpointsChanged();
    windows_.RefreshBreakpoints();
}

void Workbench::ClearBreakpoints() {
    breakpoints_.Clear();
    BreakpointsChanged();
    windows_.RefreshBreakpoints();
}

void Workbench::ChangeStops(const std::function<void(StopList& stops)>& change) {
    change(stops_);
    BreakpointsChanged();
    windows_.RefreshEditors();
}

void Workbench::BreakpointsChanged() {
    std::vector<int> addresses = stops_.Addresses();
    addresses.insert(addresses.end(), breakpoints_.Addresses().begin(),
                     breakpoints_.Addresses().end());
    // A listing may hold addresses that pc never takes.
    std::erase_if(addresses, [](int address) { return address >= core::kProgramCounterRange; });
    simulation_.SetBreakpoints(std::move(addresses));
}

void Workbench::CloseSecondaryWindows() {
    for (const Window window : kSecondaryWindows) {
        windows_.Close(window);
    }
}

}  // namespace corvane::app
