#include "inspect/waveform.h"

#include <utility>

#include "common/text.h"

namespace corvane::inspect {

namespace {

using SignalResult = common::Result<Signal, std::string>;

// "!", .. "~", then two characters and so on.
std::string Identifier(std::size_t signal) {
    constexpr std::size_t kFirst = '!';
    constexpr std::size_t kCount = '~' - '!' + 1;
    std::string text(1, static_cast<char>(kFirst + signal % kCount));
    return signal < kCount ? text : Identifier(signal / kCount - 1) + text;
}

// A name of the program that is only a number has the bits of its kind.
int WidthOfName(const Expression& expression, const Names& names) {
    constexpr int kAddressWidth = 13;
    constexpr int kConstantWidth = 16;
    const Operation& operation = expression.code.front();
    if (operation.op == Operator::Load) {
        return WidthOf(operation.quantity);
    }
    const Meaning* meaning = names.Find(expression.text);
    return meaning != nullptr && meaning->isLabel ? kAddressWidth : kConstantWidth;
}

SignalResult ReadSignal(std::string_view name, const Language& language) {
    const auto parsed = ParseExpression(name, language);
    if (!parsed) {
        return SignalResult::Failure(parsed.error.message);
    }
    if (parsed->code.size() != 1 || parsed->names.size() != 1) {
        return SignalResult::Failure("'" + std::string(name) + "' is no signal.");
    }
    const int width = WidthOfName(*parsed, language.names);
    return SignalResult::Success({std::string(name), *parsed, width});
}

// The low bits of a value without leading zeros, as value change dumps have it.
std::string BinaryText(std::int64_t value, int width) {
    std::string text;
    const auto bits = static_cast<std::uint64_t>(value);
    for (int bit = width; bit-- > 0;) {
        const bool isSet = ((bits >> static_cast<unsigned>(bit)) & 1U) != 0;
        if (isSet || !text.empty()) {
            text += isSet ? '1' : '0';
        }
    }
    return text.empty() ? "0" : text;
}

}  // namespace

std::vector<Signal> PinSignals(const Language& language) {
    std::vector<Signal> signals;
    for (int port = 0; port < core::kPortCount; ++port) {
        for (int bit = 0; bit < 8; ++bit) {
            const std::string name = {'R', static_cast<char>('A' + port),
                                      static_cast<char>('0' + bit)};
            if (core::FindPin(language.names.Model(), name)) {
                const Operation level = {Operator::Load, {QuantityKind::PinLevel, port, bit}};
                signals.push_back({name, {name, {level}, {}, {level.quantity}}, 1});
            }
        }
    }
    return signals;
}

common::Result<std::vector<Signal>> ReadSignals(std::string_view list, const Language& language) {
    using ReadResult = common::Result<std::vector<Signal>>;
    std::vector<Signal> signals;
    while (true) {
        const std::string_view item = list.substr(0, list.find(','));
        SignalResult signal = ReadSignal(common::Trim(item), language);
        if (!signal) {
            return ReadResult::Failure(signal.error);
        }
        signals.push_back(*std::move(signal.value));
        if (item.size() == list.size()) {
            return ReadResult::Success(std::move(signals));
        }
        list.remove_prefix(item.size() + 1);
    }
}

Waveform::Waveform(std::vector<Signal> signals, std::string_view modelName, const Clock& clock)
    : signals_(std::move(signals)), modelName_(modelName), clock_(clock) {
    for (const Signal& signal : signals_) {
        const auto& quantities = signal.expression.quantities;
        quantities_.insert(quantities_.end(), quantities.begin(), quantities.end());
    }
    values_.resize(signals_.size());
    written_.resize(signals_.size());
}

void Waveform::Begin(const Moment& moment) {
    text_ = "$timescale 1 ps $end\n$scope module " + modelName_ + " $end\n";
    for (std::size_t i = 0; i < signals_.size(); ++i) {
        text_ += "$var wire " + std::to_string(signals_[i].width) + " " + Identifier(i) + " " +
                 signals_[i].name + " $end\n";
    }
    text_ += "$upscope $end\n$enddefinitions $end\n#0\n$dumpvars\n";
    for (std::size_t i = 0; i < signals_.size(); ++i) {
        values_[i] = Evaluate(signals_[i].expression, moment).value;
        WriteValue(i);
    }
    text_ += "$end\n";
    isChanged_ = false;
}

Look Waveform::Needs(const Chip& chip) const {
    return LookAtChanges(quantities_, chip);
}

bool Waveform::AfterStep(const Step& /*step*/, const Moment& moment) {
    LookAt(moment);
    return false;
}

void Waveform::AfterInput(const Moment& moment) {
    LookAt(moment);
}

std::int64_t Waveform::TimeOf(const Moment& moment) const {
    return clocksBefore_ + moment.processor.state.clockCycles;
}

void Waveform::LookAt(const Moment& moment) {
    for (std::size_t i = 0; i < signals_.size(); ++i) {
        const std::int64_t value = Evaluate(signals_[i].expression, moment).value;
        if (value == values_[i]) {
            continue;
        }
        if (TimeOf(moment) != changedAt_) {
            WriteChanges();
            changedAt_ = TimeOf(moment);
        }
        values_[i] = value;
        isChanged_ = true;
    }
}

void Waveform::WriteChanges() {
    if (!isChanged_ || values_ == written_) {
        return;
    }
    text_ += "#" + std::to_string(Picoseconds(changedAt_, clock_)) + "\n";
    for (std::size_t i = 0; i < signals_.size(); ++i) {
        if (values_[i] != written_[i]) {
            WriteValue(i);
        }
    }
    isChanged_ = false;
}

void Waveform::WriteValue(std::size_t signal) {
    const bool isBit = signals_[signal].width == 1;
    written_[signal] = values_[signal];
    text_ += (isBit ? "" : "b") + BinaryText(values_[signal], signals_[signal].width) +
             (isBit ? "" : " ") + Identifier(signal) + "\n";
}

void Waveform::End(const Moment& moment) {
    WriteChanges();
    text_ += "#" + std::to_string(Picoseconds(TimeOf(moment), clock_)) + "\n";
}

std::string Waveform::TakeText() {
    return std::exchange(text_, {});
}

}  // namespace corvane::inspect
