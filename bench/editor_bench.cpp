// What a person waits for in the windows that edit a source, without a screen.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>
#include <cstdlib>
#include <memory>
#include <string>

#include "app/workbench.h"
#include "asm/assembler.h"
#include "silent_dialogs.h"
#include "ui/asm/assembler_window.h"
#include "ui/basic/basic_window.h"

namespace corvane::ui {
namespace {

using bench::SilentDialogs;

class NoViews final : public app::Views, public app::SliceTimer {
  public:
    void Refresh(app::Window /*window*/) override {}
    void BringPcIntoView() override {}
    void GoingThroughHistory(std::int64_t /*step*/) override {}
    void ArrivedInHistory() override {}
    void ModelChanged() override {}
    void ProgramChanged() override {}
    void CommandsChanged() override {}
    void ShowWindow(app::Window /*window*/) override {}
    void CloseWindow(app::Window /*window*/) override {}
    void SetTopmost(app::Window /*window*/, bool /*topmost*/) override {}
    void ScheduleSlice(std::chrono::nanoseconds /*delay*/) override {}
};

std::string AssemblerSource(int lineCount) {
    std::string source;
    for (int line = 0; line < lineCount; line += 4) {
        const std::string label = "L" + std::to_string(line);
        source += line % 8000 == 0 ? "        ORG 0x0000\r\n" : "; counts what comes in\r\n";
        source += label + "    btfsc STATUS,Z  ; zero?\r\n";
        source += "        incf  0x20,F    ; one more\r\n";
        source += "        goto  " + label + "\r\n";
    }
    return source;
}

std::string BasicSource(int lineCount) {
    std::string source;
    for (int line = 0; line < lineCount; line += 2) {
        source += "If count > 5 Then 'enough\r\nPORTB.0 = count.1\r\n";
    }
    return source;
}

// A window with a text of so many lines in it.
template <typename Window>
class Subject {
  public:
    Subject(const std::string& name, const std::string& text)
        : path_(folder_.filePath(QString::fromStdString(name))),
          workbench_(std::string(CORVANE_SOURCE_DIR) + "/data/models/", store_, dialogs_, views_,
                     views_, clock_) {
        QFile file(path_);
        const bool isReady = workbench_.StartUp() && file.open(QIODevice::WriteOnly) &&
                             file.write(text.data(), static_cast<qint64>(text.size())) > 0;
        file.close();
        if (!isReady) {
            std::abort();
        }
        window = std::make_unique<Window>(
            workbench_, [](QWidget&) { return std::make_unique<SilentDialogs>(); },
            (folder_.path() + "/recovery").toStdString());
        window->setAttribute(Qt::WA_DeleteOnClose, false);
        window->Open();
        Show();
    }

    void Show() {
        window->OpenFile(path_);
        editor = window->template findChild<QPlainTextEdit*>("RichTextBox1");
        editor->setFocus();
        QCoreApplication::processEvents();
    }
    void GoToMiddle() const {
        editor->setTextCursor(
            QTextCursor(editor->document()->findBlockByNumber(editor->blockCount() / 2)));
        QCoreApplication::processEvents();
    }
    void Press(Qt::Key key) const {
        QTest::keyClick(editor, key);
        QCoreApplication::processEvents();
    }
    const app::Workbench& Workbench() const { return workbench_; }

    QPlainTextEdit* editor = nullptr;
    std::unique_ptr<Window> window;

  private:
    QTemporaryDir folder_;
    QString path_;
    common::MapSettingsStore store_;
    SilentDialogs dialogs_;
    NoViews views_;
    app::SystemClock clock_;
    app::Workbench workbench_;
};

void OpenSource(benchmark::State& state) {
    Subject<AssemblerWindow> subject("long.asm", AssemblerSource(20000));
    while (state.KeepRunning()) {
        subject.Show();
    }
}
BENCHMARK(OpenSource)->Unit(benchmark::kMillisecond);

void TypeOneKey(benchmark::State& state) {
    const Subject<AssemblerWindow> subject("long.asm", AssemblerSource(20000));
    subject.GoToMiddle();
    while (state.KeepRunning()) {
        subject.Press(Qt::Key_X);
    }
}
BENCHMARK(TypeOneKey)->Iterations(200)->Unit(benchmark::kMicrosecond);

// A key typed into a line, and the line left: the time of the second is what counts.
void LeaveALine(benchmark::State& state) {
    const Subject<BasicWindow> subject("long.bas", BasicSource(10000));
    subject.GoToMiddle();
    bool isDown = true;
    while (state.KeepRunning()) {
        subject.Press(Qt::Key_Space);
        QElapsedTimer time;
        time.start();
        QTest::keyClick(subject.editor, isDown ? Qt::Key_Down : Qt::Key_Up);
        state.SetIterationTime(static_cast<double>(time.nsecsElapsed()) / 1e9);
        isDown = !isDown;
    }
}
BENCHMARK(LeaveALine)->Iterations(200)->UseManualTime()->Unit(benchmark::kMicrosecond);

// From the menu to the listing on the screen, files included.
void AssembleFromWindow(benchmark::State& state) {
    const Subject<AssemblerWindow> subject("long.asm", AssemblerSource(20000));
    while (state.KeepRunning()) {
        subject.window->template findChild<QAction*>("menuassemble")->trigger();
        QCoreApplication::processEvents();
    }
}
BENCHMARK(AssembleFromWindow)->Unit(benchmark::kMillisecond);

// The same text without window and files.
void AssembleAlone(benchmark::State& state) {
    const std::string source = AssemblerSource(20000);
    const Subject<AssemblerWindow> subject("short.asm", "  nop\r\n");
    const auto symbols =
        models::ReadSymbolLines(subject.Workbench().Processor().description.asmSymbolLines).symbols;
    while (state.KeepRunning()) {
        benchmark::DoNotOptimize(assembler::Assemble(source, symbols, 0x3FF1));
    }
}
BENCHMARK(AssembleAlone)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace corvane::ui

int main(int argc, char* argv[]) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return EXIT_SUCCESS;
}
