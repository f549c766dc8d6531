#include "core/model_descriptions.h"

#include <filesystem>
#include <stdexcept>

#include "common/text_file.h"

namespace corvane::core {

models::ModelDescription DescriptionOf(const models::Model& model) {
    const std::filesystem::path path = std::filesystem::path(CORVANE_SOURCE_DIR) / "data/models" /
                                       models::DescriptionFileName(model.name);
    const auto text = common::ReadTextFile(path);
    if (!text) {
        throw std::runtime_error(path.string() + ": " + text.error);
    }
    auto description = models::ReadModelDescription(*text);
    if (!description) {
        throw std::runtime_error(path.string() + ":" + std::to_string(description.error) +
                                 ": not a register line");
    }
    return *description;
}

}  // namespace corvane::core
