// What an editor must know of the language of its text. Lines are UTF-8, without line ends.
#pragma once

#include <QString>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "common/colored_span.h"

namespace corvane::ui {

struct SourceLanguage {
    // The line as it is to stand in the text once the caret has left it.
    std::function<std::string(std::string_view line)> form;
    // The spans that are not of the normal colour; later ones cover earlier ones.
    std::function<std::vector<common::ColoredSpan>(std::string_view line)> color;
};

// The whole text in form, and ended by a line end, as it is saved and translated. Line ends are LF.
QString FormedText(const QString& text, const SourceLanguage& language);

}  // namespace corvane::ui
