// The dialog in which a person chooses the microcontroller that is simulated.
#pragma once

#include <QButtonGroup>
#include <QDialog>

namespace corvane::ui {

class SelectMicrocontrollerDialog : public QDialog {
    Q_OBJECT
  public:
    // The row of the model catalogue that is in force. It may be one that is not offered; it stays
    // the choice until another is made.
    SelectMicrocontrollerDialog(int currentModel, QWidget* parent);

    int ChosenModel() const;  // row of the model catalogue

  private:
    int currentModel_;
    QButtonGroup* choices_;
};

}  // namespace corvane::ui
