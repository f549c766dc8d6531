// The eight levels of the hardware stack.
#pragma once

#include "ui/viewers/memory_text.h"
#include "ui/widgets/data_label.h"
#include "ui/window/dialogs_factory.h"
#include "ui/window/secondary_window.h"

namespace corvane::ui {

class HardwareStackViewer final : public SecondaryWindow {
    Q_OBJECT
  public:
    HardwareStackViewer(app::Workbench& workbench, const DialogsFactory& makeDialogs);
    ~HardwareStackViewer() override;

  protected:
    void Draw() override { stekprint(); }

  private:
    void stekprint();

    std::unique_ptr<app::Dialogs> dialogs_;
    DataLabel* stackPointer_;
    MemoryText* text_;
    StepWatch watch_;
};

}  // namespace corvane::ui
