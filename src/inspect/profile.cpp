#include "inspect/profile.h"

#include <algorithm>

#include "common/number_text.h"
#include "isa/instruction_set.h"

namespace corvane::inspect {

namespace {

constexpr std::size_t kMostFrames = 1000;  // a program may call for ever and never return
constexpr int kInterruptVector = 0x0004;

project::Place PlaceOf(const project::Program& program, int address) {
    return project::PlaceAt(program, address).value_or(project::Place{0, 0});
}

std::string CostLine(int line, std::int64_t clocks) {
    return std::to_string(line) + " " + std::to_string(clocks / core::kClocksPerCycle) + "\n";
}

}  // namespace

Look Profile::Needs(const Chip& /*chip*/) const {
    return {.everyStep = true};
}

bool Profile::AfterStep(const Step& step, const Moment& moment) {
    const core::ProcessorState& state = moment.processor.state;
    now_ = state.clockCycles;
    if (step.IsInterruptEntry()) {
        Enter(kInterrupt, step.address, now_ - step.clocks);
        routines_[kInterrupt].clocks[kInterruptVector] += step.clocks;
        return false;
    }
    const int routine = frames_.empty() ? kMain : frames_.back().routine;
    routines_[routine].clocks[step.address] += step.clocks;
    switch (isa::Classify(step.word)) {
        case isa::Operation::Call:
            Enter(state.pc, step.address, now_);
            break;
        case isa::Operation::Return:
        case isa::Operation::Retlw:
        case isa::Operation::Retfie:
            Leave(now_);
            break;
        default:
            break;
    }
    return false;
}

// The oldest frame of too many is taken as returned.
void Profile::Enter(int routine, int calledFrom, std::int64_t now) {
    if (frames_.size() == kMostFrames) {
        AddToCaller(frames_.front(), kMain, now);
        frames_.pop_front();
    }
    frames_.push_back({routine, calledFrom, now});
}

void Profile::Leave(std::int64_t now) {
    if (frames_.empty()) {
        return;
    }
    const Frame frame = frames_.back();
    frames_.pop_back();
    if (frame.routine != kInterrupt) {
        AddToCaller(frame, frames_.empty() ? kMain : frames_.back().routine, now);
        return;
    }
    for (Frame& interrupted : frames_) {  // its time is not theirs
        interrupted.beganAt += now - frame.beganAt;
    }
}

void Profile::AddToCaller(const Frame& frame, int caller, std::int64_t now) {
    Calls& calls = routines_[caller].calls[{frame.calledFrom, frame.routine}];
    ++calls.count;
    calls.clocks += now - frame.beganAt;
}

std::string Profile::RoutineName(int routine, const project::Program& program) {
    if (routine == kMain) {
        return "(main)";
    }
    if (routine == kInterrupt) {
        return "(interrupt)";
    }
    const auto label =
        std::find_if(program.labels.begin(), program.labels.end(),
                     [routine](const project::Label& row) { return row.address == routine; });
    return label == program.labels.end() ? common::Hex4(routine) : label->name;
}

std::string Profile::CallgrindText(const project::Program& program, const std::string& file) const {
    Profile ended = *this;
    while (!ended.frames_.empty()) {
        ended.Leave(now_);
    }
    const std::vector<std::string> noSource = {file};
    const std::vector<std::string>& files = program.files.empty() ? noSource : program.files;
    std::string text = "# callgrind format\nversion: 1\npositions: line\nevents: Cycles\n";
    std::int64_t total = 0;
    for (const auto& [routine, costs] : ended.routines_) {
        text += RoutineText(routine, costs, program, files);
        for (const auto& [address, clocks] : costs.clocks) {
            total += clocks;
        }
    }
    return text + "\ntotals: " + std::to_string(total / core::kClocksPerCycle) + "\n";
}

// A block for each file in which the routine has lines.
std::string Profile::RoutineText(int routine, const Routine& costs, const project::Program& program,
                                 const std::vector<std::string>& files) {
    struct CostsOfFile {
        std::map<int, std::int64_t> clocksOfLine;
        std::string calls;
    };
    std::map<int, CostsOfFile> costsOfFile;
    for (const auto& [address, clocks] : costs.clocks) {
        const project::Place place = PlaceOf(program, address);
        costsOfFile[place.file].clocksOfLine[place.line] += clocks;
    }
    for (const auto& [place, calls] : costs.calls) {
        const auto& [calledFrom, callee] = place;
        const project::Place from = PlaceOf(program, calledFrom);
        const project::Place target = PlaceOf(program, callee);
        costsOfFile[from.file].calls +=
            "cfl=" + files[static_cast<std::size_t>(target.file)] +
            "\ncfn=" + RoutineName(callee, program) + "\ncalls=" + std::to_string(calls.count) +
            " " + std::to_string(target.line) + "\n" + CostLine(from.line, calls.clocks);
    }
    std::string text;
    for (const auto& [file, fileCosts] : costsOfFile) {
        text += "\nfl=" + files[static_cast<std::size_t>(file)] +
                "\nfn=" + RoutineName(routine, program) + "\n";
        for (const auto& [line, clocks] : fileCosts.clocksOfLine) {
            text += CostLine(line, clocks);
        }
        text += fileCosts.calls;
    }
    return text;
}

}  // namespace corvane::inspect
