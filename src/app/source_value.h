// What a name in a source line stands for while its program runs.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "core/processor.h"
#include "inspect/names.h"
#include "project/program_kind.h"

namespace corvane::app {

// The name at this byte of a line (0 is the first), or right before it: "COUNT", "PORTB.0". The bit
// of a bit instruction is named with its register. Empty: there is none.
std::string NameAt(std::string_view line, std::size_t column, project::ProgramKind kind);

// "count = 5 (0x05)", "PORTB.0 = 1"; empty when the name means nothing.
std::string ValueText(const std::string& name, const inspect::Names& names,
                      const core::Processor& processor);

}  // namespace corvane::app
