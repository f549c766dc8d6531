// The data EEPROM, sixteen bytes a line, the highest address first.
#pragma once

#include "ui/viewers/memory_text.h"
#include "ui/window/dialogs_factory.h"
#include "ui/window/secondary_window.h"

namespace corvane::ui {

class EepromMemoryViewer final : public SecondaryWindow {
    Q_OBJECT
  public:
    EepromMemoryViewer(app::Workbench& workbench, const DialogsFactory& makeDialogs);
    ~EepromMemoryViewer() override;

  protected:
    void Draw() override { eepromprint(); }

  private:
    void eepromprint();
    void ChangeByte(int line, int column);

    std::unique_ptr<app::Dialogs> dialogs_;
    MemoryText* text_;
    StepWatch watch_;
};

}  // namespace corvane::ui
