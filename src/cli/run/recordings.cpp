#include "cli/run/recordings.h"

#include <utility>

namespace corvane::cli {

std::optional<std::string> Recordings::ReadSignals(const inspect::Language& language) {
    if (options_.waveformFile.empty()) {
        return std::nullopt;
    }
    std::vector<inspect::Signal> signals = inspect::PinSignals(language);
    if (!options_.signals.empty()) {
        auto named = inspect::ReadSignals(options_.signals, language);
        if (!named) {
            return "corvane-cli: --signals: " + named.error;
        }
        signals = *std::move(named.value);
    }
    waveform_.emplace(std::move(signals), language.names.Model().name, language.clock);
    return std::nullopt;
}

std::optional<std::string> Recordings::Open(inspect::ObservedRun& run) {
    if (!options_.traceFile.empty()) {
        trace_.emplace(options_.traceSource ? &program_ : nullptr);
        run.Add(*trace_);
        if (std::optional<std::string> error = trace_->Open(options_.traceFile)) {
            return error;
        }
    }
    if (waveform_) {
        run.Want(waveform_->Quantities());
        run.Add(*waveform_);
        if (auto error = waveformOutput_.emplace().Open(options_.waveformFile)) {
            return error;
        }
    }
    if (!options_.coverageFile.empty()) {
        run.Add(coverage_.emplace());
    }
    if (!options_.profileFile.empty()) {
        run.Add(profile_.emplace());
    }
    return std::nullopt;
}

void Recordings::Begin(const inspect::Moment& moment) {
    if (waveform_) {
        waveform_->Begin(moment);
    }
}

std::optional<std::string> Recordings::Flush() {
    if (trace_ && trace_->Error()) {
        return trace_->Error();
    }
    if (!waveform_) {
        return std::nullopt;
    }
    return waveformOutput_->Write(waveform_->TakeText());
}

std::vector<std::string> Recordings::End(const inspect::Moment& moment) {
    std::vector<std::string> errors;
    const auto note = [&errors](const std::optional<std::string>& error) {
        if (error) {
            errors.push_back(*error);
        }
    };
    if (trace_) {
        note(trace_->Close());
    }
    if (waveform_) {
        waveform_->End(moment);
        const std::optional<std::string> error = Flush();
        note(error ? error : waveformOutput_->Close());
    }
    if (coverage_) {
        note(WriteForTools(options_.coverageFile, coverage_->LcovText(program_)));
    }
    if (profile_) {
        note(WriteForTools(options_.profileFile, profile_->CallgrindText(program_, programFile_)));
    }
    return errors;
}

}  // namespace corvane::cli
