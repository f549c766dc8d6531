// Start, runs and breakpoints, names of pins.
#include "core/reset.h"

#include <gtest/gtest.h>
#include <pthread.h>

#include <algorithm>
#include <array>
#include <map>
#include <string>

#include "core/engine_pair.h"
#include "isa/instruction_set.h"
#include "shipped_files.h"

namespace corvane::core {
namespace {

Processor StartedProcessor(std::string_view name, const std::vector<std::string>& program) {
    const models::Model& model = ModelNamed(name);
    Processor processor = MakeProcessor(model, DescriptionOf(model));
    FillProgramMemory(processor, Words(program));
    StartSimulation(processor);
    return processor;
}

TEST(StartSimulation, ResetsEverythingButTheProgram) {
    Processor processor = StartedProcessor("PIC16F877", {"BSF PCLATH,0", "CALL 0x7FF", "SLEEP"});
    const ProcessorState fresh = processor.state;
    EXPECT_EQ(fresh.clockCycles, 4);
    EXPECT_EQ(fresh.instructionCount, 0);
    EXPECT_EQ(fresh.stackPointer, 8);
    EXPECT_EQ(fresh.dataMemory[0x03], 0x18);
    EXPECT_EQ(fresh.dataMemory[0x81], 0xFF);
    EXPECT_EQ(fresh.dataMemory[0x85], 0x3F);
    EXPECT_EQ(fresh.lastInstruction, kNoInstruction);

    TogglePin(processor, {1, 4}, true);
    SetAnalogValue(processor, 0, 700);
    processor.state.eepromMemory[3] = 9;
    processor.state.eeWriteBusy = true;
    processor.state.stopRequested = true;
    StateChanged(processor);
    core::Run(processor, 10);
    EXPECT_FALSE(processor.state == fresh);
    StartSimulation(processor);
    EXPECT_TRUE(processor.state == fresh);
}

TEST(StartSimulation, CountsOneCycleOnTimer0) {
    // After power-on Timer0 counts T0CKI; a description that says otherwise lets it count.
    const models::Model& model = ModelNamed("PIC16F84");
    models::ModelDescription description = DescriptionOf(model);
    for (models::Sfr& sfr : description.sfrList) {
        if (sfr.address == 0x81) {
            sfr.resetValue = 0x08;
        }
    }
    Processor processor = MakeProcessor(model, description);
    EXPECT_EQ(processor.state.dataMemory[1], 0);
    StartSimulation(processor);
    EXPECT_EQ(processor.state.dataMemory[1], 1);
}

TEST(FillProgramMemory, ClearsTheRestAndDropsWhatIsTooMuch) {
    Processor processor = StartedProcessor("PIC16F83", {"SLEEP", "SLEEP", "SLEEP"});
    FillProgramMemory(processor, Words({"NOP"}));
    EXPECT_EQ(processor.programMemory[0], 0);
    EXPECT_EQ(processor.programMemory[1], 0);
    FillProgramMemory(processor, std::vector<std::uint16_t>(600, 0x0063));
    EXPECT_EQ(processor.programMemory[511], 0x0063);
    EXPECT_EQ(processor.programMemory[512], 0);
}

TEST(Run, EndsAtStepsStopsAndBreakpoints) {
    Processor processor = StartedProcessor("PIC16F84", {"NOP", "NOP", "NOP", "GOTO 0x000"});
    RunResult result = core::Run(processor, 10);
    EXPECT_EQ(result.steps, 10);
    EXPECT_FALSE(result.breakpointReached);
    EXPECT_EQ(processor.state.pc, 2);

    SetBreakpoints(processor, std::array{3, 8000});
    result = core::Run(processor, 100);
    EXPECT_EQ(result.steps, 1);
    EXPECT_TRUE(result.breakpointReached);
    result = core::Run(processor, 100);  // the one it stands on does not stop it
    EXPECT_EQ(result.steps, 4);
    EXPECT_TRUE(result.breakpointReached);
    StartSimulation(processor);  // breakpoints survive
    EXPECT_EQ(core::Run(processor, 100).steps, 3);
    EXPECT_FALSE(ExecuteStep(processor).breakpointReached);
    SetBreakpoints(processor, {});
    EXPECT_EQ(core::Run(processor, 100).steps, 100);

    Processor sleeping = StartedProcessor("PIC16F84", {"NOP", "SLEEP"});
    EXPECT_EQ(core::Run(sleeping, 100).steps, 2);
    EXPECT_TRUE(sleeping.state.stopRequested);

    Processor past = StartedProcessor("PIC16F83", {});
    EXPECT_EQ(core::Run(past, 10000).steps, 512);
    EXPECT_EQ(past.state.pc, 512);
    EXPECT_TRUE(past.state.stopRequested);
}

// More steps than could be executed one by one.
TEST(Run, DoesWaitingLoopsInOneGo) {
    constexpr std::int64_t kMany = 1'000'000'000'000;
    Processor idle = StartedProcessor("PIC16F84", {"GOTO 0x000"});
    EXPECT_EQ(core::Run(idle, kMany).steps, kMany);
    EXPECT_EQ(idle.state.clockCycles, 4 + 8 * kMany);
    EXPECT_EQ(idle.state.instructionCount, kMany);
    SetBreakpoints(idle, std::array{0});
    EXPECT_EQ(core::Run(idle, kMany).steps, 1)
        << "what is known of a loop does not pass a breakpoint";

    // Four counters of 256 passages each, one in the other: closed by one GOTO, and by one each.
    const std::vector<std::vector<std::string>> nests = {
        {"DECFSZ 0x0C,F", "GOTO 0x007", "DECFSZ 0x0D,F", "GOTO 0x007", "DECFSZ 0x0E,F",
         "GOTO 0x007", "DECFSZ 0x0F,F", "GOTO 0x000", "SLEEP"},
        {"DECFSZ 0x0C,F", "GOTO 0x000", "DECFSZ 0x0D,F", "GOTO 0x000", "DECFSZ 0x0E,F",
         "GOTO 0x000", "DECFSZ 0x0F,F", "GOTO 0x000", "SLEEP"}};
    for (const std::vector<std::string>& nest : nests) {
        Processor counting = StartedProcessor("PIC16F84", nest);
        core::Run(counting, kMany);
        EXPECT_TRUE(counting.state.stopRequested);
        EXPECT_GT(counting.state.instructionCount, std::int64_t{2} << 32);
        EXPECT_EQ(counting.state.dataMemory[0x0F], 0);
    }
}

// Runs on a stack that holds the frames of a few thousand instructions.
void RunOnSmallStack(Processor& processor) {
    constexpr std::size_t kStackBytes = 256 * 1024;
    pthread_attr_t attributes;
    pthread_t thread{};
    pthread_attr_init(&attributes);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, kStackBytes), 0);
    const auto run = [](void* argument) -> void* {
        core::Run(*static_cast<Processor*>(argument), 40'000);
        return nullptr;
    };
    ASSERT_EQ(pthread_create(&thread, &attributes, run, &processor), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
}

// Ten million instructions, each on every kind of register: one that did not give its frame back
// before it went on with the next would fill the stack.
TEST(Run, NeedsNoStackForInstructions) {
    static constexpr std::array kCells = {0x00, 0x01, 0x02, 0x03, 0x05, 0x06, 0x0A, 0x20};
    static constexpr std::array<std::uint8_t, 4> kIndirectCells = {0x03, 0x06, 0x1F, 0x20};
    Processor processor = StartedProcessor("PIC16F877", {});
    std::int64_t steps = 0;
    for (int word = 0; word < isa::kWordCount; ++word) {
        const isa::Operation operation = isa::Classify(word);
        if (operation == isa::Operation::Sleep || operation == isa::Operation::Unrecognized) {
            continue;
        }
        const isa::OperandForm form = isa::InstructionOf(operation).form;
        const bool namesRegister = form == isa::OperandForm::Register ||
                                   form == isa::OperandForm::RegisterDestination ||
                                   form == isa::OperandForm::RegisterBit;
        const int operand = word & 0x7F;
        const bool isOneOfMany =
            namesRegister ? std::ranges::count(kCells, operand) == 0 ||
                                (form == isa::OperandForm::RegisterBit && isa::BitField(word) != 5)
                          : form != isa::OperandForm::None && operand != 0;
        if (isOneOfMany ||
            (form == isa::OperandForm::Address11 && isa::Address11Field(word) != 0)) {
            continue;
        }
        FillProgramMemory(processor, std::vector(8192, static_cast<std::uint16_t>(word)));
        for (const std::uint8_t fsr : kIndirectCells) {
            StartSimulation(processor);
            processor.state.dataMemory[4] = fsr;
            RunOnSmallStack(processor);
            steps += processor.state.instructionCount;
        }
    }
    EXPECT_GT(steps, 10'000'000);
}

TEST(FindPin, KnowsThePinsOfEachPackage) {
    const std::map<std::string, std::array<int, 8>> pinsOfPorts = {
        {"PIC16F83", {5, 8}},           {"PIC16F84", {5, 8}},     {"PIC16F873", {6, 8, 8}},
        {"PIC16F874", {6, 8, 8, 8, 3}}, {"PIC16F876", {6, 8, 8}}, {"PIC16F877", {6, 8, 8, 8, 3}},
        {"PIC16F627", {8, 8}},          {"PIC16F628", {8, 8}}};
    for (const auto& [model, pins] : pinsOfPorts) {
        for (int port = 0; port < 8; ++port) {
            for (int bit = 0; bit < 10; ++bit) {
                const std::string name = {'R', static_cast<char>('A' + port),
                                          static_cast<char>('0' + bit)};
                const std::optional<Pin> pin = FindPin(ModelNamed(model), name);
                ASSERT_EQ(pin.has_value(), bit < pins.at(static_cast<std::size_t>(port))) << name;
                EXPECT_TRUE(!pin || (pin->port == port && pin->bit == bit)) << name;
            }
        }
    }
    const models::Model& model = ModelNamed("PIC16F84");
    EXPECT_TRUE(FindPin(model, "rb7"));
    for (const char* name : {"", "R", "RA", "RA00", "PA0", "RA0 ", "RA-", "R\3770"}) {
        EXPECT_FALSE(FindPin(model, name)) << name;
    }
}

}  // namespace
}  // namespace corvane::core
