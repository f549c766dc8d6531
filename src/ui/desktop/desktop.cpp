#include "ui/desktop/desktop.h"

#include <QApplication>
#include <QFileInfo>
#include <utility>

#include "app/debug_moves.h"
#include "ui/desktop/window_factory.h"
#include "ui/dialogs/help_window.h"
#include "ui/editor/source_window.h"
#include "ui/window/window_placement.h"

namespace corvane::ui {

Desktop::Desktop(Folders folders, common::SettingsStore& store, app::Clock& clock,
                 DialogsFactory makeDialogs)
    : recoveryFolder_(std::move(folders.recovery)),
      makeDialogs_(std::move(makeDialogs)),
      dialogs_(makeDialogs_(mainWindow_)),
      workbench_(std::move(folders.application), store, *dialogs_, *this, *this, clock),
      menu_(*mainWindow_.menuBar(), *this),
      mainRefresh_(*new RefreshWhenVisible(mainWindow_, [this] { DrawMain(); })) {
    sliceTimer_.setSingleShot(true);
    sliceTimer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&sliceTimer_, &QTimer::timeout, &mainWindow_,
                     [this] { workbench_.Simulation().RunSlice(); });
    QObject::connect(&mainWindow_, &MainWindow::GprsScrolled, &mainWindow_,
                     [this] { mainWindow_.gprprint(workbench_.Processor()); });
    QObject::connect(&mainWindow_, &MainWindow::SfrsScrolled, &mainWindow_,
                     [this] { mainWindow_.sfrprint(workbench_.Processor()); });
    // Queued, because the question that is asked outlasts the click.
    QObject::connect(
        &mainWindow_, &MainWindow::ChangeRequested, &mainWindow_,
        [this](const QLabel* value) { ChangeValue(*value); }, Qt::QueuedConnection);
    QObject::connect(
        &mainWindow_, &MainWindow::LastChangeRequested, &mainWindow_,
        [this](const QLabel* value) { RunBackToLastChange(*value); }, Qt::QueuedConnection);
    QObject::connect(&mainWindow_, &MainWindow::FileDropped, &mainWindow_,
                     [this](const QString& path) { OpenFile(path); });
    QObject::connect(&mainWindow_, &MainWindow::CloseRequested, &mainWindow_, [this] { Quit(); });
}

Desktop::~Desktop() {
    for (const auto& [number, window] : windows_) {
        delete window;
    }
    for (const auto& [text, window] : textWindows_) {
        delete window;
    }
    delete testsWindow_;
}

bool Desktop::StartUp(std::optional<int> modelRow) {
    // Where a message is shown that comes before the window.
    mainWindow_.resize(mainWindow_.sizeHint());
    CentreWindow(mainWindow_, *mainWindow_.screen());
    return workbench_.StartUp(modelRow);
}

void Desktop::Show() {
    mainWindow_.resize(mainWindow_.sizeHint());
    PlaceWindow(mainWindow_, workbench_.Settings(), app::Window::Main);
    mainWindow_.show();
}

SecondaryWindow* Desktop::Find(app::Window window) const {
    const auto found = windows_.find(window);
    const bool isOpen = found != windows_.end() && workbench_.Windows().IsOpen(window);
    return isOpen ? found->second.get() : nullptr;  // a closed one is deleted soon
}

void Desktop::OpenFile(const QString& path) {
    const QString extension = QFileInfo(path).suffix().toLower();
    if (extension == QStringLiteral("asm")) {
        OpenSource(app::Window::Assembler, path);
    } else if (extension == QStringLiteral("bas")) {
        OpenSource(app::Window::BasicCompiler, path);
    } else {
        workbench_.LoadProgramFile(path.toStdString());
    }
}

void Desktop::OpenSource(app::Window window, const QString& path) {
    workbench_.OpenWindow(window);
    if (auto* editor = qobject_cast<SourceWindow*>(Find(window))) {
        editor->OpenFile(path);
    }
}

void Desktop::SelectMicrocontroller() {
    if (!workbench_.SelectMicrocontroller()) {
        End(EXIT_FAILURE);
    }
}

void Desktop::OpenText(TextWindow text) {
    QPointer<QWidget>& window = textWindows_[text];
    if (window == nullptr) {
        window = MakeTextWindow(text);
        CentreWindow(*window, *mainWindow_.screen());
    }
    window->show();
    window->raise();
    window->activateWindow();
}

void Desktop::RunTests() {
    if (testsWindow_ == nullptr) {
        testsWindow_ = new TestsWindow(workbench_, makeDialogs_);
        CentreWindow(*testsWindow_, *mainWindow_.screen());
    }
    testsWindow_->show();
    testsWindow_->raise();
    testsWindow_->activateWindow();
    testsWindow_->RunFolder(workbench_.Settings().LastPath());
}

void Desktop::Quit() {
    if (QWidget* box = QApplication::activeModalWidget()) {
        box->raise();  // whoever asks there waits for the answer
        box->activateWindow();
        return;
    }
    if (going_) {
        workbench_.Simulation().Stop();
    }
    StorePosition(mainWindow_, workbench_.Settings(), app::Window::Main);
    workbench_.CloseSecondaryWindows();
    End(EXIT_SUCCESS);
}

void Desktop::End(int exitCode) {
    sliceTimer_.stop();
    mainWindow_.hide();
    QCoreApplication::exit(exitCode);
}

void Desktop::DrawMain() {
    mainWindow_.ekran(workbench_.Processor());
    mainWindow_.ShowStatus(workbench_.Status());
}

void Desktop::ChangeValue(const QLabel& value) {
    if (const auto place = mainWindow_.PlaceOf(value, workbench_.Processor())) {
        workbench_.ChangeValue(*dialogs_, *place);
    }
}

void Desktop::RunBackToLastChange(const QLabel& value) {
    if (const auto place = mainWindow_.PlaceOf(value, workbench_.Processor())) {
        app::RunBackToLastChange(workbench_.Simulation(), workbench_.Processor(), *place);
    }
}

void Desktop::GoingThroughHistory(std::int64_t step) {
    if (!going_) {
        going_.emplace(mainWindow_, [this] { workbench_.Simulation().Stop(); });
    }
    going_->LetEventsIn(step);
}

void Desktop::BringPcIntoView() {
    for (const app::Window window : app::kSecondaryWindows) {
        if (SecondaryWindow* open = Find(window)) {
            open->BringIntoView(workbench_.Processor().state.pc);
        }
    }
}

void Desktop::ModelChanged() {
    mainWindow_.ShowModel(workbench_.Processor());
}

void Desktop::ProgramChanged() {
    mainWindow_.ShowProgram(workbench_.ProgramPath());
    for (const app::Window window : app::kSecondaryWindows) {
        if (SecondaryWindow* open = Find(window)) {
            open->ProgramChanged();
        }
    }
}

void Desktop::CommandsChanged() {
    menu_.Show(workbench_.Commands());
    mainWindow_.ShowStatus(workbench_.Status());
    workbench_.Windows().RefreshEditors();
}

void Desktop::ShowWindow(app::Window window) {
    if (SecondaryWindow* open = Find(window)) {
        open->BringForward();
        return;
    }
    SecondaryWindow* opened =
        MakeSecondaryWindow(window, workbench_, makeDialogs_, recoveryFolder_);
    opened->addActions(menu_.SimulationActions());
    windows_[window] = opened;
    opened->setScreen(mainWindow_.screen());
    opened->Open();
}

void Desktop::CloseWindow(app::Window window) {
    if (SecondaryWindow* open = Find(window)) {
        open->close();
    }
}

void Desktop::SetTopmost(app::Window window, bool topmost) {
    if (SecondaryWindow* open = Find(window)) {
        open->SetTopmost(topmost);
    }
}

void Desktop::ScheduleSlice(std::chrono::nanoseconds delay) {
    sliceTimer_.start(std::chrono::ceil<std::chrono::milliseconds>(delay));
}

void Desktop::Refresh(app::Window window) {
    if (window == app::Window::Main) {
        mainRefresh_.Request();
    } else if (SecondaryWindow* open = Find(window)) {
        open->Refresh();
    }
}

}  // namespace corvane::ui
