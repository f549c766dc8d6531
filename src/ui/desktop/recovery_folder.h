// Where the application keeps what is not in a person's files.
#pragma once

#include <string>

namespace corvane::ui {

// Where texts that were not saved are kept, in the user's data folder.
std::string RecoveryFolder();

}  // namespace corvane::ui
