// Any bytes are a BASIC text: it is brought into form, coloured and compiled, and what compiles
// must assemble.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "asm/assembler.h"
#include "basic/compiler.h"
#include "basic/editor_form.h"
#include "common/text.h"
#include "require.h"

namespace {

using corvane::basic::Compilation;
using corvane::basic::EditorKeyword;
using corvane::common::Diagnostic;
using corvane::models::ModelDescription;

// Little RAM in every bank, so that short programs reach all of it.
ModelDescription SmallChip() {
    ModelDescription description;
    for (const int first : {0x20, 0xA0, 0x120, 0x1A0}) {
        const int count = first == 0x20 ? 13 : 3;
        for (int i = 0; i < count; ++i) {
            description.gprList.push_back({"", first + i});
        }
    }
    for (const char* line : {"STATUS EQU 3", "PORTB EQU 6", "TRISB EQU 0x86", "EEDATA EQU 0x10C",
                             "EECON1 EQU 0x18C"}) {
        description.basicSymbolLines.push_back({line, 1});
    }
    return description;
}

void CheckForm(const std::string& text, const std::vector<EditorKeyword>& keywords) {
    Require(text.ends_with("\r\n"));
    for (const std::string_view line : corvane::common::SplitLines(text)) {
        for (const auto& span : corvane::basic::ColorLine(line, keywords)) {
            Require(span.start >= 0 && span.length > 0);
            Require(static_cast<std::size_t>(span.start + span.length) <= line.size());
        }
    }
}

void CheckAssembles(const Compilation& compilation) {
    static const std::vector<corvane::models::PredefinedSymbol> kSymbols = {
        {"STATUS", 3}, {"EEDATA", 0x10C}, {"EEADR", 0x10D}, {"EECON1", 0x18C}, {"EECON2", 0x18D},
        {"RP0", 5},    {"RP1", 6},        {"C", 0},         {"Z", 2},          {"RD", 0},
        {"WR", 1},     {"WREN", 2},       {"W", 0},         {"F", 1}};
    const auto assembly = corvane::assembler::Assemble(compilation.assembler, kSymbols, 0x3FFF);
    Require(assembly.errorCount == 0);
    Require(compilation.assembler.ends_with("; End of listing\r\n        END\r\n"));
    Require(compilation.sourceLines.size() == assembly.lines.size());
}

void CheckLineNumber(const Diagnostic& message, std::string_view text, int extraLines) {
    const auto lines = std::count(text.begin(), text.end(), '\n');
    Require(!message.text.empty() && message.line >= 1 && message.line <= lines + extraLines);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const ModelDescription kDescription = SmallChip();
    static const std::vector<EditorKeyword> kKeywords =
        corvane::basic::EditorKeywords(kDescription);
    const corvane::models::Model& model = corvane::models::kModelCatalogue[5];
    const std::string text = corvane::basic::RewriteText(
        std::string_view(reinterpret_cast<const char*>(data), size), kKeywords);
    CheckForm(text, kKeywords);
    const auto compilation = corvane::basic::Compile(text, model, kDescription, 4.0F);
    if (!compilation) {
        CheckLineNumber(compilation.error, text, 1);
        return 0;
    }
    for (const Diagnostic& warning : compilation->warnings) {
        CheckLineNumber(warning, text, 0);
    }
    CheckAssembles(*compilation);
    return 0;
}
