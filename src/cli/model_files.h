// Finding and reading the model description files.
#pragma once

#include <filesystem>
#include <string>

#include "common/result.h"
#include "models/catalogue.h"
#include "models/description.h"

namespace corvane::cli {

struct ModelOptions {
    const models::Model* model = &models::kModelCatalogue[models::kDefaultModel];
    std::string folder;   // of the description files; empty when they are to be found
    std::string name;     // of the chip, as a person has written it; empty without --model
    std::string warning;  // what the chip that was named has and the model has not, or nothing
};

struct ModelFile {
    const models::Model* model;
    std::string path;  // as messages name it
    models::ModelDescription description;
};

// The path of the model's description file; empty when there is none.
std::string ModelFilePath(const ModelOptions& options);

// Without a folder the file is looked for beside the executable, then in the data folder. The error
// is complete.
common::Result<ModelFile> ReadModelFile(const ModelOptions& options);

// Warns of the lines that the readers of predefined symbols have skipped.
void ReportBadSymbolLines(const ModelFile& file,
                          const std::vector<models::SymbolLine>& symbolLines);

}  // namespace corvane::cli
