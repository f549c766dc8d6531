#include "ui/editor/debugged_source.h"

#include <QTextBlock>
#include <algorithm>
#include <chrono>
#include <utility>

#include "app/source_value.h"
#include "inspect/line_cycles.h"

namespace corvane::ui {

namespace {

constexpr std::chrono::milliseconds kRest{400};

// What is inserted behind the line's end moves only the end.
int LineOf(const QTextCursor& place) {
    return place.document()->findBlock(place.selectionStart()).blockNumber() + 1;
}

}  // namespace

DebuggedSource::DebuggedSource(NumberedEditor& editor, app::Workbench& workbench,
                               project::ProgramKind kind,
                               std::function<std::string()> textToTranslate)
    : editor_(&editor),
      workbench_(&workbench),
      kind_(kind),
      textToTranslate_(std::move(textToTranslate)) {
    editor_->AddMarkMargin(tr("Click: sets or clears a breakpoint"));
    rest_.setSingleShot(true);
    rest_.setInterval(kRest);
    connect(&rest_, &QTimer::timeout, this, &DebuggedSource::FindProgram);
    connect(editor_, &NumberedEditor::MarginClicked, this, &DebuggedSource::ToggleBreakpoint);
    connect(editor_->document(), &QTextDocument::contentsChanged, this,
            &DebuggedSource::FollowText);
    EnterFile({});
}

DebuggedSource::~DebuggedSource() {
    LeaveFile();
}

bool DebuggedSource::IsUntitled() const {
    return file_.starts_with("UNTITLED");
}

// The breakpoints of a text that has no name go with it.
void DebuggedSource::LeaveFile() {
    isLeaving_ = true;
    breakpoints_.clear();
    if (IsUntitled()) {
        workbench_->ChangeStops([this](app::StopList& stops) { stops.RemoveOf(file_); });
    }
}

void DebuggedSource::EnterFile(const std::string& path) {
    isLeaving_ = false;
    file_ = path.empty() ? "UNTITLED" + std::string(project::SuffixOf(kind_)) : path;
    lineCount_ = editor_->blockCount();
    FindProgram();
}

void DebuggedSource::RenameFile(const std::string& path) {
    if (!path.empty() && path != file_) {
        workbench_->ChangeStops([&](app::StopList& stops) {
            stops.Rename(file_, path);
            file_ = path;  // under which they are looked for from here on
        });
    }
}

QTextCursor DebuggedSource::PlaceOf(int line) const {
    QTextCursor place(
        editor_->document()->findBlockByNumber(std::clamp(line, 1, editor_->blockCount()) - 1));
    place.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    return place;
}

void DebuggedSource::ToggleBreakpoint(int line) {
    const auto set = std::ranges::find(
        breakpoints_, line, [](const Breakpoint& breakpoint) { return LineOf(breakpoint.place); });
    workbench_->ChangeStops([&](app::StopList& stops) {
        if (set == breakpoints_.end()) {
            stops.Add(file_, line);
            stops.Resolve(file_, program_ ? &*program_ : nullptr);
        } else {
            stops.Remove(set->number);
        }
    });
    Draw();
}

std::vector<int> DebuggedSource::BreakpointLines() const {
    std::vector<int> lines;
    for (const Breakpoint& breakpoint : breakpoints_) {
        lines.push_back(LineOf(breakpoint.place));
    }
    std::ranges::sort(lines);
    return lines;
}

QString DebuggedSource::NoteOn(int line) const {
    QStringList notes;
    if (std::ranges::binary_search(editor_->Marks().breakpoints, line)) {
        notes.push_back(tr("breakpoint"));
    }
    if (const auto cycles = cycles_.find(line); cycles != cycles_.end()) {
        notes.push_back(cycles->second == 1 ? tr("1 cycle") : tr("%1 cycles").arg(cycles->second));
    }
    return notes.join(QStringLiteral(", "));
}

void DebuggedSource::ShowCycles(bool on) {
    showsCycles_ = on;
    Draw();
}

// While it runs by itself, the last ones are shown.
void DebuggedSource::FindCycles() {
    app::SimulationControl& simulation = workbench_->Simulation();
    if (!showsCycles_ || !program_ || simulation.History() == nullptr) {
        cycles_.clear();
        cyclesAt_ = -1;
        return;
    }
    const std::int64_t position = simulation.History()->Positions().Position();
    if (!simulation.RunsByItself() && position != cyclesAt_) {
        cyclesAt_ = position;
        inspect::LineCycles found(*program_);
        simulation.LookBack(found);
        cycles_ = found.Cycles();
    }
}

// Not before the layout has followed the text, since the marks are shown.
// A breakpoint whose line has gone goes with it. Two whose lines have become one are one.
void DebuggedSource::FollowText() {
    if (isLeaving_) {
        return;
    }
    rest_.start();
    const bool hasLostLines = editor_->blockCount() < lineCount_;
    lineCount_ = editor_->blockCount();
    if (breakpoints_.empty()) {
        return;
    }
    std::vector<int> lines;
    workbench_->ChangeStops([&](app::StopList& stops) {
        for (Breakpoint& breakpoint : breakpoints_) {
            const int line = LineOf(breakpoint.place);
            const bool isGone = hasLostLines && (!breakpoint.place.hasSelection() ||
                                                 std::ranges::find(lines, line) != lines.end());
            if (isGone) {
                stops.Remove(breakpoint.number);
                continue;
            }
            stops.MoveTo(breakpoint.number, line);
            breakpoint.place = PlaceOf(line);
            lines.push_back(line);
        }
    });
    FollowStops();
}

// Other windows may have changed them.
void DebuggedSource::FollowStops() {
    std::vector<Breakpoint> breakpoints;
    for (const app::DebuggerStop& stop : workbench_->Stops().All()) {
        if (stop.file != file_) {
            continue;
        }
        const int number = stop.stop.number;
        const auto known = std::ranges::find(breakpoints_, number, &Breakpoint::number);
        breakpoints.push_back(
            {number, known == breakpoints_.end() ? PlaceOf(stop.line) : known->place});
    }
    breakpoints_ = std::move(breakpoints);
}

QString DebuggedSource::ValueAt(const QTextCursor& place) const {
    if (!names_) {
        return {};
    }
    const QString line = place.block().text();
    const std::string before = line.left(place.positionInBlock()).toStdString();
    const std::string name = app::NameAt(line.toStdString(), before.size(), kind_);
    return QString::fromStdString(app::ValueText(name, *names_, workbench_->Processor()));
}

void DebuggedSource::FindProgram() {
    rest_.stop();
    common::Result<project::Program> found =
        app::EditedProgram(*workbench_, file_, kind_, textToTranslate_());
    whyNotLoaded_ = QString::fromStdString(found.error);
    program_ = std::move(found.value);
    cyclesAt_ = -1;
    names_.reset();
    if (program_) {
        names_.emplace(workbench_->Model(), workbench_->Processor().description, *program_);
    }
    workbench_->ChangeStops(
        [this](app::StopList& stops) { stops.Resolve(file_, program_ ? &*program_ : nullptr); });
    Draw();
}

void DebuggedSource::Draw() {
    if (isLeaving_) {
        return;
    }
    FollowStops();
    const app::SimulationControl& simulation = workbench_->Simulation();
    const core::ProcessorState& state = workbench_->Processor().state;
    const bool isShown =
        program_ && simulation.SimulationRunning() && !simulation.RunsExtremelyFast();
    const int next = isShown ? app::NextLine(*program_, state) : 0;
    FindCycles();
    editor_->ShowMarks({.breakpoints = BreakpointLines(),
                        .areValid = program_.has_value(),
                        .next = next,
                        .showsCycles = showsCycles_,
                        .cycles = cycles_});
    if (next > 0 && simulation.CanStep() && state.clockCycles != shownAt_) {
        editor_->RevealLine(next);
    }
    shownAt_ = simulation.CanStep() ? state.clockCycles : -1;
    emit Changed(Status(next));
}

QString DebuggedSource::Status(int next) const {
    if (!program_) {
        const bool isWithout = whyNotLoaded_.isEmpty() && !breakpoints_.empty();
        return isWithout ? tr("No program is loaded") : whyNotLoaded_;
    }
    const app::SimulationControl& simulation = workbench_->Simulation();
    if (next == 0) {
        return simulation.RunsByItself() ? tr("Running") : tr("Loaded");
    }
    return simulation.Status().condition == app::RunCondition::AtBreakpoint
               ? tr("Breakpoint: line %1").arg(next)
               : tr("Next: line %1").arg(next);
}

}  // namespace corvane::ui
