// The Microcontroller View: the package with the state of every pin. Pins are toggled and analog
// inputs set here. One class serves all packages.
#pragma once

#include <vector>

#include "ui/chipview/pin_controls.h"
#include "ui/window/secondary_window.h"

namespace corvane::ui {

class AnalogPanel;

class ChipView : public SecondaryWindow {
    Q_OBJECT
  public:
    // The view of the selected model.
    explicit ChipView(app::Workbench& workbench);

    void refreshpic();

  protected:
    void Draw() override { refreshpic(); }

  private:
    void AddPins(PackageDiagram& diagram);
    void AddAnalogPanel(PackageDiagram& diagram);
    void Toggle(const InputButton& button, core::Pin pin);

    std::vector<PinControls> pins_;
    AnalogPanel* panel_ = nullptr;  // null without analog inputs
};

}  // namespace corvane::ui
