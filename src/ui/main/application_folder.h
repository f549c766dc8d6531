// Where the model description files lie.
#pragma once

#include <string>

namespace corvane::ui {

// The folder of the executable if it holds description files, else the installed data folder; with
// trailing separator.
std::string ApplicationFolder();

}  // namespace corvane::ui
