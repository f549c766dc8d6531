#include "ui/chipview/input_button.h"

namespace corvane::ui {

void InputButton::keyReleaseEvent(QKeyEvent* event) {
    isPressedByKey_ = true;
    QToolButton::keyReleaseEvent(event);
    isPressedByKey_ = false;
}

}  // namespace corvane::ui
