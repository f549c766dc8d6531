// The button that toggles the level of an input pin.
#pragma once

#include <QToolButton>

namespace corvane::ui {

class InputButton : public QToolButton {
    Q_OBJECT
  public:
    using QToolButton::QToolButton;

    // While clicked is emitted: whether a key pressed the button.
    bool IsPressedByKey() const { return isPressedByKey_; }

  protected:
    void keyReleaseEvent(QKeyEvent* event) override;

  private:
    bool isPressedByKey_ = false;
};

}  // namespace corvane::ui
