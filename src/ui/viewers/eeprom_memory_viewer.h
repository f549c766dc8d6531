// The data EEPROM, sixteen bytes a line, the highest address first.
#pragma once

#include "ui/common/secondary_window.h"
#include "ui/viewers/memory_text.h"

namespace corvane::ui {

class EepromMemoryViewer final : public SecondaryWindow {
    Q_OBJECT
  public:
    explicit EepromMemoryViewer(app::Workbench& workbench);

  protected:
    void Draw() override { eepromprint(); }

  private:
    void eepromprint();

    MemoryText* text_;
    StepWatch watch_;
};

}  // namespace corvane::ui
