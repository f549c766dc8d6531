// Random programs run on the simulated chip: every state that it comes to must be a place of the
// paths, or follow from something that ends them.
#include "check/paths.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/execution.h"
#include "core/random.h"
#include "core/reset.h"
#include "isa/instruction_set.h"
#include "shipped_files.h"

namespace corvane::check {
namespace {

constexpr int kProgramWords = 220;
constexpr std::uint16_t kErased = 0x3FFF;

// A word out of those that paths depend on.
std::uint16_t RandomWord(core::Random& random) {
    const auto word = [&](int base, int range) {
        return static_cast<std::uint16_t>(base + random.Below(range));
    };
    const auto one = [&](std::initializer_list<int> words) {
        return static_cast<std::uint16_t>(
            words.begin()[random.Below(static_cast<int>(words.size()))]);
    };
    switch (random.Below(16)) {
        case 0:
            return one({0x1283, 0x1683, 0x1303, 0x1703, 0x118A, 0x158A});  // bank and page bits
        case 1:
            return one({0x1A83, 0x1E83, 0x1B03, 0x1F03, 0x198A, 0x1D8A, 0x1C03});  // tests of them
        case 2:
            return one({0x008A, 0x0083, 0x008B, 0x0E83, 0x080A, 0x0A8A, 0x058A, 0x040A, 0x178B,
                        0x138B});  // PCLATH, STATUS, INTCON
        case 3:
            return one({0x0008, 0x0009, 0x3402, 0x3409});  // returns
        case 4:
        case 5:
            return word(0x2000, kProgramWords);  // CALL
        case 6:
            return word(0x2800, kProgramWords);
        case 7:
            return word(0x0B80 + 0x20, 0x40);  // DECFSZ
        case 8:
            return word(0x3000, 0x40);
        case 9:
            return one({0x3903, 0x3820, 0x3A18, 0x3E01, 0x3C07, 0x0100});  // W and literals
        default:
            return static_cast<std::uint16_t>(
                one({0x0080, 0x0800, 0x0880, 0x0780, 0x0E00, 0x0A80, 0x1C00}) + 0x20 +
                random.Below(0x40));
    }
}

Program RandomPaths(core::Random& random) {
    const std::size_t size = 8192;
    Program program{std::vector<std::uint16_t>(size, kErased), std::vector<bool>(size, true),
                    std::vector<std::optional<Operand>>(size)};
    for (std::size_t i = 0; i < kProgramWords; ++i) {
        program.words[i] = RandomWord(random);
    }
    program.words[0] = 0x2805;  // GOTO 5
    return program;
}

class Walk {
  public:
    Walk(const Program& program, core::Processor& processor)
        : program_(program), processor_(processor), paths_(FollowPaths(program)) {
        byAddress_.resize(program.words.size());
        for (const Place& place : paths_.places) {
            byAddress_[static_cast<std::size_t>(place.address)].push_back(&place);
        }
    }

    // Executes steps as long as the paths go; returns how many.
    int Run(int maxSteps) {
        core::FillProgramMemory(processor_, program_.words);
        core::StartSimulation(processor_);
        int steps = 0;
        while (steps < maxSteps && IsAtPlace() && depth_ <= 8) {
            Step();
            ++steps;
            if (!IsFilled(program_, processor_.state.pc) || depth_ < 0 || depth_ > 8 || isOver_ ||
                paths_.hasUnknownJump || processor_.state.stopRequested) {
                break;
            }
        }
        return steps;
    }

  private:
    void Step() {
        core::ProcessorState& state = processor_.state;
        core::ExecuteStep(processor_);
        if (state.lastInstruction == core::kInterruptEntry) {
            isOver_ = depth_ > interruptDepth_;
            interruptDepth_ = depth_;
        }
        switch (state.lastInstruction < 0 ? isa::Operation::Call
                                          : isa::Classify(state.lastInstruction)) {
            case isa::Operation::Call:
                ++depth_;
                break;
            case isa::Operation::Return:
            case isa::Operation::Retlw:
            case isa::Operation::Retfie:
                --depth_;
                isOver_ = depth_ <= interruptDepth_ && interruptDepth_ != kNoInterrupt;
                break;
            default:
                break;
        }
    }

    bool IsAtPlace() const {
        const core::ProcessorState& state = processor_.state;
        const auto& places = byAddress_[static_cast<std::size_t>(state.pc)];
        const bool isFound = std::any_of(places.begin(), places.end(), [&](const Place* place) {
            return place->state.w.CanBe(state.w) &&
                   place->state.pclath.CanBe(state.dataMemory[kPclath]) &&
                   place->state.bank.CanBe(state.dataMemory[kStatus]) &&
                   (place->state.gie || place->state.inInterrupt ||
                    (state.dataMemory[kIntcon] & kGie) == 0);
        });
        EXPECT_TRUE(isFound) << "pc " << std::hex << state.pc << " W " << state.w << " STATUS "
                             << int{state.dataMemory[kStatus]} << " PCLATH "
                             << int{state.dataMemory[kPclath]};
        return isFound;
    }

    const Program& program_;
    core::Processor& processor_;
    Paths paths_;
    std::vector<std::vector<const Place*>> byAddress_;
    static constexpr int kNoInterrupt = 99;
    int depth_ = 0;                      // calls and interrupts that have not returned
    int interruptDepth_ = kNoInterrupt;  // of the interrupted program
    // An interrupt came during another, or has returned, maybe with another W: paths leave out
    // the one and take it that the routine restores the other.
    bool isOver_ = false;
};

TEST(Paths, HoldEveryStateOfARun) {
    const models::Model& model = ModelNamed("PIC16F877");
    core::Processor processor = core::MakeProcessor(model, DescriptionOf(model));
    core::Random random(17);
    int steps = 0;
    for (int i = 0; i < 1500 && !HasFailure(); ++i) {
        const Program program = RandomPaths(random);
        steps += Walk(program, processor).Run(400);
    }
    EXPECT_GT(steps, 50'000);
}

}  // namespace
}  // namespace corvane::check
