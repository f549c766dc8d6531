// A file's bytes as text and back. What was read can be written again byte for byte.
#pragma once

#include <QString>
#include <cstdint>
#include <string>
#include <string_view>

namespace corvane::ui {

enum class TextEncoding : std::uint8_t { Utf8, Latin1 };

// Bytes that are not valid UTF-8 are taken for Latin-1, as older editors wrote it.
TextEncoding EncodingOf(std::string_view bytes);
QString DecodedText(std::string_view bytes, TextEncoding encoding);
// A text with characters that the encoding lacks is written as UTF-8.
std::string EncodedText(const QString& text, TextEncoding encoding);

}  // namespace corvane::ui
