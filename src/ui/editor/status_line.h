// The line at the bottom of a source window: what the last translation came to, whether the text
// has been saved, its encoding, and where the caret is.
#pragma once

#include <QWidget>
#include <functional>

class QLabel;
class QPushButton;

namespace corvane::ui {

class StatusLine final : public QWidget {
    Q_OBJECT
  public:
    explicit StatusLine(QWidget* parent = nullptr);

    void ShowResult(const QString& text);
    // A button behind it, until the next result; an empty caption takes it away.
    void OfferCommand(const QString& caption, const std::function<void()>& run);
    // "modified", "read-only", or nothing to say.
    void ShowState(const QString& text);
    void ShowEncoding(const QString& name);
    // What the debugger says of the text.
    void ShowProgram(const QString& text);
    // Of the name at the caret.
    void ShowValue(const QString& text);
    // Both from 1; what is to be said of the line.
    void ShowCaret(int line, int column, const QString& note = {});

  private:
    QLabel* AddLabel(const char* name, const QString& meaning, const QString& widestText);

    QLabel* result_;
    QPushButton* offer_;
    std::function<void()> offered_;
    QLabel* value_;
    QLabel* program_;
    QLabel* state_;
    QLabel* encoding_;
    QLabel* caret_;
};

}  // namespace corvane::ui
