#include "inspect/stops.h"

#include <algorithm>
#include <utility>

#include "inspect/access.h"

namespace corvane::inspect {

namespace {

constexpr int kWholeByte = 0xFF;

// Finds the steps that read or write a cell, or bits of it.
class AccessLookout final : public Lookout, private Observer {
  public:
    explicit AccessLookout(const Stop& stop) : stop_(stop) {}

    void LookAt(ObservedRun& run) override { run.Add(*this); }
    void Begin(const Moment& /*moment*/) override { accessedAt_ = -1; }
    bool IsFoundAt(const Moment& moment) override {
        return accessedAt_ == moment.measurements.Steps();
    }

  private:
    Look Needs(const Chip& /*chip*/) const override { return {.everyStep = true}; }

    bool AfterStep(const Step& step, const Moment& moment) override {
        const Access access = step.IsInterruptEntry() ? Access{} : AccessOf(step);
        if (access.address < 0) {
            return false;
        }
        const auto& map = moment.processor.description.addressMap;
        const int cell = map[static_cast<std::size_t>(access.address)];
        const int bits = stop_.kind == WatchKind::Written ? access.writtenBits : access.readBits;
        const bool isAccessed = std::any_of(
            stop_.watched->quantities.begin(), stop_.watched->quantities.end(),
            [&](const Quantity& watched) { return (BitsOf(watched, cell, map) & bits) != 0; });
        accessedAt_ = isAccessed ? moment.measurements.Steps() : accessedAt_;
        return isAccessed;
    }

    // The bits of this cell that belong to what is watched.
    template <typename AddressMap>
    static int BitsOf(const Quantity& watched, int cell, const AddressMap& map) {
        switch (watched.kind) {
            case QuantityKind::Cell:
                return cell == watched.place ? kWholeByte : 0;
            case QuantityKind::CellPair:
                return cell == watched.place || cell == watched.second ? kWholeByte : 0;
            case QuantityKind::CellBit:
                return cell == watched.place ? 1 << watched.second : 0;
            default:
                return cell == map[static_cast<std::size_t>(watched.place)] ? kWholeByte : 0;
        }
    }

    const Stop& stop_;
    std::int64_t accessedAt_ = -1;
};

bool Contains(const std::vector<int>& addresses, int pc) {
    return std::find(addresses.begin(), addresses.end(), pc) != addresses.end();
}

}  // namespace

bool CanWatchAccess(const Expression& name) {
    if (name.quantities.size() != 1 || name.quantities[0].place == kAnyPlace) {
        return false;
    }
    switch (name.quantities[0].kind) {
        case QuantityKind::Cell:
        case QuantityKind::CellPair:
        case QuantityKind::CellBit:
        case QuantityKind::Ram:
            return true;
        default:
            return false;
    }
}

StopLookout::StopLookout(const std::vector<Stop>& stops, const Goal& goal,
                         const FaultFinder& faults)
    : stops_(stops), goal_(goal), faults_(faults) {
    for (const Stop& stop : stops_) {
        if (!stop.watched) {
            continue;
        }
        if (stop.kind == WatchKind::Changed) {
            watches_.push_back({&stop, std::make_unique<ChangeLookout>(*stop.watched)});
        } else {
            watches_.push_back({&stop, std::make_unique<AccessLookout>(stop)});
        }
    }
}

void StopLookout::LookAt(ObservedRun& run) {
    std::vector<int> addresses = goal_.addresses;
    for (const Stop& stop : stops_) {
        addresses.insert(addresses.end(), stop.addresses.begin(), stop.addresses.end());
    }
    run.SetBreakpoints(addresses);
    for (const Watch& watch : watches_) {
        watch.lookout->LookAt(run);
    }
    if (goal_.expression) {
        run.Add(*this);
    }
}

void StopLookout::Begin(const Moment& moment) {
    for (const Watch& watch : watches_) {
        watch.lookout->Begin(moment);
    }
    wasTrue_ = Holds(goal_.expression, moment);
    lastTrue_.reset();
}

bool StopLookout::IsFoundAt(const Moment& moment) {
    const int pc = moment.processor.state.pc;
    found_.clear();
    for (const Stop& stop : stops_) {
        if (Contains(stop.addresses, pc) && (!stop.condition || Holds(stop.condition, moment))) {
            found_.push_back(&stop);
        }
    }
    for (const Watch& watch : watches_) {
        if (watch.lookout->IsFoundAt(moment) &&
            (!watch.stop->condition || Holds(watch.stop->condition, moment))) {
            found_.push_back(watch.stop);
        }
    }
    isFault_ = faults_.Kinds().any() && faults_.Found().has_value();
    isGoal_ = IsGoalAt(moment);
    return !found_.empty() || isFault_ || isGoal_;
}

bool StopLookout::IsGoalAt(const Moment& moment) const {
    const core::ProcessorState& state = moment.processor.state;
    return Holds(goal_.expression, moment) ||
           (Contains(goal_.addresses, state.pc) &&
            state.stackPointer == goal_.stackPointer.value_or(state.stackPointer));
}

// It may have stayed true, unseen, until just before it became false, or to the end.
std::optional<std::int64_t> StopLookout::LastTrue(const Moment& moment) {
    return Holds(goal_.expression, moment) ? moment.measurements.Steps() : lastTrue_;
}

// What has no value needs a person's eye too.
bool StopLookout::Holds(const std::optional<Expression>& expression, const Moment& moment) const {
    if (!expression) {
        return false;
    }
    const Evaluation now = Evaluate(*expression, moment);
    return now.error != nullptr || now.value != 0;
}

Look StopLookout::Needs(const Chip& chip) const {
    return LookAtChanges(goal_.expression->quantities, chip);
}

bool StopLookout::AfterStep(const Step& /*step*/, const Moment& moment) {
    if (wasTrue_) {
        lastTrue_ = moment.measurements.Steps() - 1;
    }
    wasTrue_ = Holds(goal_.expression, moment);
    return wasTrue_;
}

}  // namespace corvane::inspect
