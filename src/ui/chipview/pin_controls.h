// The controls of one I/O pin: its level, and the buttons that change it while it is an input.
#pragma once

#include <optional>

#include "app/pin_appearance.h"
#include "models/package.h"
#include "ui/chipview/input_button.h"
#include "ui/chipview/package_diagram.h"
#include "ui/widgets/data_label.h"

namespace corvane::ui {

class PinControls {
  public:
    // Puts the controls into the diagram, which owns them from then on.
    PinControls(PackageDiagram& diagram, const models::PackagePin& place,
                models::ModelFamily family, core::Pin pin);

    core::Pin Pin() const { return pin_; }
    std::optional<int> AnalogChannel() const { return analogChannel_; }
    InputButton* Input() const { return input_; }
    QToolButton* Analog() const { return analog_; }  // null without an analog channel

    // Touches nothing while the appearance stays the same. While steps follow each other unseen,
    // the button stays for some more frames after its pin has become an output: one that blinks
    // could not be clicked.
    void Show(const app::PinAppearance& appearance, bool runsExtremelyFast);

  private:
    // A button that is held down stays until it is released.
    void ShowButtons();

    core::Pin pin_;
    std::optional<int> analogChannel_;
    QString place_;  // "RA0/AN0, pin 2"
    DataLabel* level_;
    InputButton* input_;
    QToolButton* analog_ = nullptr;
    std::optional<app::PinAppearance> shown_;
    int framesToHiding_ = 0;
};

}  // namespace corvane::ui
