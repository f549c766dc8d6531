// Faults of a program: what the chip does without complaint but no program means.
// Data sheet: "Stack", "Data Memory Organization".
#pragma once

#include <array>
#include <bitset>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/result.h"
#include "inspect/access.h"
#include "inspect/names.h"
#include "inspect/observed_run.h"

namespace corvane::inspect {

enum class FaultKind : std::uint8_t {
    StackOverflow,     // a push with all eight levels in use
    StackUnderflow,    // a pop with none in use
    UninitialisedRam,  // reads a bit of RAM that nothing has written since Start
    Unimplemented,     // reaches an address that the model does not have
    Unsimulated,       // starts something that the basic chip does not simulate
};

constexpr std::size_t kFaultKinds = 5;
using FaultSet = std::bitset<kFaultKinds>;  // by FaultKind

// "stack-overflow"
std::string_view FaultName(FaultKind kind);

// The kinds in a list of names that commas separate. The error is the first word that is no name.
common::Result<FaultSet> ReadFaultList(std::string_view list);

struct Fault {
    FaultKind kind;
    int address;  // of the instruction that did it
    std::string text;
};

// Ends an Advance at the first step with a fault of these kinds.
class FaultFinder final : public Observer {
  public:
    FaultFinder(FaultSet kinds, const Names& names, const models::ModelDescription& description);

    // What is looked for from now on; Begin is to follow.
    void SetKinds(FaultSet kinds) { kinds_ = kinds; }
    FaultSet Kinds() const { return kinds_; }

    // After Start: nothing is on the stack and no RAM written.
    void Begin();

    Look Needs(const Chip& chip) const override;
    bool AfterStep(const Step& step, const Moment& moment) override;

    // Somebody has put a call on the stack, or written bits of a cell.
    void Pushed();
    void Written(int cell, int bits);

    // That of the last step, if it had one.
    const std::optional<Fault>& Found() const { return found_; }

  private:
    // Bits of a register that start a peripheral.
    struct Starter {
        std::string name;
        int cell;
        int bits;
        int before;  // the cell's content before the step
    };

    void AddStarters();
    void LookAtStack(const Step& step);
    void LookAtAccess(const Step& step);
    void LookAtStarters(const Step& step, const core::ProcessorState& state);
    void Note(FaultKind kind, const Step& step, std::string text);
    std::string RegisterText(int address) const;

    FaultSet kinds_;
    const Names* names_;
    int levelsInUse_ = 0;
    std::array<std::uint8_t, models::kDataMemorySize> written_{};  // bits by cell
    std::bitset<models::kDataMemorySize> isRam_;                   // by cell
    std::bitset<models::kDataMemorySize> isImplemented_;           // by cell
    std::vector<Starter> starters_;
    std::optional<Fault> found_;
};

}  // namespace corvane::inspect
