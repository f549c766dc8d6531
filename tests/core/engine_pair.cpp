#include "core/engine_pair.h"

#include <algorithm>
#include <map>
#include <sstream>
#include <stdexcept>
#include <utility>

#include "common/number_text.h"
#include "core/model_descriptions.h"
#include "core/simulation_control.h"
#include "core/state_difference.h"
#include "disasm/decoder.h"
#include "isa/instruction_set.h"

namespace corvane::core {

namespace {

constexpr std::size_t kInstructionsShown = 8;

std::map<std::string, std::uint16_t, std::less<>> WordsOfTexts() {
    std::map<std::string, std::uint16_t, std::less<>> words;
    for (int word = 0; word < isa::kWordCount; ++word) {
        words.emplace(disasm::DecodeInstruction(word), static_cast<std::uint16_t>(word));
    }
    return words;
}

}  // namespace

EnginePair::EnginePair(const models::Model& model)
    : chip_{.model = &model, .description = DescriptionOf(model)},
      plainEngine_(chip_, plainState_),
      processor_(MakeProcessor(model, chip_.description)) {
    plainEngine_.Clean();
}

void EnginePair::SetTimes(int eepromWriteTime, int adConversionTime) {
    chip_.eepromWriteTime = processor_.eepromWriteTime = eepromWriteTime;
    chip_.adConversionTime = processor_.adConversionTime = adConversionTime;
}

void EnginePair::Load(std::span<const std::uint16_t> words) {
    plainState_.programMemory.fill(0);
    std::copy(words.begin(), words.end(), plainState_.programMemory.begin());
    FillProgramMemory(processor_, words);
}

void EnginePair::Start() {
    plainEngine_.Start();
    StartSimulation(processor_);
    history_.clear();
    steps_ = 0;
}

void EnginePair::Step() {
    PlainStep();
    ExecuteStep(processor_);
}

void EnginePair::PlainStep() {
    const int address = plainState_.pc;
    plainEngine_.ExecuteStep();
    history_.push_back(common::Hex4(address) + " " + LastInstructionText(plainState_));
    if (history_.size() > kInstructionsShown) {
        history_.pop_front();
    }
    ++steps_;
}

void EnginePair::Toggle(Pin pin, bool simulationRunning) {
    plainEngine_.TogglePin(pin, simulationRunning);
    TogglePin(processor_, pin, simulationRunning);
}

void EnginePair::SetAnalog(int channel, int value) {
    plainEngine_.AcceptAnalogValue(channel, value);
    SetAnalogValue(processor_, channel, value);
}

void EnginePair::Edit(const std::function<void(ProcessorState&)>& edit) {
    edit(plainState_);
    processor_.state = plainState_;
    StateChanged(processor_);
}

void EnginePair::SetBreakpoints(std::span<const int> addresses) {
    core::SetBreakpoints(processor_, addresses);
}

std::string EnginePair::Report() const {
    std::ostringstream report;
    report << chip_.model->name << ", step " << steps_ << " of the program, EEPROM write time "
           << chip_.eepromWriteTime << ", A/D conversion time " << chip_.adConversionTime << "\n"
           << Difference(plainState_, processor_.state) << "the last steps:\n";
    for (const std::string& line : history_) {
        report << "  " << line << "\n";
    }
    return report.str();
}

const models::Model& ModelNamed(std::string_view name) {
    return models::kModelCatalogue.at(static_cast<std::size_t>(models::FindModel(name).value()));
}

std::vector<std::uint16_t> Words(std::initializer_list<std::string_view> texts) {
    static const auto kWords = WordsOfTexts();
    std::vector<std::uint16_t> words;
    for (const std::string_view text : texts) {
        const auto found = kWords.find(text);
        if (found == kWords.end()) {
            throw std::invalid_argument("no instruction: " + std::string(text));
        }
        words.push_back(found->second);
    }
    return words;
}

}  // namespace corvane::core
