#include "inspect/report.h"

#include <array>
#include <charconv>

#include "common/number_text.h"
#include "common/text.h"

namespace corvane::inspect {

namespace {

std::string HexOf(std::int64_t value) {
    constexpr std::size_t kDigits = 16;
    std::array<char, kDigits> buffer;
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(),
                                      static_cast<std::uint64_t>(value), 16);
    return "0x" + common::ToUpper({buffer.data(), result.ptr});
}

std::string ValueText(const Evaluation& evaluation) {
    return evaluation.error != nullptr
               ? std::string("? (") + evaluation.error + ")"
               : std::to_string(evaluation.value) + " (" + HexOf(evaluation.value) + ")";
}

}  // namespace

std::string ValuesText(const Expression& expression, const Scene& scene) {
    std::string text;
    for (const NamedPart& name : expression.names) {
        if (common::ToUpper(name.text) != "PC") {  // which closes every list
            text += name.text + " = " + ValueText(Evaluate(expression, name, scene.moment)) + ", ";
        }
    }
    return text + "PC = " + PlaceText(scene.moment.processor.state.pc, scene.program);
}

std::string PlaceText(int address, const project::Program& program) {
    const std::string place = project::PlaceText(program, address);
    return common::Hex4(address) + (place.empty() ? "" : " (" + place + ")");
}

std::string AfterText(const Scene& scene) {
    return "after " + std::to_string(scene.moment.measurements.Steps()) + " steps (" +
           TimeText(scene.moment.processor.state.clockCycles, scene.clock) + ")";
}

std::string FailureText(std::string_view prefix, const Expression& expression, const char* error,
                        const Scene& scene) {
    const std::string reason = error == nullptr ? "" : std::string(error) + ", ";
    return "expected " + std::string(prefix) + expression.text + " " + AfterText(scene) + ": " +
           reason + ValuesText(expression, scene);
}

std::string FaultText(const Fault& fault, const Scene& scene) {
    const std::string place = project::PlaceText(scene.program, fault.address);
    return std::string(FaultName(fault.kind)) + " " + AfterText(scene) + " at " +
           common::Hex4(fault.address) + ": " + fault.text +
           (place.empty() ? "" : " (" + place + ")");
}

}  // namespace corvane::inspect
