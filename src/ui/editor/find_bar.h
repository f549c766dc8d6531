// The line under an editor in which a person types what to look for.
#pragma once

#include <QTextCursor>
#include <QWidget>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;

namespace corvane::ui {

class FindBar final : public QWidget {
    Q_OBJECT
  public:
    explicit FindBar(QPlainTextEdit& editor, QWidget* parent = nullptr);

    // Shows the bar, with the editor's selection as what to look for.
    void Open();
    // From the caret on; behind the end of the text it goes on at the other end.
    void FindNext();
    void FindPrevious();

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void FindWhileTyping();
    void Find(bool backwards);
    bool FindFrom(const QTextCursor& start, bool backwards);
    void Close();

    QPlainTextEdit* editor_;
    QLineEdit* text_;
    QCheckBox* matchCase_;
    QLabel* message_;
};

}  // namespace corvane::ui
