// The BASIC Compiler window.
#pragma once

#include <initializer_list>
#include <optional>
#include <string_view>

#include "app/translate.h"
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
    // What turns the saved text into files.
    using Translation = app::CompilationRun (*)(const app::Workbench& workbench,
                                                app::Dialogs& dialogs,
                                                const app::SourceFile& source,
                                                std::string_view text,
                                                const common::ProgressCallback& progress);
    // What it came to; nothing when nothing was compiled.
    std::optional<app::CompilationRun> Translate(
        std::initializer_list<std::string_view> outputExtensions, Translation translation);
    void CompileAndLoad();
};

}  // namespace corvane::ui
