#include "ui/basic/basic_window.h"

#include <QAction>
#include <QMenu>
#include <QVBoxLayout>

#include "basic/editor_form.h"
#include "ui/window/command.h"

namespace corvane::ui {

namespace {

constexpr QSize kInitialSize(720, 560);

SourceLanguage BasicLanguage(const std::vector<basic::EditorKeyword>& keywords) {
    return {
        .form = [keywords](std::string_view line) { return basic::RewriteLine(line, keywords); },
        .color = [keywords](std::string_view line) { return basic::ColorLine(line, keywords); }};
}

}  // namespace

BasicWindow::BasicWindow(app::Workbench& workbench, const DialogsFactory& makeDialogs,
                         const std::string& recoveryFolder)
    : SourceWindow(app::Window::BasicCompiler, workbench, app::kBasicSource,
                   BasicLanguage(basic::EditorKeywords(workbench.Processor().description)),
                   makeDialogs, recoveryFolder) {
    Editor().setAccessibleName(tr("BASIC source"));
    Layout().insertWidget(0, &EditorPane(), 1);
    QMenu& tools = AddMenu("menu2", tr("&Tools"));
    AddCommand(tools, {"menucompile", tr("&Compile"), QKeySequence(Qt::Key_F7)}, *this,
               [this] { Translate({".asm"}, app::CompileSource); });
    AddCommand(tools,
               {"menucompileandload", tr("Compile and &Load"), QKeySequence(Qt::CTRL | Qt::Key_F7)},
               *this, [this] { CompileAndLoad(); });
    AddDebugCommands(tools);
    resize(kInitialSize);
}

void BasicWindow::Opened() {
    // The names themselves have been read into the editor's keywords.
    app::ReadSymbolsOrInform(Dialogs(), Workbench().Model().name,
                             Workbench().Processor().description.basicSymbolLines);
}

std::optional<app::CompilationRun> BasicWindow::Translate(
    std::initializer_list<std::string_view> outputExtensions, Translation translation) {
    if (!IsReadyToTranslate(outputExtensions)) {
        return std::nullopt;
    }
    const std::optional<std::string> text = Save();
    if (!text) {
        return std::nullopt;
    }
    TextReplaced();
    app::CompilationRun run;
    RunTranslation([&](const common::ProgressCallback& progress) {
        run = translation(Workbench(), Dialogs(), File(), *text, progress);
    });
    ShowResult(app::Summary(run));
    if (run.error) {
        Editor().GoToLine(run.error->line);
    }
    return run;
}

void BasicWindow::CompileAndLoad() {
    if (!MayLoad()) {
        return;
    }
    const std::optional<app::CompilationRun> run =
        Translate({".asm", ".lst", ".hex"}, app::BuildSource);
    if (run && run->isWritten && !IsClosing()) {
        LoadAndStart(app::Summary(*run));
    }
}

}  // namespace corvane::ui
