// The label of a pin, with its overbars.
#pragma once

#include <QLabel>
#include <string_view>

namespace corvane::ui {

// A pin label in words, for tooltips and assistive technology: "RA5/AN4/\SS" is "RA5/AN4/not SS".
QString PinLabelInWords(std::string_view label);

// Shows the names of a pin with a bar over those that follow a backslash.
QLabel* MakePinLabel(std::string_view label);

}  // namespace corvane::ui
