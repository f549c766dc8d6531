#include "cli/commands/models_command.h"

#include <optional>
#include <string>
#include <string_view>

#include "cli/output.h"
#include "common/number_text.h"
#include "models/catalogue.h"

namespace corvane::cli {

namespace {

constexpr std::size_t kColumnGap = 2;

std::string LeftAligned(std::string_view text, std::size_t width) {
    return std::string(text) + std::string(width - text.size() + kColumnGap, ' ');
}

std::string RightAligned(int value, std::size_t width) {
    const std::string digits = std::to_string(value);
    return std::string(width - digits.size(), ' ') + digits + std::string(kColumnGap, ' ');
}

}  // namespace

CommandResult ListModels() {
    std::string text;
    for (const models::Model& model : models::kModelCatalogue) {
        text += LeftAligned(model.name, 9) + RightAligned(model.programWords, 4) +
                RightAligned(model.eepromBytes, 3) +
                LeftAligned(common::Hex4(model.defaultConfigurationWord), 4);
        text.append(models::TraitsOf(model.family).name).append("\n");
    }
    const std::optional<std::string> error = WriteOutput("-", text);
    return error ? Refused(*error) : CommandResult{};
}

}  // namespace corvane::cli
