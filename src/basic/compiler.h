// The BASIC compiler: BASIC text in, assembler text out.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "common/progress.h"
#include "common/result.h"
#include "models/catalogue.h"
#include "models/description.h"

namespace corvane::basic {

// A problem of one line, numbered from 1. The message has no leading ": ".
struct LineMessage {
    int lineNumber = 0;
    std::string message;
};

struct Compilation {
    std::string assembler;              // CR LF line ends
    std::vector<LineMessage> warnings;  // in line order
};

// Compiles a text that RewriteText has brought into form. The clock frequency is in MHz.
common::Result<Compilation, LineMessage> Compile(std::string_view text, const models::Model& model,
                                                 const models::ModelDescription& description,
                                                 float clockFrequency,
                                                 const common::ProgressCallback& progress = {});

// What a person is told: "Error in line N: MESSAGE".
std::string ErrorText(const LineMessage& error);

}  // namespace corvane::basic
