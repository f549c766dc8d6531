// Texts of the libraries below, which are UTF-8, as the toolkit's.
#pragma once

#include <QString>
#include <string_view>

namespace corvane::ui {

inline QString QtString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace corvane::ui
