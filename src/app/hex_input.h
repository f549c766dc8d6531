// A hexadecimal number that a person types.
#pragma once

#include <optional>
#include <string>

#include "app/dialogs.h"

namespace corvane::app {

struct HexQuestion {
    std::string prompt;  // "Enter new value of W", to which the range is added
    int digits;          // 1 to 4, of the numbers in the texts
    int current;         // what the input box holds at first
    int largest;         // of 0 and up
    std::string remark;  // behind the prompt, or empty
};

// Digits with or without "0x" before or "h" behind them, or "%" and binary ones. Nothing when the
// person cancels, or has been told that the text is no such number.
std::optional<int> AskHex(Dialogs& dialogs, const HexQuestion& question);

// "Go to Address": of a list of the program whose last address is given. The current address may be
// past it.
std::optional<int> AskAddress(Dialogs& dialogs, int current, int lastAddress);

}  // namespace corvane::app
