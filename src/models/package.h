// The dual-in-line packages. Data sheet: "Pin Diagrams".
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "models/catalogue.h"

namespace corvane::models {

enum class PackageSide : std::uint8_t { Left, Right };

struct PackagePin {
    int number;  // from 1, down the left side and up the right side
    PackageSide side;
    int row;  // from 0 at the notch
    // An I/O pin's label begins with its name ("RA0/AN0"). A part behind a backslash, up to the
    // next slash, bears an overbar ("RA5/AN4/\SS").
    std::string_view label;
};

// The pins of the left side from the notch down, then those of the right side from the notch down.
std::vector<PackagePin> PackagePins(ModelFamily family);

}  // namespace corvane::models
