// Any words are a program: the check must end, and what it finds must lie inside the program.
#include "check/check.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

#include "models/description.h"
#include "require.h"

namespace {

using corvane::check::Finding;
using corvane::check::Findings;
using corvane::check::Program;

constexpr std::size_t kProgramWords = 4096;  // of which the input fills the first
constexpr std::size_t kMostFilled = 512;
constexpr std::size_t kBytesOfWord = 3;  // the third says what the source names

Program ProgramOf(const std::uint8_t* data, std::size_t size) {
    Program program{std::vector<std::uint16_t>(kProgramWords), std::vector<bool>(kProgramWords),
                    std::vector<std::optional<corvane::check::Operand>>(kProgramWords)};
    for (std::size_t i = 0; i < std::min(size / kBytesOfWord, kMostFilled); ++i) {
        const std::uint8_t* bytes = data + kBytesOfWord * i;
        const int word = bytes[0] + 256 * (bytes[1] & 0x3F);
        program.words[i] = static_cast<std::uint16_t>(word);
        program.isProgrammed[i] = (bytes[1] & 0x40) == 0;
        if ((bytes[1] & 0x80) != 0) {
            // An address of this word's field, in one of the banks or pages.
            program.operands[i] = {"NAME", (word & 0x7FF) | (bytes[2] & 3) << 11};
        }
        if ((bytes[2] & 0x80) != 0) {
            program.operands[i] = {"PORTB", (word & 0x7F) | (bytes[2] & 3) << 7};
        }
    }
    return program;
}

void CheckFindings(const Findings& findings) {
    for (const Finding& finding : findings.list) {
        Require(finding.address >= 0 && std::cmp_less(finding.address, kProgramWords));
        Require(!finding.text.empty());
        Require(std::all_of(finding.path.begin(), finding.path.end(), [](const auto& note) {
            return note.address >= 0 && std::cmp_less(note.address, kProgramWords) &&
                   !note.text.empty();
        }));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const corvane::models::ModelDescription description;
    CheckFindings(corvane::check::Check(ProgramOf(data, size), description));
    return 0;
}
