#include "ui/widgets/field_frame.h"

namespace corvane::ui {

void SetFieldFrame(QLabel& label) {
    label.setFrameStyle(QFrame::StyledPanel | QFrame::Plain);
    label.setAutoFillBackground(true);
    label.setBackgroundRole(QPalette::Base);
    label.setForegroundRole(QPalette::Text);
    label.setMargin(kFieldPadding - label.frameWidth());
}

}  // namespace corvane::ui
