// Texts of the libraries below, which are UTF-8, as the toolkit's.
#pragma once

#include <QString>
#include <string_view>

namespace corvane::ui {

// Bytes that are no UTF-8 become replacement characters.
inline QString QtString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace corvane::ui
