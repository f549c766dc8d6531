// The label of a pin, with its overbars.
#pragma once

#include <QLabel>
#include <QList>
#include <string_view>

namespace corvane::ui {

// A pin label in words, for tooltips and assistive technology: "RA5/AN4/\SS" is "RA5/AN4/not SS".
QString PinLabelInWords(std::string_view label);

// Shows the names of a pin with a bar over those that follow a backslash. The bars are drawn here:
// those of rich text fall outside the label at scales between whole numbers.
class PinLabel final : public QLabel {
    Q_OBJECT
  public:
    explicit PinLabel(std::string_view label);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    struct Bar {
        QString before;  // the text to its left
        QString barred;
    };
    QList<Bar> bars_;
};

}  // namespace corvane::ui
