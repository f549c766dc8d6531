// Where the application has its files.
#pragma once

#include <string>

namespace corvane::ui {

// Of the description files: the folder of the executable if it holds description files, else the
// installed data folder; with trailing separator.
std::string ApplicationFolder();

// Where texts that were not saved are kept, in the user's data folder.
std::string RecoveryFolder();

}  // namespace corvane::ui
