#include "ui/editor/text_encoding.h"

#include <QStringDecoder>
#include <algorithm>

namespace corvane::ui {

namespace {

// A document takes a paragraph separator for a line end. Its stand-in is a code point that is no
// character, so that no text has it.
constexpr QChar kSeparatorStandIn(0xFDD2);

bool IsNoCharacter(QChar unit) {
    return unit.isNull() || (unit >= QChar(0xFDD0) && unit <= QChar(0xFDEF));
}

bool IsAscii(std::string_view bytes) {
    return std::ranges::all_of(bytes, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

TextEncoding EncodingOfBytes(std::string_view bytes, const QString& asUtf8, bool isUtf8) {
    if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) {
        return TextEncoding::Utf16;
    }
    if (!isUtf8) {
        const bool hasNul = bytes.find('\0') != std::string_view::npos;
        return hasNul ? TextEncoding::Binary : TextEncoding::Latin1;
    }
    return std::ranges::any_of(asUtf8, IsNoCharacter) ? TextEncoding::Binary : TextEncoding::Utf8;
}

}  // namespace

TextEncoding EncodingOf(std::string_view bytes) {
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString decoded =
        decoder.decode(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
    return EncodingOfBytes(bytes, decoded, decoded.isNull() || !decoder.hasError());
}

bool IsEditable(TextEncoding encoding) {
    return encoding == TextEncoding::Utf8 || encoding == TextEncoding::Latin1;
}

QString NameOf(TextEncoding encoding) {
    switch (encoding) {
        case TextEncoding::Utf8:
            return QStringLiteral("UTF-8");
        case TextEncoding::Latin1:
            return QStringLiteral("Latin-1");
        case TextEncoding::Utf16:
            return QStringLiteral("UTF-16");
        case TextEncoding::Binary:
            break;
    }
    return QStringLiteral("binary");
}

QString DecodedText(std::string_view bytes, TextEncoding encoding) {
    const auto size = static_cast<qsizetype>(bytes.size());
    switch (encoding) {
        case TextEncoding::Utf8:
            return QString::fromUtf8(bytes.data(), size)
                .replace(QChar::ParagraphSeparator, kSeparatorStandIn);
        case TextEncoding::Utf16:
            return QStringDecoder(QStringDecoder::Utf16).decode(QByteArrayView(bytes.data(), size));
        case TextEncoding::Latin1:
        case TextEncoding::Binary:
            break;
    }
    return QString::fromLatin1(bytes.data(), size);
}

TextEncoding EncodingFor(const QString& text, TextEncoding encoding) {
    if (encoding != TextEncoding::Latin1) {
        return encoding;
    }
    const bool fits = std::ranges::all_of(text, [](QChar unit) { return unit.unicode() <= 0xFF; });
    const std::string bytes = fits ? text.toLatin1().toStdString() : "";
    return fits && (IsAscii(bytes) || EncodingOf(bytes) == TextEncoding::Latin1)
               ? TextEncoding::Latin1
               : TextEncoding::Utf8;
}

std::string EncodedText(const QString& text, TextEncoding encoding) {
    if (EncodingFor(text, encoding) == TextEncoding::Latin1) {
        return text.toLatin1().toStdString();
    }
    return QString(text).replace(kSeparatorStandIn, QChar::ParagraphSeparator).toStdString();
}

}  // namespace corvane::ui
