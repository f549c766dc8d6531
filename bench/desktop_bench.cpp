// How fast a program runs at Extremely Fast while windows show it: beside the engine alone on the
// same program, in turns, in CPU time of the thread, so that a busy machine does not count. And how
// long every window takes to show one step. On the display that QT_QPA_PLATFORM names, by default
// none.
#include <benchmark/benchmark.h>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QEventLoop>
#include <QTemporaryDir>
#include <QTimer>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <thread>

#include "asm/assembler.h"
#include "bench_programs.h"
#include "common/text_file.h"
#include "core/execution.h"
#include "models/symbol_lines.h"
#include "silent_dialogs.h"
#include "ui/desktop/desktop.h"

namespace corvane::ui {
namespace {

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;
using std::chrono::milliseconds;

constexpr int kTurns = 10;
constexpr milliseconds kDesktopTurn(300);
constexpr milliseconds kEngineTurn(100);

// Counts the frames of the windows that it watches.
class FrameCounter final : public QObject {
  public:
    bool eventFilter(QObject* watched, QEvent* event) override {
        frames += event->type() == QEvent::UpdateRequest ? 1 : 0;
        return QObject::eventFilter(watched, event);
    }
    int frames = 0;
};

// Sends an event every two milliseconds, as a person who clicks might, and notes the longest time
// that one of them has to wait.
class Clicker final : public QObject {
  public:
    Clicker() : thread_([this] { Send(); }) {}
    ~Clicker() override {
        isDone_ = true;
        thread_.join();
    }
    Clicker(const Clicker&) = delete;
    Clicker& operator=(const Clicker&) = delete;

    Seconds longestWait{0};

  private:
    void Send() {
        while (!isDone_) {
            const Clock::time_point sent = Clock::now();
            QMetaObject::invokeMethod(
                this,
                [this, sent] { longestWait = std::max<Seconds>(longestWait, Clock::now() - sent); },
                Qt::QueuedConnection);
            std::this_thread::sleep_for(milliseconds(2));
        }
    }

    std::atomic<bool> isDone_ = false;
    std::thread thread_;
};

struct Program {
    std::string name;
    std::string_view model;
    std::string source;
};

std::vector<Program> Programs() {
    std::vector<Program> programs;
    for (const bench::BenchProgram& program : bench::kBenchPrograms) {
        const std::string name(program.name);
        programs.push_back(
            {name, program.model,
             common::ReadTextFile(CORVANE_SOURCE_DIR "/bench/programs/" + name + ".asm")
                 .value.value_or("")});
    }
    // No two frames show the same lines of its listing.
    programs.push_back({"nops_in_all_of_memory", "PIC16F877", "  ORG 0x1FFF\n  GOTO 0\n"});
    return programs;
}

Seconds CpuTime() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

// Instructions, and the CPU time that they took.
struct Speed {
    std::int64_t steps = 0;
    Seconds time{0};
    double PerSecond() const { return static_cast<double>(steps) / time.count(); }
};

class RunningDesktop {
  public:
    RunningDesktop(const Program& program, bool withWindows, app::SimulationRate rate)
        : desktop_({CORVANE_SOURCE_DIR "/data/models/", folder_.path().toStdString()}, store_,
                   clock_, [](QWidget&) { return std::make_unique<bench::SilentDialogs>(); }) {
        if (!desktop_.StartUp(models::FindModel(program.model))) {
            std::abort();
        }
        desktop_.Show();
        app::Workbench& workbench = desktop_.Workbench();
        workbench.LoadProgramFile(HexFile(program));
        if (withWindows) {
            for (const app::Window window :
                 {app::Window::ProgramMemoryViewer, app::Window::EepromMemoryViewer,
                  app::Window::HardwareStackViewer, app::Window::BreakpointsManager}) {
                workbench.OpenWindow(window);
            }
            workbench.OpenMicrocontrollerView();
            QWidget* manager = desktop_.Find(app::Window::BreakpointsManager);
            manager->findChild<QCheckBox*>("Check2")->click();
            manager->installEventFilter(&managerFrames_);
        }
        desktop_.Main().installEventFilter(&mainFrames_);
        workbench.Simulation().SetRate(rate);
        workbench.Simulation().Start();
        engine_ = workbench.Processor();
    }

    void TakeTurns() {
        for (int turn = 0; turn < kTurns; ++turn) {
            RunDesktop();
            RunEngine();
        }
    }

    // One step, and every frame that it makes necessary.
    void ShowOneStep() {
        desktop_.Workbench().Simulation().Step();
        QCoreApplication::processEvents();
    }
    int MainFrames() const { return mainFrames_.frames; }

    void Report(benchmark::State& state) const {
        const double seconds = Seconds(kDesktopTurn * kTurns).count();
        state.counters["MIPS"] = inWindows_.PerSecond() / 1e6;
        state.counters["share_of_engine"] = inWindows_.PerSecond() / alone_.PerSecond();
        state.counters["main_frames_per_s"] = mainFrames_.frames / seconds;
        state.counters["manager_frames_per_s"] = managerFrames_.frames / seconds;
        state.counters["longest_wait_ms"] = longestWait_.count() * 1000;
    }

  private:
    std::string HexFile(const Program& program) {
        const auto symbols =
            models::ReadSymbolLines(desktop_.Workbench().Processor().description.asmSymbolLines);
        std::string path = folder_.filePath("program.hex").toStdString();
        const auto problem = common::WriteTextFile(
            path, assembler::Assemble(program.source, symbols.symbols, 0x3FFF).hex);
        if (problem) {
            std::abort();
        }
        return path;
    }

    void RunDesktop() {
        const Clicker clicker;
        const std::int64_t before = desktop_.Workbench().Processor().state.instructionCount;
        const Seconds start = CpuTime();
        QEventLoop loop;
        QTimer::singleShot(kDesktopTurn, Qt::PreciseTimer, &loop, &QEventLoop::quit);
        loop.exec();
        inWindows_.time += CpuTime() - start;
        inWindows_.steps += desktop_.Workbench().Processor().state.instructionCount - before;
        longestWait_ = std::max(longestWait_, clicker.longestWait);
    }

    void RunEngine() {
        constexpr std::int64_t kStepsBetweenClockReads = 1021;
        const Seconds start = CpuTime();
        const Clock::time_point end = Clock::now() + kEngineTurn;
        while (Clock::now() < end) {
            alone_.steps += core::Run(*engine_, kStepsBetweenClockReads).steps;
        }
        alone_.time += CpuTime() - start;
    }

    QTemporaryDir folder_;
    common::MapSettingsStore store_;
    app::SystemClock clock_;
    Desktop desktop_;
    std::optional<core::Processor> engine_;
    FrameCounter mainFrames_;
    FrameCounter managerFrames_;
    Speed inWindows_;
    Speed alone_;
    Seconds longestWait_{0};
};

// The main window alone, or with all viewers, the Microcontroller View, and a Breakpoints Manager
// that holds the program counter in focus.
void RunInWindows(benchmark::State& state, const Program& program, bool withWindows) {
    RunningDesktop running(program, withWindows, app::SimulationRate::ExtremelyFast);
    while (state.KeepRunning()) {
        running.TakeTurns();
    }
    running.Report(state);
}

// A step at the timed rates is shown as one at Step By Step.
void ShowOneStep(benchmark::State& state, const Program& program) {
    RunningDesktop running(program, true, app::SimulationRate::StepByStep);
    running.ShowOneStep();
    const int framesBefore = running.MainFrames();
    while (state.KeepRunning()) {
        running.ShowOneStep();
    }
    state.counters["main_frames_per_step"] =
        benchmark::Counter(running.MainFrames() - framesBefore, benchmark::Counter::kAvgIterations);
}

}  // namespace
}  // namespace corvane::ui

int main(int argc, char* argv[]) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    for (const auto& program : corvane::ui::Programs()) {
        for (const bool withWindows : {false, true}) {
            benchmark::RegisterBenchmark(
                (program.name + (withWindows ? "/all_windows" : "/main_window")).c_str(),
                corvane::ui::RunInWindows, program, withWindows)
                ->Iterations(1)
                ->Unit(benchmark::kSecond);
        }
        benchmark::RegisterBenchmark((program.name + "/one_step").c_str(), corvane::ui::ShowOneStep,
                                     program)
            ->Unit(benchmark::kMillisecond);
    }
    benchmark::RunSpecifiedBenchmarks();
    return EXIT_SUCCESS;
}
