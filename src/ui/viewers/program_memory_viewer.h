// Sixteen words of program memory at a time.
#pragma once

#include "ui/viewers/memory_text.h"
#include "ui/window/dialogs_factory.h"
#include "ui/window/secondary_window.h"

class QScrollBar;

namespace corvane::ui {

class ProgramMemoryViewer final : public SecondaryWindow {
    Q_OBJECT
  public:
    ProgramMemoryViewer(app::Workbench& workbench, const DialogsFactory& makeDialogs);
    ~ProgramMemoryViewer() override;

    void BringIntoView(int address) override;
    bool GoTo(int address) override;

  protected:
    void Draw() override { memorijaprint(); }
    void wheelEvent(QWheelEvent* event) override;

  private:
    void memorijaprint();
    void AddScrollKeys();

    std::unique_ptr<app::Dialogs> dialogs_;
    MemoryText* text_;
    QScrollBar* scrollBar_;
};

}  // namespace corvane::ui
