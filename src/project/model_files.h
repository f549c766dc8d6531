// Finding and reading the model description files.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "models/catalogue.h"
#include "models/description.h"
#include "project/messages.h"

namespace corvane::project {

struct ModelChoice {
    const models::Model* model = &models::kModelCatalogue[models::kDefaultModel];
    std::string folder{};   // of the description files; empty when they are to be found
    std::string name{};     // of the chip, as a person has written it; empty without a choice
    std::string warning{};  // what the chip that was named has and the model has not, or nothing
};

struct ModelFile {
    const models::Model* model;
    std::string path;  // as messages name it
    models::ModelDescription description;
};

// Of description files: the folder of the executable if one of them is there, else the data folder.
std::string ModelFolder();

// The path of the model's description file; empty when there is none.
std::string ModelFilePath(const ModelChoice& choice);

// A file that is there and corrupted gives two messages, the second with its line.
std::optional<ModelFile> ReadModelFile(const ModelChoice& choice, Messages& messages);

// Warns of the lines that the readers of predefined symbols have skipped.
void AddBadSymbolLines(const ModelFile& file, const std::vector<models::SymbolLine>& symbolLines,
                       Messages& messages);

// The model that a name of another tool means, with a warning for a person where its chip has more.
// Without a value it is none of the eight.
std::optional<ModelChoice> ModelOfProcessor(const std::string& file, const std::string& processor,
                                            const ModelChoice& choice, Messages& messages);

}  // namespace corvane::project
