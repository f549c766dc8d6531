// Where the debugger stops, besides the ten breakpoints of the Breakpoints Manager. The list
// outlives the program that is loaded: a breakpoint in a source finds its words again in the next
// one.
#pragma once

#include <string>
#include <vector>

#include "inspect/stops.h"
#include "project/program.h"

namespace corvane::app {

struct DebuggerStop {
    inspect::Stop stop;  // of a source: without addresses while its words are not the loaded ones
    std::string file{};  // full path of a breakpoint's source; empty: it is none of a source
    int line = 0;        // from 1
};

class StopList {
  public:
    // In the order of their numbers.
    const std::vector<DebuggerStop>& All() const { return stops_; }

    // A breakpoint in a line of a source; returns its number.
    int Add(const std::string& file, int line);
    void Remove(int number);
    // The breakpoint's line is this one now.
    void MoveTo(int number, int line);
    // The source has another name.
    void Rename(const std::string& file, const std::string& newFile);
    void RemoveOf(const std::string& file);

    // The breakpoints of this source stop at its words in the loaded program, whose only source it
    // is; without a program at none.
    void Resolve(const std::string& file, const project::Program* program);
    // Another program is loaded.
    void ForgetAddresses();

    // What stops a run as soon as pc is one of them, ascending.
    std::vector<int> Addresses() const;

  private:
    std::vector<DebuggerStop> stops_;
    int lastNumber_ = 0;
};

}  // namespace corvane::app
