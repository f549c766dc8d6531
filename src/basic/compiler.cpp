#include "basic/compiler.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <utility>

#include "basic/program.h"
#include "basic/translation.h"
#include "basic/words.h"
#include "common/number_text.h"
#include "models/symbol_lines.h"

namespace corvane::basic {

namespace {

using CompileResult = common::Result<Compilation, common::Diagnostic>;

constexpr std::array<std::string_view, kScratchRegisters> kScratchRegisterNames = {
    "R0L", "R0H", "R1L", "R1H", "R2L", "R2H", "R3L", "R3H", "R4L", "R4H"};

// The inner loops of one millisecond: each takes 50 instruction cycles, and 100 more surround them.
int WaitLoopCount(float clockFrequency) {
    return static_cast<int>(std::lrint(clockFrequency * 250.0F / 50.0F - 2.0F) & 0xFF);
}

void WriteBegin(CodeWriter& code, const std::vector<models::Gpr>& cells) {
    code.Line("; Begin");
    for (std::size_t i = 0; i < std::min(kScratchRegisterNames.size(), cells.size()); ++i) {
        code.Line("        " + std::string(kScratchRegisterNames[i]) + " EQU 0x" +
                  common::HexText(cells[i].address));
    }
}

void WriteEnd(Translation& translation) {
    CodeWriter& code = translation.code;
    code.BeginSourceLine(0);
    code.Line("; End");
    const std::string label = translation.labels.NewLabel();
    code.LabelLine(label, "GOTO " + label);
    AppendRoutines(translation.routines, code);
    code.Line("; End of listing");
    code.Line("        END");
}

std::vector<LineLabel> LabelsOf(const LineLabels& lineLabels) {
    std::vector<LineLabel> labels;
    for (const auto& [name, assemblerLabel] : lineLabels) {
        labels.push_back({std::string(name), assemblerLabel});
    }
    return labels;
}

}  // namespace

CompileResult Compile(std::string_view text, const models::Model& model,
                      const models::ModelDescription& description, float clockFrequency,
                      const common::ProgressCallback& progress) {
    const std::vector<std::string> lines = PrepareLines(text);
    VariableTable variables(models::ReadSymbolLines(description.basicSymbolLines).symbols);
    LabelGenerator labels;
    auto program = ReadProgram(lines, variables, static_cast<int>(description.gprList.size()),
                               labels, progress);
    if (!program) {
        return CompileResult::Failure(std::move(program.error));
    }
    Translation translation{
        .variables = std::move(variables),
        .ram = RamPlacement(description.gprList, program->declared.BitCells()),
        .lineLabels = std::move(program->lineLabels),
        .labels = labels,
        .eeprom = models::TraitsOf(model.family),
        .waitLoopCount = WaitLoopCount(clockFrequency),
    };
    WriteBegin(translation.code, description.gprList);
    if (common::Status status = TranslateLines(translation, program->lines, progress); !status) {
        return CompileResult::Failure(
            {.line = translation.lineNumber, .text = std::move(status.error)});
    }
    WriteEnd(translation);
    translation.lineNumber = std::max(static_cast<int>(lines.size()), 1);
    WarnOfLimits(translation);
    return CompileResult::Success({.assembler = translation.code.TakeText(),
                                   .sourceLines = translation.code.TakeSourceLines(),
                                   .variables = std::move(translation.declared),
                                   .labels = LabelsOf(translation.lineLabels),
                                   .warnings = std::move(translation.warnings)});
}

}  // namespace corvane::basic
