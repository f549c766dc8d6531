// The panel in which the value of an analog input is set.
#pragma once

#include <QFrame>

#include "app/pin_appearance.h"
#include "models/catalogue.h"

class QDoubleSpinBox;
class QSlider;

namespace corvane::ui {

class DataLabel;

class AnalogPanel : public QFrame {
    Q_OBJECT
  public:
    explicit AnalogPanel(models::ModelFamily family);

    // Shows the panel, or lets the open one show this channel.
    void Open(int channel, int value);

  signals:
    void Accepted(int channel, int value);

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void MakeSlider();
    void MakeTypedValue();
    void Accept();
    void ShowValue(int value);
    double InUnits(int value) const;

    models::ModelFamily family_;
    app::AnalogUnit unit_;
    int selectedChannel_ = 0;  // channel + 1; 0 while the panel is closed
    DataLabel* channelLabel_;
    DataLabel* valueLabel_;
    QSlider* slider_;
    QDoubleSpinBox* typed_;
};

}  // namespace corvane::ui
