#include "inspect/history.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <utility>

#include "core/reset.h"

namespace corvane::inspect {

namespace {

constexpr std::int64_t kSnapshotsBeforeRarer = 64;
constexpr std::int64_t kNoPosition = std::numeric_limits<std::int64_t>::max();

// The first event that takes place after a position, or at it.
auto FirstAfter(const std::vector<StimulusEvent>& events, std::int64_t position) {
    return std::upper_bound(
        events.begin(), events.end(), position,
        [](std::int64_t step, const StimulusEvent& event) { return step < event.step; });
}

std::int64_t NextEvent(const std::vector<StimulusEvent>& events, std::int64_t position) {
    const auto next = FirstAfter(events, position);
    return next == events.end() ? kNoPosition : next->step;
}

}  // namespace

History::History(core::Processor& processor, FaultFinder& faults, const HistoryLimits& limits,
                 const HistoryDensity& density)
    : processor_(processor), faults_(faults), limits_(limits), density_(density) {}

void History::Begin(std::vector<StimulusEvent> scriptedEvents) {
    scriptedEvents_ = std::move(scriptedEvents);
    madeEvents_.clear();
    edits_.clear();
    snapshots_.clear();
    last_ = 0;
    faults_.Begin();
    Wanted wanted;
    AddWanted(wanted_, wanted);
    measurements_.Begin(processor_.state, wanted);
    Keep({processor_.state, measurements_});
    PerformEventsAfterRestoring();
}

std::size_t History::Bytes() const {
    const std::size_t events = scriptedEvents_.size() + madeEvents_.size();
    return snapshots_.size() * sizeof(decltype(snapshots_)::value_type) +
           events * sizeof(StimulusEvent) + edits_.size() * sizeof(decltype(edits_)::value_type);
}

void History::Want(const std::vector<Quantity>& quantities) {
    bool isNew = false;
    for (const Quantity& quantity : quantities) {
        if (IsMeasured(quantity) &&
            std::find(wanted_.begin(), wanted_.end(), quantity) == wanted_.end()) {
            wanted_.push_back(quantity);
            isNew = true;
        }
    }
    if (isNew) {
        PlayFromStart();
    }
}

void History::LookForFaults(FaultSet kinds) {
    if (faults_.Kinds() != kinds) {
        faults_.SetKinds(kinds);
        PlayFromStart();
    }
}

// No snapshot knows what is wanted only now.
void History::PlayFromStart() {
    const std::int64_t present = Position();
    const Snapshot start = snapshots_.at(0);
    snapshots_.clear();
    Wanted wanted;
    AddWanted(wanted_, wanted);
    processor_.state = start.run.state;
    core::StateChanged(processor_);
    measurements_.Begin(processor_.state, wanted);
    faults_.Begin();
    Keep({processor_.state, measurements_});
    PerformEventsAfterRestoring();
    Play({.to = present});
}

PlayEnd History::GoTo(std::int64_t position) {
    RestoreBefore(position);
    return Play({.to = position, .canBeCancelled = true}).end;
}

// Brings the run to the latest known position that is not behind this one.
void History::RestoreBefore(std::int64_t position) {
    const auto next = snapshots_.upper_bound(position);
    if (Position() > position || std::prev(next)->first > Position()) {
        Restore(position);
    }
}

void History::Restore(std::int64_t atMost) {
    const Snapshot& snapshot = std::prev(snapshots_.upper_bound(atMost))->second;
    processor_.state = snapshot.run.state;
    core::StateChanged(processor_);
    measurements_ = snapshot.run.measurements;
    if (snapshot.faults) {
        faults_ = *snapshot.faults;
    }
    PerformEventsAfterRestoring();
}

PlayEnd History::FindNext(Lookout& lookout) {
    return FindNext(lookout, kNoPosition - Position());
}

PlayEnd History::FindNext(Lookout& lookout, std::int64_t steps) {
    return Play({.to = Position() + steps,
                 .lookout = &lookout,
                 .endsWhenFound = true,
                 .canBeCancelled = true})
        .end;
}

std::int64_t History::StepsUntilTold() const {
    return NextSlice(Position(), kNoPosition) - Position();
}

void History::Ran(std::int64_t steps) {
    measurements_.CountSteps(steps);
    Arrive(measurements_);
    PerformEventsAfterRestoring();
}

// Pieces between snapshots are played, the nearest first. A piece's first position belongs to the
// piece before it.
std::optional<std::int64_t> History::FindPrevious(Lookout& lookout) {
    return PlayBack(Position() - 1, lookout, true);
}

void History::LookBack(Lookout& lookout) {
    PlayBack(Position(), lookout, false);
}

std::optional<std::int64_t> History::PlayBack(std::int64_t from, Lookout& lookout,
                                              bool canBeCancelled) {
    const std::int64_t present = Position();
    Played piece = {PlayEnd::Reached};
    for (std::int64_t to = from; to > 0 && !piece.found && piece.end != PlayEnd::Cancelled;) {
        const std::int64_t begin = std::prev(snapshots_.lower_bound(to))->first;
        Restore(begin);
        piece = Play({.to = to, .lookout = &lookout, .canBeCancelled = canBeCancelled});
        to = begin;
    }
    RestoreBefore(present);
    Play({.to = present});
    return piece.end == PlayEnd::Cancelled ? std::nullopt : piece.found;
}

std::optional<int> History::AddressOfLastStep() {
    const std::int64_t present = Position();
    if (present == 0 || processor_.state.lastInstruction == core::kInterruptEntry) {
        return std::nullopt;
    }
    Restore(present - 1);
    Play({.to = present - 1});
    const int address = processor_.state.pc;
    Play({.to = present});
    return address;
}

History::EventEffect History::Do(StimulusEvent event) {
    event.step = Position();
    const core::ProcessorState before = processor_.state;
    Apply(event, processor_);
    if (processor_.state == before) {
        return EventEffect::Nothing;
    }
    const EventEffect effect = BeginFuture();
    madeEvents_.push_back(event);
    return effect;
}

// The edited state holds what the events at its position have done.
History::EventEffect History::Edit(const std::function<void(core::Processor& processor)>& change) {
    const core::ProcessorState before = processor_.state;
    change(processor_);
    if (processor_.state == before) {
        return EventEffect::Nothing;
    }
    const EventEffect effect = BeginFuture();
    madeEvents_.erase(FirstAfter(madeEvents_, Position() - 1), madeEvents_.end());
    edits_.insert_or_assign(Position(), processor_.state);
    return effect;
}

// Something has changed at the present position, so that what came later does not come.
History::EventEffect History::BeginFuture() {
    const std::int64_t present = Position();
    measurements_.AfterInput(processor_.state);
    const EventEffect effect = last_ > present ? EventEffect::NewFuture : EventEffect::Continues;
    madeEvents_.erase(FirstAfter(madeEvents_, present), madeEvents_.end());
    edits_.erase(edits_.upper_bound(present), edits_.end());
    snapshots_.erase(snapshots_.upper_bound(present), snapshots_.end());
    last_ = present;
    return effect;
}

History::Played History::Play(const Stretch& stretch) {
    ObservedRun run(processor_);
    run.Want(wanted_);
    run.Add(faults_);
    if (stretch.lookout != nullptr) {
        stretch.lookout->LookAt(run);
        stretch.lookout->Begin(Now());
    }
    run.Resume({processor_.state, measurements_});
    std::optional<std::int64_t> found;
    std::optional<PlayEnd> end = EndHere(stretch);
    for (bool isFirst = stretch.lookout != nullptr; !end; isFirst = false) {
        const std::int64_t next = isFirst ? run.Steps() + 1 : NextSlice(run.Steps(), stretch.to);
        const Pause pause = run.Advance(next - run.Steps(), limits_.clockCycles);
        Arrive(run.Measured());
        const bool hadEvents = PerformEvents([&run] { run.InputChanged(); });
        measurements_ = run.Measured();
        end = EndHere(stretch);
        const bool mayBeFound = isFirst || hadEvents || pause.reason != PauseReason::Limit;
        if (stretch.lookout != nullptr && mayBeFound && stretch.lookout->IsFoundAt(Now())) {
            found = Position();
            end = stretch.endsWhenFound ? PlayEnd::Found : end;
        }
    }
    if (stretch.lookout != nullptr && !stretch.endsWhenFound) {
        found = std::max(found, stretch.lookout->LastTrue(Now()));
    }
    return {*end, found};
}

// At a position, before its events.
void History::Arrive(const Measurements& measurements) {
    measurements_ = measurements;
    last_ = std::max(last_, Position());
    if (Position() % density_.spacing == 0) {
        Keep({processor_.state, measurements_});
    }
}

std::optional<PlayEnd> History::EndHere(const Stretch& stretch) const {
    const core::ProcessorState& state = processor_.state;
    if (Position() >= stretch.to) {
        return PlayEnd::Reached;
    }
    if (state.stopRequested) {
        return PlayEnd::Ended;
    }
    if ((limits_.steps && Position() >= *limits_.steps) ||
        (limits_.clockCycles && state.clockCycles >= *limits_.clockCycles)) {
        return PlayEnd::Limit;
    }
    return stretch.canBeCancelled && isCancelled_() ? std::optional(PlayEnd::Cancelled)
                                                    : std::nullopt;
}

// Where something is to be done next: a snapshot, an event, or the end.
std::int64_t History::NextSlice(std::int64_t from, std::int64_t to) const {
    const std::int64_t snapshot = (from / density_.spacing + 1) * density_.spacing;
    const auto edit = edits_.upper_bound(from);
    return std::min({to, snapshot, NextEvent(scriptedEvents_, from), NextEvent(madeEvents_, from),
                     edit == edits_.end() ? kNoPosition : edit->first,
                     limits_.steps.value_or(kNoPosition)});
}

// Those of the present position; whether there are any.
bool History::PerformEvents(const std::function<void()>& tellInput) {
    bool hadEvents = PerformAll(scriptedEvents_, tellInput);
    if (const auto edit = edits_.find(Position()); edit != edits_.end()) {
        processor_.state = edit->second;
        core::StateChanged(processor_);
        tellInput();
        hadEvents = true;
    }
    return PerformAll(madeEvents_, tellInput) || hadEvents;
}

bool History::PerformAll(const std::vector<StimulusEvent>& events,
                         const std::function<void()>& tellInput) {
    const auto first = FirstAfter(events, Position() - 1);
    auto event = first;
    for (; event != events.end() && event->step == Position(); ++event) {
        Apply(*event, processor_);
        tellInput();
    }
    return event != first;
}

void History::PerformEventsAfterRestoring() {
    PerformEvents([this] { measurements_.AfterInput(processor_.state); });
}

void History::Keep(const RunSnapshot& run) {
    std::optional<FaultFinder> faults;
    if (faults_.Kinds().any()) {
        faults = faults_;
    }
    snapshots_.try_emplace(run.measurements.Steps(), Snapshot{run, std::move(faults)});
    if (snapshots_.size() > density_.mostSnapshots) {
        Thin();
    }
}

// Snapshots twice as far away may be twice as rare.
void History::Thin() {
    const std::int64_t present = Position();
    std::erase_if(snapshots_, [this, present](const auto& kept) {
        const std::int64_t step = kept.first;
        const std::int64_t distance =
            std::min(step > present ? step - present : present - step, last_ - step);
        std::int64_t spacing = density_.spacing;
        while (spacing * kSnapshotsBeforeRarer < distance) {
            spacing *= 2;
        }
        return step % spacing != 0;
    });
}

void ChangeLookout::LookAt(ObservedRun& run) {
    run.Add(*this);
}

void ChangeLookout::Begin(const Moment& moment) {
    value_ = Evaluate(expression_, moment);
    changedAt_ = -1;
}

bool ChangeLookout::IsFoundAt(const Moment& moment) {
    Compare(moment);
    return changedAt_ == moment.measurements.Steps();
}

Look ChangeLookout::Needs(const Chip& chip) const {
    return LookAtChanges(expression_.quantities, chip);
}

bool ChangeLookout::AfterStep(const Step& /*step*/, const Moment& moment) {
    return Compare(moment);
}

bool ChangeLookout::Compare(const Moment& moment) {
    const Evaluation now = Evaluate(expression_, moment);
    const bool isChanged = now.value != value_.value || now.error != value_.error;
    changedAt_ = isChanged ? moment.measurements.Steps() : changedAt_;
    value_ = now;
    return isChanged;
}

}  // namespace corvane::inspect
