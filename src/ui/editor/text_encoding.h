// A file's bytes as text and back. What was read from a text file can be written again byte for
// byte.
#pragma once

#include <QString>
#include <cstdint>
#include <string>
#include <string_view>

namespace corvane::ui {

enum class TextEncoding : std::uint8_t { Utf8, Latin1, Utf16, Binary };

// Bytes that are not valid UTF-8 are taken for Latin-1, as older editors wrote it. What begins with
// a UTF-16 mark is UTF-16; what holds a NUL or a code point that is no character is no text at all.
TextEncoding EncodingOf(std::string_view bytes);
// Whether a text of this encoding can be edited and written again.
bool IsEditable(TextEncoding encoding);
// "UTF-8"
QString NameOf(TextEncoding encoding);

// What an editor shows; its inverse is EncodedText.
QString DecodedText(std::string_view bytes, TextEncoding encoding);
// The encoding itself if it holds the text so that EncodingOf finds it again, else UTF-8.
TextEncoding EncodingFor(const QString& text, TextEncoding encoding);
// In the encoding for the text.
std::string EncodedText(const QString& text, TextEncoding encoding);

}  // namespace corvane::ui
