// What the product ships, as a test needs it: models, their description files, examples.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include "common/text_file.h"
#include "models/catalogue.h"
#include "models/description.h"

namespace corvane {

inline std::string ReadSourceFile(const std::string& pathInSourceTree) {
    const auto text = common::ReadTextFile(CORVANE_SOURCE_DIR "/" + pathInSourceTree);
    if (!text) {
        throw std::runtime_error(pathInSourceTree + ": " + text.error);
    }
    return *text;
}

inline const models::Model& ModelNamed(std::string_view name) {
    return models::kModelCatalogue.at(static_cast<std::size_t>(models::FindModel(name).value()));
}

inline models::ModelDescription DescriptionOf(const models::Model& model) {
    const std::string path = "data/models/" + models::DescriptionFileName(model.name);
    const auto description = models::ReadModelDescription(ReadSourceFile(path));
    if (!description) {
        throw std::runtime_error(path + ":" + std::to_string(description.error) +
                                 ": not a register line");
    }
    return *description;
}

}  // namespace corvane
