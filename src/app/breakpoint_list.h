// Up to ten breakpoints, sorted by address.
#pragma once

#include <array>
#include <span>
#include <string>
#include <vector>

namespace corvane::app {

constexpr int kBreakpointSlots = 10;

class BreakpointList {
  public:
    bool Contains(int address) const;

    // Sets the breakpoint, or clears it when it is set. False when all slots are in use.
    bool Toggle(int address);
    void Clear() { addresses_.clear(); }

    std::span<const int> Addresses() const { return addresses_; }  // ascending

    // What the labels show: four hexadecimal digits each, empty slots last.
    std::array<std::string, kBreakpointSlots> Slots() const;

  private:
    std::vector<int> addresses_;
};

}  // namespace corvane::app
