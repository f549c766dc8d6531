// Where a run has spent its instruction cycles: by line and by subroutine.
#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "inspect/observed_run.h"
#include "project/program.h"

namespace corvane::inspect {

class Profile final : public Observer {
  public:
    Look Needs(const Chip& chip) const override;
    bool AfterStep(const Step& step, const Moment& moment) override;

    // In callgrind's format; lines end with LF. Subroutines are the targets of calls, named by
    // their labels or addresses. A word without line counts for line 0 of the first source, or of
    // the file if there is no source.
    std::string CallgrindText(const project::Program& program, const std::string& file) const;

  private:
    // A routine is known by its address; these two have none.
    static constexpr int kMain = -1;
    static constexpr int kInterrupt = -2;

    struct Calls {
        std::int64_t count = 0;
        std::int64_t clocks = 0;  // of the called routines with all that they called
    };
    struct Routine {
        std::unordered_map<int, std::int64_t> clocks;  // by address
        std::map<std::pair<int, int>, Calls> calls;    // by address of the CALL and routine
    };
    struct Frame {
        int routine;
        int calledFrom;        // address of the CALL
        std::int64_t beganAt;  // in clock cycles
    };

    void Enter(int routine, int calledFrom, std::int64_t now);
    void Leave(std::int64_t now);
    void AddToCaller(const Frame& frame, int caller, std::int64_t now);
    static std::string RoutineText(int routine, const Routine& costs,
                                   const project::Program& program,
                                   const std::vector<std::string>& files);
    static std::string RoutineName(int routine, const project::Program& program);

    std::map<int, Routine> routines_;
    std::deque<Frame> frames_;  // the innermost is the last; none in the main program
    std::int64_t now_ = 0;
};

}  // namespace corvane::inspect
