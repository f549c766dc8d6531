#include "core/engine_pair.h"

#include <algorithm>
#include <map>
#include <sstream>
#include <stdexcept>

#include "common/number_text.h"
#include "core/reset.h"
#include "core/state_fields.h"
#include "disasm/decoder.h"
#include "isa/instruction_set.h"
#include "project/last_instruction.h"
#include "shipped_files.h"

namespace corvane::core {

EnginePair::EnginePair(const models::Model& model)
    : chip_{.model = &model, .description = DescriptionOf(model)},
      processor_(MakeProcessor(model, chip_.description)) {
    plain::Clean(chip_, plainState_);
}

void EnginePair::SetTimes(int eepromWriteTime, int adConversionTime) {
    chip_.eepromWriteTime = processor_.eepromWriteTime = eepromWriteTime;
    chip_.adConversionTime = processor_.adConversionTime = adConversionTime;
}

void EnginePair::Load(std::span<const std::uint16_t> words) {
    chip_.programMemory.fill(0);
    std::copy(words.begin(), words.end(), chip_.programMemory.begin());
    FillProgramMemory(processor_, words);
}

void EnginePair::Start() {
    plain::Start(chip_, plainState_);
    StartSimulation(processor_);
    history_.clear();
    steps_ = 0;
}

void EnginePair::Step() {
    PlainStep();
    ExecuteStep(processor_);
}

void EnginePair::PlainStep() {
    constexpr std::size_t kInstructionsShown = 8;
    const int address = plainState_.pc;
    plain::ExecuteStep(chip_, plainState_);
    history_.push_back(common::Hex4(address) + " " + project::LastInstructionText(plainState_));
    if (history_.size() > kInstructionsShown) {
        history_.pop_front();
    }
    ++steps_;
}

void EnginePair::Toggle(Pin pin, bool simulationRunning) {
    plain::TogglePin(chip_, plainState_, pin, simulationRunning);
    TogglePin(processor_, pin, simulationRunning);
}

void EnginePair::SetAnalog(int channel, int value) {
    plain::AcceptAnalogValue(chip_, plainState_, channel, value);
    SetAnalogValue(processor_, channel, value);
}

void EnginePair::Edit(const std::function<void(ProcessorState&)>& edit) {
    edit(plainState_);
    processor_.state = plainState_;
    StateChanged(processor_);
    plain::StateChanged(chip_, plainState_);
}

void EnginePair::EditWord(int address, std::uint16_t word) {
    chip_.programMemory.at(static_cast<std::size_t>(address)) = word;
    FillProgramMemory(processor_, chip_.programMemory);
}

void EnginePair::SetBreakpoints(std::span<const int> addresses) {
    core::SetBreakpoints(processor_, addresses);
}

std::string EnginePair::Report() const {
    std::ostringstream report;
    report << chip_.model->name << ", step " << steps_ << " of the program, EEPROM write time "
           << chip_.eepromWriteTime << ", A/D conversion time " << chip_.adConversionTime << "\n";
    report << Differences(plainState_, processor_.state);
    report << "the last steps:\n";
    for (const std::string& line : history_) {
        report << "  " << line << "\n";
    }
    return report.str();
}

std::string Differences(const ProcessorState& plain, const ProcessorState& fast) {
    std::ostringstream text;
    std::map<std::string, std::int64_t> plainFields;
    ForEachField(plain, [&](const std::string& name, auto value) {
        plainFields[name] = static_cast<std::int64_t>(value);
    });
    ForEachField(fast, [&](const std::string& name, auto value) {
        const auto other = static_cast<std::int64_t>(value);
        if (plainFields[name] != other) {
            text << name << ": plain " << plainFields[name] << ", fast " << other << "\n";
        }
    });
    return text.str();
}

std::vector<std::uint16_t> Words(const std::vector<std::string>& texts) {
    static const auto kWords = [] {
        std::map<std::string, std::uint16_t> words;
        for (int word = 0; word < isa::kWordCount; ++word) {
            words.emplace(disasm::DecodeInstruction(word), static_cast<std::uint16_t>(word));
        }
        return words;
    }();
    std::vector<std::uint16_t> words;
    for (const std::string& text : texts) {
        const auto found = kWords.find(text);
        if (found == kWords.end()) {
            throw std::invalid_argument("no instruction: " + text);
        }
        words.push_back(found->second);
    }
    return words;
}

}  // namespace corvane::core
