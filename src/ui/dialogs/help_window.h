// A window with one of the help texts.
#pragma once

#include <QWidget>

class QHBoxLayout;
class QLabel;
class QLineEdit;
class QTextBrowser;

namespace corvane::ui {

class HelpWindow : public QWidget {
    Q_OBJECT
  public:
    // The file's name in data/help.
    HelpWindow(const QString& title, const QString& fileName);

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void ShowText(const QString& title, const QString& fileName);
    QHBoxLayout* MakeSearch();
    void Find(bool backwards);

    QTextBrowser* text_;
    QLineEdit* words_;
    QLabel* message_;
};

}  // namespace corvane::ui
