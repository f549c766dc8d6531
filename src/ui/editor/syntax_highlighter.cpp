#include "ui/editor/syntax_highlighter.h"

#include <QTextBlock>

namespace corvane::ui {

namespace {

struct ColorPair {
    QColor onLight;
    QColor onDark;
};

ColorPair PairOf(common::TextColor color) {
    switch (color) {
        case common::TextColor::Keyword:
            return {{0, 0, 150}, {130, 170, 255}};
        case common::TextColor::AssemblerComment:
            return {{0, 64, 64}, {110, 190, 190}};
        case common::TextColor::BasicComment:
            return {{0, 150, 0}, {110, 200, 110}};
        case common::TextColor::Quoted:
            break;
    }
    return {{150, 0, 0}, {255, 140, 140}};
}

// Spans count bytes of UTF-8, the toolkit counts UTF-16 units. They agree in an ASCII line.
int CharactersIn(std::string_view line, int bytes) {
    return static_cast<int>(QString::fromUtf8(line.data(), bytes).size());
}

}  // namespace

QColor ColorOf(common::TextColor color, const QPalette& palette) {
    const ColorPair pair = PairOf(color);
    return palette.color(QPalette::Base).lightness() < 128 ? pair.onDark : pair.onLight;
}

SyntaxHighlighter::SyntaxHighlighter(QTextDocument& document, const SourceLanguage& language)
    : QSyntaxHighlighter(&document), language_(&language) {}

void SyntaxHighlighter::SetEnabled(bool enabled) {
    if (enabled != enabled_) {
        enabled_ = enabled;
        rehighlight();
    }
}

void SyntaxHighlighter::SetPalette(const QPalette& palette) {
    const bool hasOtherColors = ColorOf(common::TextColor::Keyword, palette) !=
                                ColorOf(common::TextColor::Keyword, palette_);
    palette_ = palette;
    if (hasOtherColors) {
        rehighlight();
    }
}

void SyntaxHighlighter::SetEditedLine(const QTextCursor& line) {
    const QTextBlock previous = editedLine_.block();
    editedLine_ = line;
    if (previous.isValid()) {
        rehighlightBlock(previous);
    }
    if (!line.isNull() && line.block() != previous) {
        rehighlightBlock(line.block());
    }
}

void SyntaxHighlighter::highlightBlock(const QString& text) {
    if (!enabled_ || text.isEmpty() ||
        (!editedLine_.isNull() && currentBlock() == editedLine_.block())) {
        return;
    }
    const std::string line = text.toStdString();
    const bool isAscii = static_cast<qsizetype>(line.size()) == text.size();
    for (const common::ColoredSpan& span : language_->color(line)) {
        const int start = isAscii ? span.start : CharactersIn(line, span.start);
        const int end =
            isAscii ? span.start + span.length : CharactersIn(line, span.start + span.length);
        setFormat(start, end - start, ColorOf(span.color, palette_));
    }
}

}  // namespace corvane::ui
