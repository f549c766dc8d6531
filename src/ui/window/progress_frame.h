// What a long command is doing and how far it has come, in the middle of its window.
#pragma once

#include <QFrame>
#include <string_view>

class QLabel;

namespace corvane::ui {

class ProgressFrame final : public QFrame {
    Q_OBJECT
  public:
    // Hidden at first, and in front of everything else in the window while it is shown.
    ProgressFrame(const QString& caption, QWidget& window);

    // A line of 0 means none.
    void ShowProgress(std::string_view status, int line);

  protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void MoveToMiddle();

    QLabel* status_;
    QLabel* line_;
};

}  // namespace corvane::ui
