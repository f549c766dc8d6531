// Colours the lines of a source text. The line that is being edited stays uncoloured.
#pragma once

#include <QPalette>
#include <QSyntaxHighlighter>
#include <QTextCursor>

#include "ui/editor/source_language.h"

namespace corvane::ui {

// The given colour on a light background, a readable counterpart on a dark one.
QColor ColorOf(common::TextColor color, const QPalette& palette);

class SyntaxHighlighter final : public QSyntaxHighlighter {
    Q_OBJECT
  public:
    SyntaxHighlighter(QTextDocument& document, const SourceLanguage& language);

    void SetEnabled(bool enabled);
    void SetPalette(const QPalette& palette);
    // The line with this cursor is being edited; a null cursor means none is. The lines in
    // question are coloured anew.
    void SetEditedLine(const QTextCursor& line);

  protected:
    void highlightBlock(const QString& text) override;

  private:
    const SourceLanguage* language_;
    QPalette palette_;
    QTextCursor editedLine_;
    bool enabled_ = true;
};

}  // namespace corvane::ui
