// A label for a file's path, which is shortened in the middle where there is no room for it.
#pragma once

#include <QLabel>

namespace corvane::ui {

class PathLabel : public QLabel {
    Q_OBJECT
  public:
    explicit PathLabel(QWidget* parent = nullptr);

    void ShowPath(const QString& path);

    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace corvane::ui
