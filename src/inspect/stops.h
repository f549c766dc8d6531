// Where a debugger stops: breakpoints, watches and faults, and what one command waits for.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "inspect/expression.h"
#include "inspect/faults.h"
#include "inspect/history.h"

namespace corvane::inspect {

enum class WatchKind : std::uint8_t { Changed, Written, Read };

struct Stop {
    int number;                           // from 1, for people
    std::string text;                     // "break LOOP", "watch COUNT changed"
    std::vector<int> addresses{};         // of a breakpoint: pc is one of them after a step
    std::optional<Expression> watched{};  // of a watch
    WatchKind kind = WatchKind::Changed;
    std::optional<Expression> condition{};  // stops only when it is not 0
};

// What a command waits for besides the stops.
struct Goal {
    std::optional<Expression> expression{};  // not 0, or without a value
    std::vector<int> addresses{};            // pc is one of them after a step
    std::optional<int> stackPointer{};       // which it must be besides
    std::string text{};                      // how a stop there is named; empty: it is not
};

// Whether reads and writes of a name can be told: it is one register, byte of RAM or bit of them.
bool CanWatchAccess(const Expression& name);

class StopLookout final : public Lookout, private Observer {
  public:
    // All of them outlive the lookout.
    StopLookout(const std::vector<Stop>& stops, const Goal& goal, const FaultFinder& faults);

    void LookAt(ObservedRun& run) override;
    void Begin(const Moment& moment) override;
    bool IsFoundAt(const Moment& moment) override;
    std::optional<std::int64_t> LastTrue(const Moment& moment) override;

    // Of the position found last: the stops that hold there, and whether the goal does.
    const std::vector<const Stop*>& Stops() const { return found_; }
    bool IsFault() const { return isFault_; }
    bool IsGoal() const { return isGoal_; }

  private:
    struct Watch {
        const Stop* stop;
        std::unique_ptr<Lookout> lookout;
    };

    bool Holds(const std::optional<Expression>& expression, const Moment& moment) const;
    bool IsGoalAt(const Moment& moment) const;
    Look Needs(const Chip& chip) const override;
    bool AfterStep(const Step& step, const Moment& moment) override;
    void AfterInput(const Moment& moment) override { wasTrue_ = Holds(goal_.expression, moment); }

    const std::vector<Stop>& stops_;
    const Goal& goal_;
    const FaultFinder& faults_;
    std::vector<Watch> watches_;
    std::vector<const Stop*> found_;
    bool isFault_ = false;
    bool isGoal_ = false;
    bool wasTrue_ = false;
    std::optional<std::int64_t> lastTrue_;
};

}  // namespace corvane::inspect
