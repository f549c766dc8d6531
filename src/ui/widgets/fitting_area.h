// What a window shows, with scroll bars when the window is smaller than that.
#pragma once

#include <QScrollArea>

namespace corvane::ui {

class FittingArea : public QScrollArea {
    Q_OBJECT
  public:
    explicit FittingArea(QWidget* content);

    QSize sizeHint() const override;  // all of the content
};

}  // namespace corvane::ui
