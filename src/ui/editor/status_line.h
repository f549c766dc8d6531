// The line at the bottom of a source window: what the last translation came to, whether the text
// has been saved, its encoding, and where the caret is.
#pragma once

#include <QWidget>

class QLabel;

namespace corvane::ui {

class StatusLine final : public QWidget {
    Q_OBJECT
  public:
    explicit StatusLine(QWidget* parent = nullptr);

    void ShowResult(const QString& text);
    // "modified", "read-only", or nothing to say.
    void ShowState(const QString& text);
    void ShowEncoding(const QString& name);
    // Both from 1.
    void ShowCaret(int line, int column);

  private:
    QLabel* AddLabel(const char* name, const QString& meaning, const QString& widestText);

    QLabel* result_;
    QLabel* state_;
    QLabel* encoding_;
    QLabel* caret_;
};

}  // namespace corvane::ui
