#include "basic/chip.h"

#include <gtest/gtest.h>

#include <array>

#include "asm/assembler.h"
#include "common/text.h"
#include "core/execution.h"
#include "core/reset.h"
#include "models/symbol_lines.h"

namespace corvane::basic {

namespace {

constexpr std::int64_t kMaxSteps = 50'000'000;

// The address of the jump to itself behind the last statement.
int EndAddress(const assembler::Assembly& assembly) {
    bool isEnd = false;
    for (const assembler::AsmLine& line : assembly.lines) {
        if (isEnd) {
            return line.address;
        }
        isEnd = line.source == "; End";
    }
    ADD_FAILURE() << "no end";
    return 0;
}

}  // namespace

Chip::Chip(std::string_view modelName, std::string_view text, float clockFrequency)
    : processor_(core::MakeProcessor(ModelNamed(modelName), DescriptionOf(ModelNamed(modelName)))) {
    const auto compilation =
        CompileSource(text, *processor_.model, processor_.description, clockFrequency);
    EXPECT_TRUE(compilation) << TextWithLine(compilation.error) << "\n" << text;
    if (compilation) {
        warnings_ = compilation->warnings;
        ReadVariables(compilation->assembler);
        Load(compilation->assembler);
        Restart();
    }
}

void Chip::Restart() {
    core::StartSimulation(processor_);
}

void Chip::RunToEnd() {
    EXPECT_TRUE(core::Run(processor_, kMaxSteps).breakpointReached)
        << "stopped at " << processor_.state.pc;
}

int Chip::Value(const std::string& name) const {
    const Variable& variable = variables_.at(name);
    const auto byteAt = [this](int address) {
        const auto cell = processor_.description.addressMap.at(static_cast<std::size_t>(address));
        return static_cast<int>(processor_.state.dataMemory.at(cell));
    };
    if (variable.bit >= 0) {
        return (byteAt(variable.address) >> variable.bit) & 1;
    }
    return byteAt(variable.address) +
           (variable.bytes == 2 ? 256 * byteAt(variable.address + 1) : 0);
}

void Chip::SetValue(const std::string& name, int value) {
    const Variable& variable = variables_.at(name);
    const auto address = static_cast<std::size_t>(variable.address);
    auto& memory = processor_.state.dataMemory;
    if (variable.bit >= 0) {
        const int others = memory.at(address) & ~(1 << variable.bit);
        memory.at(address) = static_cast<std::uint8_t>(others | value << variable.bit);
    } else {
        memory.at(address) = static_cast<std::uint8_t>(value & 0xFF);
        if (variable.bytes == 2) {
            memory.at(address + 1) = static_cast<std::uint8_t>(value >> 8);
        }
    }
    core::StateChanged(processor_);
}

void Chip::ReadVariables(const std::string& assemblerText) {
    constexpr std::string_view kType = " As ";
    constexpr std::string_view kName = ";       The address of '";
    constexpr std::string_view kAddress = "' is 0x";
    bool isWord = false;
    for (const std::string_view view : common::SplitLines(assemblerText)) {
        const std::string line(view);
        if (line.starts_with(kName)) {
            const std::size_t end = line.find(kAddress);
            const std::size_t comma = line.find(',', end);
            variables_[line.substr(kName.size(), end - kName.size())] = {
                .address = std::stoi(line.substr(end + kAddress.size()), nullptr, 16),
                .bit = comma == std::string::npos ? -1 : std::stoi(line.substr(comma + 1)),
                .bytes = isWord ? 2 : 1};
        } else if (const std::size_t type = line.rfind(kType); type != std::string::npos) {
            isWord = line.substr(type + kType.size()).starts_with("Word");
        }
    }
}

void Chip::Load(std::string_view assemblerText) {
    const assembler::Assembly assembly = assembler::Assemble(
        assemblerText, models::ReadSymbolLines(processor_.description.asmSymbolLines).symbols,
        processor_.model->defaultConfigurationWord);
    EXPECT_EQ(0, assembly.errorCount) << assembly.listing;
    core::FillProgramMemory(processor_, assembly.words);
    core::SetBreakpoints(processor_, std::array{EndAddress(assembly)});
}

}  // namespace corvane::basic
