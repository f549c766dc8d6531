// Sixteen words of program memory at a time.
#pragma once

#include "ui/common/secondary_window.h"
#include "ui/viewers/memory_text.h"

class QScrollBar;

namespace corvane::ui {

class ProgramMemoryViewer final : public SecondaryWindow {
    Q_OBJECT
  public:
    explicit ProgramMemoryViewer(app::Workbench& workbench);

  protected:
    void Draw() override { memorijaprint(); }
    void wheelEvent(QWheelEvent* event) override;

  private:
    void memorijaprint();
    void AddScrollKeys();

    MemoryText* text_;
    QScrollBar* scrollBar_;
};

}  // namespace corvane::ui
