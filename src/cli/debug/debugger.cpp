#include "cli/debug/debugger.h"

#include <algorithm>
#include <array>
#include <bitset>
#include <cctype>
#include <utility>

#include "cli/debug/source_places.h"
#include "cli/interrupt.h"
#include "cli/output.h"
#include "cli/run/state_json.h"
#include "common/number_text.h"
#include "common/text.h"
#include "inspect/report.h"
#include "project/last_instruction.h"

namespace corvane::cli {

namespace {

std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r";
    const std::size_t begin = text.find_first_not_of(kBlanks);
    return begin == std::string_view::npos
               ? std::string_view()
               : text.substr(begin, text.find_last_not_of(kBlanks) - begin + 1);
}

// Cuts the first word off, or a text in double quotes.
std::string_view TakeWord(std::string_view& text) {
    text = Trimmed(text);
    const bool isQuoted = text.starts_with('"');
    if (isQuoted) {
        text.remove_prefix(1);
    }
    const std::size_t end = std::min(text.find_first_of(isQuoted ? "\"" : " \t"), text.size());
    const std::string_view word = text.substr(0, end);
    text = Trimmed(text.substr(std::min(end + 1, text.size())));
    return word;
}

// Cuts "if EXPR" off the end; nothing without one.
std::optional<std::string_view> TakeCondition(std::string_view& text) {
    const std::string upper = common::ToUpper(text);
    const std::size_t word = upper.rfind(" IF ");
    if (word == std::string::npos) {
        return std::nullopt;
    }
    const std::string_view condition = Trimmed(text.substr(word + 4));
    text = Trimmed(text.substr(0, word));
    return condition;
}

// "FILE: REASON" of "FILE: error: REASON".
std::string WithoutSeverity(const std::string& error) {
    constexpr std::string_view kSeverity = ": error:";
    const std::size_t position = error.find(kSeverity);
    return position == std::string::npos
               ? error
               : error.substr(0, position + 1) + error.substr(position + kSeverity.size());
}

std::string BinaryText(std::uint64_t value) {
    const std::string digits = std::bitset<64>(value).to_string();
    return digits.substr(std::min(digits.find('1'), digits.size() - 1));
}

std::string HexadecimalText(std::uint64_t value) {
    std::string digits;
    do {
        digits.insert(digits.begin(), "0123456789ABCDEF"[value % 16]);
        value /= 16;
    } while (value != 0);
    return digits;
}

}  // namespace

Debugger::Debugger(Simulation& simulation, const RunOptions& options)
    : simulation_(simulation),
      program_(simulation.program),
      options_(options),
      names_(*simulation.processor.model, simulation.processor.description, program_),
      language_{names_, options.clock},
      faults_(options.expectations.faults, names_, simulation.processor.description),
      history_(simulation.processor, faults_,
               {LimitsOf(options).steps, LimitsOf(options).clockCycles}) {
    history_.CancelIf(IsInterrupted);
    history_.Begin(simulation.events);
    history_.Want({{inspect::QuantityKind::Depth}});
    for (const int address : options.breakpoints) {
        AddStop({.number = 0, .text = "break " + common::Hex4(address), .addresses = {address}});
    }
}

std::string Debugger::Answer(std::string_view command) {
    Arguments arguments = Trimmed(command);
    if (arguments.empty()) {
        return "";
    }
    const std::string_view name = TakeWord(arguments);
    if (name == "quit" && arguments.empty()) {
        hasQuit_ = true;
        return "";
    }
    const Reply reply = AnswerTo(name, arguments);
    return reply ? *reply + PositionLine() : "error: " + reply.error + "\n";
}

Debugger::Reply Debugger::AnswerTo(std::string_view name, Arguments arguments) {
    constexpr auto kMoves =
        std::to_array<Move>({{"step", &Debugger::StepBy, Direction::Forward, true},
                             {"back", &Debugger::StepBy, Direction::Back, true},
                             {"run", &Debugger::Run, Direction::Forward, true},
                             {"run-back", &Debugger::Run, Direction::Back, true},
                             {"over", &Debugger::Over, Direction::Forward, false},
                             {"over-back", &Debugger::Over, Direction::Back, false},
                             {"out", &Debugger::Out, Direction::Forward, false},
                             {"out-back", &Debugger::Out, Direction::Back, false},
                             {"line", &Debugger::Line, Direction::Forward, false},
                             {"line-back", &Debugger::Line, Direction::Back, false}});
    constexpr auto kCommands = std::to_array<Command>({{"goto", &Debugger::GoTo, true},
                                                       {"last-change", &Debugger::LastChange, true},
                                                       {"break", &Debugger::Break, true},
                                                       {"watch", &Debugger::Watch, true},
                                                       {"fault", &Debugger::Fault, true},
                                                       {"stops", &Debugger::Stops, false},
                                                       {"delete", &Debugger::Delete, true},
                                                       {"print", &Debugger::Print, true},
                                                       {"state", &Debugger::State, true},
                                                       {"list", &Debugger::List, false},
                                                       {"where", &Debugger::Where, false},
                                                       {"set", &Debugger::Set, true},
                                                       {"toggle", &Debugger::Toggle, true},
                                                       {"analog", &Debugger::Analog, true},
                                                       {"history", &Debugger::History, false}});
    const auto standsAlone = [&](bool takesArguments) {
        return !takesArguments && !arguments.empty();
    };
    for (const Move& move : kMoves) {
        if (move.name == name && !standsAlone(move.takesArguments)) {
            return (this->*move.answer)(arguments, move.direction);
        }
    }
    for (const Command& command : kCommands) {
        if (command.name == name && !standsAlone(command.takesArguments)) {
            return (this->*command.answer)(arguments);
        }
    }
    return Reply::Failure("unknown command '" + std::string(name) +
                          (arguments.empty() ? "" : " " + std::string(arguments)) + "'");
}

// As the trace of a run tells the step that has just been done.
std::string Debugger::PositionLine() {
    const std::optional<int> address = history_.AddressOfLastStep();
    const core::ProcessorState& state = simulation_.processor.state;
    constexpr std::size_t kStatus = 0x003;
    std::string line = std::to_string(history_.Position()) + " " + common::Hex4(state.pc) + " " +
                       common::Hex2(state.w) + " " + common::Hex2(state.dataMemory[kStatus]) + " " +
                       std::to_string(state.clockCycles);
    const std::string instruction = project::LastInstructionText(state);
    line += instruction.empty() ? "" : " " + instruction;
    const std::string place = address ? project::PlaceText(program_, *address) : "";
    return line + (place.empty() ? "" : " ; " + place) + "\n";
}

Debugger::ExpressionResult Debugger::Read(std::string_view text) {
    auto expression = inspect::ParseExpression(text, language_);
    if (!expression) {
        return ExpressionResult::Failure("'" + std::string(text) + "', column " +
                                         std::to_string(expression.error.column) + ": " +
                                         expression.error.message);
    }
    history_.Want(expression->quantities);
    return ExpressionResult::Success(*std::move(expression.value));
}

// One name that has a value of its own.
Debugger::ExpressionResult Debugger::ReadName(std::string_view text) {
    ExpressionResult name = Read(text);
    if (name &&
        (name->names.size() != 1 || name->names[0].text != text || name->quantities.empty())) {
        return ExpressionResult::Failure("'" + std::string(text) +
                                         "' is no name of something that changes");
    }
    return name;
}

inspect::Stop& Debugger::AddStop(inspect::Stop stop) {
    stop.number = ++lastNumber_;
    return stops_.emplace_back(std::move(stop));
}

Debugger::Reply Debugger::Break(Arguments arguments) {
    inspect::Stop stop;
    stop.text = "break " + std::string(arguments);
    if (const auto condition = TakeCondition(arguments)) {
        ExpressionResult expression = Read(*condition);
        if (!expression) {
            return Reply::Failure(expression.error);
        }
        stop.condition = *std::move(expression.value);
    }
    const std::string_view where = TakeWord(arguments);
    if (!arguments.empty()) {
        return Reply::Failure("break takes WHERE and perhaps if EXPR");
    }
    const auto found = FindAddresses(where, names_, program_);
    if (!found) {
        return Reply::Failure(found.error);
    }
    stop.addresses = found->addresses;
    std::string text = found->note + "breakpoint " + std::to_string(AddStop(stop).number) + " at";
    for (const int address : stop.addresses) {
        text += " " + inspect::PlaceText(address, program_);
    }
    return Reply::Success(text + "\n");
}

Debugger::Reply Debugger::Watch(Arguments arguments) {
    constexpr auto kKinds = std::to_array<std::string_view>({"changed", "written", "read"});
    inspect::Stop stop;
    std::string_view condition;
    if (const auto text = TakeCondition(arguments)) {
        condition = *text;
    }
    const std::size_t blank = arguments.find_last_of(" \t");
    const auto* const kind = std::find(
        kKinds.begin(), kKinds.end(),
        blank == std::string_view::npos ? std::string_view() : arguments.substr(blank + 1));
    if (kind != kKinds.end()) {
        stop.kind = static_cast<inspect::WatchKind>(kind - kKinds.begin());
        arguments = Trimmed(arguments.substr(0, blank));
    }
    ExpressionResult name = ReadName(arguments);
    ExpressionResult test = condition.empty() ? ExpressionResult::Success({}) : Read(condition);
    if (!name || !test) {
        return Reply::Failure(name ? test.error : name.error);
    }
    if (stop.kind != inspect::WatchKind::Changed && !inspect::CanWatchAccess(*name)) {
        return Reply::Failure("only reads and writes of registers and of RAM can be watched");
    }
    stop.watched = *std::move(name.value);
    stop.text = "watch " + stop.watched->text + " " +
                std::string(kKinds[static_cast<std::size_t>(stop.kind)]);
    if (!condition.empty()) {
        stop.condition = *std::move(test.value);
        stop.text += " if " + stop.condition->text;
    }
    return Reply::Success("watch " + std::to_string(AddStop(std::move(stop)).number) + "\n");
}

Debugger::Reply Debugger::Fault(Arguments arguments) {
    const std::string_view name = TakeWord(arguments);
    inspect::FaultSet kinds;
    if (name == "all") {
        kinds.set();
    } else if (const auto read = inspect::ReadFaultList(name)) {
        kinds = *read;
    } else {
        return Reply::Failure("there is no fault '" + read.error + "'");
    }
    if (arguments != "on" && arguments != "off") {
        return Reply::Failure("fault takes KIND and on or off");
    }
    history_.LookForFaults(arguments == "on" ? faults_.Kinds() | kinds : faults_.Kinds() & ~kinds);
    return Reply::Success("");
}

Debugger::Reply Debugger::Stops(Arguments /*arguments*/) {
    std::string text;
    for (const inspect::Stop& stop : stops_) {
        text += std::to_string(stop.number) + " " + stop.text + "\n";
    }
    return Reply::Success(std::move(text));
}

Debugger::Reply Debugger::Delete(Arguments arguments) {
    const auto erased = std::erase_if(stops_, [arguments](const inspect::Stop& stop) {
        return std::to_string(stop.number) == arguments;
    });
    return erased == 1 ? Reply::Success("")
                       : Reply::Failure("there is no stop '" + std::string(arguments) + "'");
}

Debugger::Reply Debugger::Print(Arguments arguments) {
    const ExpressionResult expression = Read(arguments);
    if (!expression) {
        return Reply::Failure(expression.error);
    }
    const inspect::Evaluation now = inspect::Evaluate(*expression, history_.Now());
    if (now.error != nullptr) {
        return Reply::Failure(now.error);
    }
    const auto bits = static_cast<std::uint64_t>(now.value);
    return Reply::Success(std::to_string(now.value) + " 0x" + HexadecimalText(bits) + " %" +
                          BinaryText(bits) + "\n");
}

Debugger::Reply Debugger::State(Arguments arguments) {
    const std::string file(TakeWord(arguments));
    if (file.empty() || !arguments.empty()) {
        return Reply::Failure("state takes the name of one file");
    }
    const std::string json = StateJson(simulation_.processor, program_.image.loadedWords);
    if (file == "-") {
        return Reply::Success(json);
    }
    if (const auto conflict =
            OutputConflict(std::array{options_.program, options_.stimulusFile, options_.eepromFile,
                                      project::ModelFilePath(options_.model)},
                           std::array{file})) {
        return Reply::Failure(WithoutSeverity(*conflict));
    }
    const auto error = WriteOutput(file, json);
    return error ? Reply::Failure(WithoutSeverity(*error)) : Reply::Success("");
}

Debugger::Reply Debugger::List(Arguments /*arguments*/) {
    return ListAround(simulation_.processor.state.pc, program_);
}

// Where the program is, then where each call and interrupt under way returns to.
Debugger::Reply Debugger::Where(Arguments /*arguments*/) {
    const core::ProcessorState& state = simulation_.processor.state;
    std::string text = inspect::PlaceText(state.pc, program_) + "\n";
    const std::int64_t depth =
        std::min<std::int64_t>(history_.Now().measurements.Depth(), core::kStackLevels);
    int level = state.stackPointer;
    for (std::int64_t i = 0; i < depth; ++i) {
        text += "returns to " +
                inspect::PlaceText(state.hardwareStack[static_cast<std::size_t>(level)], program_) +
                "\n";
        level = level == 1 ? core::kStackLevels : level - 1;
    }
    return Reply::Success(std::move(text));
}

// A line of a stimulus file that takes place now.
Debugger::Reply Debugger::Input(Arguments arguments, const char* action) {
    const bool isToggle = std::string_view(action) == "toggle";
    Arguments rest = arguments;
    TakeWord(rest);
    if (arguments.empty() || rest.empty() != isToggle || rest.find(' ') != Arguments::npos) {
        return Reply::Failure("an input is set PIN 0|1, toggle PIN or analog ANk VALUE");
    }
    const auto event = ReadStimulusEvent(
        std::to_string(history_.Position()) + " " + action + " " + std::string(arguments),
        *simulation_.processor.model);
    if (!event) {
        return Reply::Failure(event.error);
    }
    const auto effect = history_.Do(*event);
    return Reply::Success(effect == inspect::History::EventEffect::NewFuture
                              ? "new future: what came later is forgotten\n"
                              : "");
}

Debugger::Reply Debugger::History(Arguments /*arguments*/) {
    return Reply::Success("positions 0 to " + std::to_string(history_.Last()) + ", " +
                          std::to_string(history_.SnapshotCount()) + " snapshots, " +
                          std::to_string(history_.Bytes()) + " bytes\n");
}

}  // namespace corvane::cli
