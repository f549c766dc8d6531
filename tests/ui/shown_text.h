// What an editor shows of its text: where which colour stands.
#pragma once

#include <QPlainTextEdit>
#include <QTextBlock>
#include <QTextLayout>
#include <string>

namespace corvane::ui {

// One character for each character of the line: '.' in the normal colour, else the colour's letter
// (k keyword, c comment, q quoted).
inline std::string ColorsOfLine(const QPlainTextEdit& editor, int lineNumber) {
    const QTextBlock line = editor.document()->findBlockByNumber(lineNumber - 1);
    std::string colors(static_cast<std::size_t>(line.text().size()), '.');
    for (const QTextLayout::FormatRange& range : line.layout()->formats()) {
        const QColor color = range.format.foreground().color();
        char letter = '?';
        if (color == QColor(0, 0, 150)) {
            letter = 'k';
        } else if (color == QColor(0, 64, 64) || color == QColor(0, 150, 0)) {
            letter = 'c';
        } else if (color == QColor(150, 0, 0)) {
            letter = 'q';
        }
        for (int i = range.start; i < range.start + range.length; ++i) {
            colors.at(static_cast<std::size_t>(i)) = letter;
        }
    }
    return colors;
}

inline std::string LineOf(const QPlainTextEdit& editor, int lineNumber) {
    return editor.document()->findBlockByNumber(lineNumber - 1).text().toStdString();
}

}  // namespace corvane::ui
