// Draws a window's content when it is asked for and the window can be seen; else as soon as it can.
#pragma once

#include <QObject>
#include <functional>

class QWidget;

namespace corvane::ui {

class RefreshWhenVisible : public QObject {
    Q_OBJECT
  public:
    RefreshWhenVisible(QWidget& window, std::function<void()> draw);

    void Request();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QWidget* window_;
    std::function<void()> draw_;
    bool isStale_ = false;
};

}  // namespace corvane::ui
