// The fields of the configuration word, and the word as choices in them.
// Data sheet: "Configuration Bits".
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "models/catalogue.h"

namespace corvane::models {

struct ConfigurationChoice {
    std::string_view caption;
    int bits;  // the field's bits in place
};

struct ConfigurationField {
    std::string_view caption;
    int mask;  // the bits of the word that the field covers
    std::span<const ConfigurationChoice> choices;
};

// In the order in which a person is asked.
std::span<const ConfigurationField> ConfigurationFields(ModelFamily family);

// Index of the choice that the word holds; nothing for bits that are no choice's, such as partial
// code protection.
std::optional<int> ChoiceOf(const ConfigurationField& field, int word);

// The word with these choices, one for each field; bits of no field, and of fields without choice,
// are 1.
int WordOfChoices(std::span<const ConfigurationField> fields,
                  std::span<const std::optional<int>> choices);

// "op31" for the first choice of the third field; both arguments count from 0.
std::string ChoiceControlName(int field, int choice);

}  // namespace corvane::models
