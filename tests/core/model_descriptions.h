// The register maps that the tests run on: the description files of the product.
#pragma once

#include "models/catalogue.h"
#include "models/description.h"

namespace corvane::core {

// Throws std::runtime_error when the model's file is missing or corrupt.
models::ModelDescription DescriptionOf(const models::Model& model);

}  // namespace corvane::core
