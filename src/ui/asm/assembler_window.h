// The Assembler window: the source above, the listing of the last assembly below.
#pragma once

#include "app/translate.h"
#include "ui/asm/output_pane.h"
#include "ui/editor/source_window.h"
#include "ui/window/progress_frame.h"

class QSplitter;

namespace corvane::ui {

class TextViewWindow;

class AssemblerWindow final : public SourceWindow {
    Q_OBJECT
  public:
    AssemblerWindow(app::Workbench& workbench, const DialogsFactory& makeDialogs,
                    const std::string& recoveryFolder);

  protected:
    void ReadFigures() override;
    void StoreFigures() override;
    void TextReplaced() override;
    void SetBusy(bool busy) override;
    void ShowProgress(std::string_view status, int line) override;

  private:
    void MakeMenus();
    void MakeToolsMenu();
    void MakeOptionsMenu();
    // What it came to; nothing when nothing was assembled.
    std::optional<app::AssemblyRun> Assemble();
    void AssembleAndLoad();
    void ShowOutput(const app::AssemblyRun& run);
    OutputLink LinkTo(const common::Diagnostic& message, int outputLine) const;
    void FollowLink(const OutputLink& link);
    void AssembleWithGpasm(bool on);
    void PrintOutput();
    void EditConfigurationBits();
    void TurnColorsOff(bool off);

    QSplitter* divider_;
    OutputPane* output_;
    ProgressFrame* progressFrame_;
    QAction* nextError_ = nullptr;
    QAction* previousError_ = nullptr;
    QAction* withGpasm_ = nullptr;
    QAction* checksProgram_ = nullptr;
    TextViewWindow* includedFile_ = nullptr;
};

}  // namespace corvane::ui
