// The BASIC Compiler window.
#pragma once

#include "ui/editor/source_window.h"

namespace corvane::ui {

class BasicWindow final : public SourceWindow {
    Q_OBJECT
  public:
    BasicWindow(app::Workbench& workbench, const DialogsFactory& makeDialogs,
                const std::string& recoveryFolder);

  protected:
    void Opened() override;

  private:
    void Compile();
};

}  // namespace corvane::ui
