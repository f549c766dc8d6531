#include "ui/editor/text_encoding.h"

#include <QStringDecoder>
#include <algorithm>

namespace corvane::ui {

TextEncoding EncodingOf(std::string_view bytes) {
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString decoded =
        decoder.decode(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
    return decoded.isNull() || !decoder.hasError() ? TextEncoding::Utf8 : TextEncoding::Latin1;
}

QString DecodedText(std::string_view bytes, TextEncoding encoding) {
    const auto size = static_cast<qsizetype>(bytes.size());
    return encoding == TextEncoding::Utf8 ? QString::fromUtf8(bytes.data(), size)
                                          : QString::fromLatin1(bytes.data(), size);
}

std::string EncodedText(const QString& text, TextEncoding encoding) {
    const bool fits = std::all_of(text.begin(), text.end(),
                                  [](QChar character) { return character.unicode() <= 0xFF; });
    return encoding == TextEncoding::Latin1 && fits ? text.toLatin1().toStdString()
                                                    : text.toStdString();
}

}  // namespace corvane::ui
