#include "ui/basic/basic_window.h"

#include <QAction>
#include <QMenu>
#include <QVBoxLayout>

#include "app/translate.h"
#include "basic/editor_form.h"

namespace corvane::ui {

namespace {

constexpr QSize kInitialSize(720, 560);

SourceLanguage BasicLanguage(const std::vector<basic::EditorKeyword>& keywords) {
    return {
        .form = [keywords](std::string_view line) { return basic::RewriteLine(line, keywords); },
        .color = [keywords](std::string_view line) { return basic::ColorLine(line, keywords); }};
}

}  // namespace

BasicWindow::BasicWindow(app::Workbench& workbench, const DialogsFactory& makeDialogs)
    : SourceWindow(app::Window::BasicCompiler, workbench, app::kBasicSource,
                   BasicLanguage(basic::EditorKeywords(workbench.Processor().description)),
                   makeDialogs) {
    Editor().setAccessibleName(tr("BASIC source"));
    Layout().addWidget(&EditorPane());
    QMenu& tools = AddMenu("menu2", tr("&Tools"));
    AddCommand(
        tools, "menucompile", tr("&Compile"), [this] { Compile(); }, QKeySequence(Qt::Key_F7));
    resize(kInitialSize);
}

void BasicWindow::Opened() {
    // The names themselves have been read into the editor's keywords.
    app::ReadSymbolsOrInform(Dialogs(), Workbench().Model().name,
                             Workbench().Processor().description.basicSymbolLines);
}

void BasicWindow::Compile() {
    if (!IsReady() || !File().MayWriteBeside({".asm"})) {
        return;
    }
    const std::optional<std::string> text = Save();
    if (!text) {
        return;
    }
    std::optional<common::Diagnostic> error;
    RunTranslation([&](const common::ProgressCallback& progress) {
        error = app::CompileSource(Workbench(), Dialogs(), File(), *text, progress);
    });
    if (error) {
        Editor().GoToLine(error->line);
    }
}

}  // namespace corvane::ui
