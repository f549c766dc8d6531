// A waveform of a run: a value change dump of pins, registers and names.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "common/result.h"
#include "inspect/clock.h"
#include "inspect/expression.h"
#include "inspect/observed_run.h"

namespace corvane::inspect {

struct Signal {
    std::string name;
    Expression expression;
    int width;  // bits
};

// Every I/O pin of the model.
std::vector<Signal> PinSignals(const Language& language);

// The names of a list that commas separate. The error says which is none.
common::Result<std::vector<Signal>> ReadSignals(std::string_view list, const Language& language);

// Text that comes piece by piece: take it from time to time. Changes at one time show only the last
// of them.
class Waveform final : public Observer {
  public:
    Waveform(std::vector<Signal> signals, std::string_view modelName, const Clock& clock);

    // After Start: the header and the first values.
    void Begin(const Moment& moment);

    // What the run measures must be told beforehand: see ObservedRun::Want.
    const std::vector<Quantity>& Quantities() const { return quantities_; }

    Look Needs(const Chip& chip) const override;
    bool AfterStep(const Step& step, const Moment& moment) override;
    void AfterInput(const Moment& moment) override;

    // Start has been done once more; its clock cycles are shown behind those that went by before.
    void Restarted(std::int64_t clocksBefore) { clocksBefore_ = clocksBefore; }

    // The last changes and the time at which the run ends.
    void End(const Moment& moment);

    // The text since the last call; its lines end with LF.
    std::string TakeText();

  private:
    std::int64_t TimeOf(const Moment& moment) const;
    void LookAt(const Moment& moment);
    void WriteChanges();
    void WriteValue(std::size_t signal);

    std::vector<Signal> signals_;
    std::vector<Quantity> quantities_;
    std::string modelName_;
    Clock clock_;
    std::vector<std::int64_t> values_;
    std::vector<std::int64_t> written_;
    std::int64_t clocksBefore_ = 0;
    std::int64_t changedAt_ = 0;  // clock cycle of the last change
    bool isChanged_ = false;      // since what has been written
    std::string text_;
};

}  // namespace corvane::inspect
