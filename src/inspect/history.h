// A run that can be gone back in, exactly: a run is a function of its inputs, so a snapshot and the
// inputs since then give every later moment back.
//
// A position is a number of steps since Start. It includes the events made there.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "inspect/faults.h"
#include "inspect/observed_run.h"
#include "inspect/stimulus_event.h"

namespace corvane::inspect {

// Looks for positions in a stretch of a run, which may be played several times.
class Lookout {
  public:
    virtual ~Lookout() = default;

    // Tells the run what must be seen.
    virtual void LookAt(ObservedRun& run) = 0;

    // A stretch begins here; what is looked for comes later.
    virtual void Begin(const Moment& moment) = 0;

    // Whether this position is one. Called after the first step, wherever the run pauses, and
    // after events.
    virtual bool IsFoundAt(const Moment& moment) = 0;

    // At the end of a stretch: the last position in it that was one without a pause telling so.
    virtual std::optional<std::int64_t> LastTrue(const Moment& /*moment*/) { return std::nullopt; }
};

// Beyond these positions nothing goes.
struct HistoryLimits {
    std::optional<std::int64_t> steps;
    std::optional<std::int64_t> clockCycles;
};

// How many snapshots there are. Near the present position and near the last one they are this many
// steps apart, and 64 of them stand before they become rarer.
struct HistoryDensity {
    std::int64_t spacing = std::int64_t{1} << 16;
    std::size_t mostSnapshots = 1500;
};

enum class PlayEnd : std::uint8_t {
    Reached,    // the position that was wanted
    Found,      // the lookout's
    Ended,      // the program ended by itself
    Limit,      // a position beyond which nothing goes
    Cancelled,  // on the way
};

class History {
  public:
    // The processor holds its program and outlives the history; so does the finder, whose faults
    // are looked for in every step that is played.
    History(core::Processor& processor, FaultFinder& faults, const HistoryLimits& limits = {},
            const HistoryDensity& density = {});

    // Asked now and then while steps are played.
    void CancelIf(std::function<bool()> isCancelled) { isCancelled_ = std::move(isCancelled); }

    // After Start. The events take place in every future.
    void Begin(std::vector<StimulusEvent> scriptedEvents);

    Moment Now() const { return {processor_, measurements_}; }
    std::int64_t Position() const { return measurements_.Steps(); }
    std::int64_t Last() const { return last_; }
    std::size_t SnapshotCount() const { return snapshots_.size(); }
    std::size_t Bytes() const;

    // What was measured is told as if it had been wanted from Start on: the run is played again.
    void Want(const std::vector<Quantity>& quantities);
    void LookForFaults(FaultSet kinds);

    // In either direction. Cancelled, it stays where it has come to.
    PlayEnd GoTo(std::int64_t position);

    bool IsCancelled() const { return isCancelled_(); }

    // Plays on until the lookout has found its position, or so many steps are done.
    PlayEnd FindNext(Lookout& lookout);
    PlayEnd FindNext(Lookout& lookout, std::int64_t steps);

    // Whether each step must be played here. Otherwise the owner may let the engine run by itself,
    // at most so many steps before it tells how many were done.
    bool MustPlay() const { return !wanted_.empty() || faults_.Kinds().any(); }
    std::int64_t StepsUntilTold() const;
    void Ran(std::int64_t steps);

    // The nearest position before the present one that the lookout finds, but never Start; nothing
    // when there is none or it was cancelled. The present position stays.
    std::optional<std::int64_t> FindPrevious(Lookout& lookout);

    // Plays the pieces of the way to the present position again, the nearest first, until the
    // lookout has found something in one. The present position stays, and it cannot be cancelled.
    void LookBack(Lookout& lookout);

    // Where the instruction stands that made the last step; nothing after Start and after an
    // interrupt entry.
    std::optional<int> AddressOfLastStep();

    // What an event, which takes place now, does to the history. One that changes nothing is not
    // remembered.
    enum class EventEffect : std::uint8_t { Nothing, Continues, NewFuture };
    EventEffect Do(StimulusEvent event);
    // The same with a change of the state by hand.
    EventEffect Edit(const std::function<void(core::Processor& processor)>& change);

  private:
    struct Snapshot {
        RunSnapshot run;  // before the events of its position
        std::optional<FaultFinder> faults;
    };

    void Restore(std::int64_t atMost);
    void RestoreBefore(std::int64_t position);
    // How a stretch is played.
    struct Stretch {
        std::int64_t to;
        Lookout* lookout = nullptr;
        bool endsWhenFound = false;
        bool canBeCancelled = false;
    };
    // How it ended, and the last position found in it.
    struct Played {
        PlayEnd end;
        std::optional<std::int64_t> found{};
    };

    void PlayFromStart();
    std::optional<std::int64_t> PlayBack(std::int64_t from, Lookout& lookout, bool canBeCancelled);
    Played Play(const Stretch& stretch);
    std::optional<PlayEnd> EndHere(const Stretch& stretch) const;
    void Arrive(const Measurements& measurements);
    std::int64_t NextSlice(std::int64_t from, std::int64_t to) const;
    EventEffect BeginFuture();
    bool PerformEvents(const std::function<void()>& tellInput);
    bool PerformAll(const std::vector<StimulusEvent>& events,
                    const std::function<void()>& tellInput);
    void PerformEventsAfterRestoring();
    void Keep(const RunSnapshot& run);
    void Thin();

    core::Processor& processor_;
    FaultFinder& faults_;
    HistoryLimits limits_;
    HistoryDensity density_;
    std::function<bool()> isCancelled_ = [] { return false; };
    Measurements measurements_;
    std::vector<Quantity> wanted_;
    std::vector<StimulusEvent> scriptedEvents_;  // both in ascending order of their steps
    std::vector<StimulusEvent> madeEvents_;
    std::map<std::int64_t, core::ProcessorState> edits_;  // the state after them, by step
    std::map<std::int64_t, Snapshot> snapshots_;
    std::int64_t last_ = 0;
};

// Finds the positions at which an expression's value has changed.
class ChangeLookout final : public Lookout, private Observer {
  public:
    explicit ChangeLookout(const Expression& expression) : expression_(expression) {}

    void LookAt(ObservedRun& run) override;
    void Begin(const Moment& moment) override;
    bool IsFoundAt(const Moment& moment) override;

  private:
    Look Needs(const Chip& chip) const override;
    bool AfterStep(const Step& step, const Moment& moment) override;
    void AfterInput(const Moment& moment) override { Compare(moment); }
    bool Compare(const Moment& moment);

    const Expression& expression_;
    Evaluation value_;
    std::int64_t changedAt_ = 0;
};

}  // namespace corvane::inspect
