// Intel HEX files that somebody has made, perhaps for another model.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "loader/intel_hex.h"
#include "models/catalogue.h"
#include "project/messages.h"

namespace corvane::project {

// Words beyond the model's memory give a warning. FILE is the name that messages bear.
std::optional<loader::Program> LoadHexText(const std::string& file, std::string_view text,
                                           const models::Model& model, Messages& messages);

// The same for a file or a pipe.
std::optional<loader::Program> ReadHexFile(const std::string& file, const models::Model& model,
                                           Messages& messages);

}  // namespace corvane::project
