#include "core/cpu/decoded_program.h"

#include "core/cpu/core.h"
#include "core/cpu/instructions.h"

namespace corvane::core {

namespace {

struct Place {
    int bank;
    int address;
};

Place PlaceOf(const Processor& processor, const DecodedWord* entry) {
    const std::ptrdiff_t index = entry - processor.dispatch.code.data();
    return {static_cast<int>(index / kDecodedWordsOfBank),
            static_cast<int>(index % kDecodedWordsOfBank)};
}

// What is in the table until a word is executed for the first time.
void DecodeAndExecute(Processor& processor, DecodedWord* at, std::int64_t left, int w, int status,
                      DecodedWord* last) {
    DecodeEntry(processor, at);
    return at->execute(processor, at, left, w, status, last);
}

// Behind the last address comes 0.
void WrapToStart(Processor& processor, DecodedWord* at, std::int64_t left, int w, int status,
                 DecodedWord* last) {
    DecodedWord* const wrapped = at - kProgramCounterRange;
    return wrapped->execute(processor, wrapped, left, w, status, last);
}

// A breakpoint, or an address behind the model's memory.
void StopAtMark(Processor& processor, DecodedWord* at, std::int64_t left, int w, int status,
                DecodedWord* last) {
    Leave(processor, at, left, w, status, last);
    EndSlice(processor.dispatch);
}

}  // namespace

void ForgetDecodedProgram(Processor& processor) {
    ForgetLoops(processor);
    auto& code = processor.dispatch.code;
    code.assign(
        static_cast<std::size_t>(kBankCount * kDecodedWordsOfBank),
        {.execute = DecodeAndExecute, .word = 0, .operand = 0, .bitOrLoop = 0, .patience = 0});
    for (std::ptrdiff_t bank = 0; bank < kBankCount; ++bank) {
        DecodedWord* const end = code.data() + bank * kDecodedWordsOfBank + kProgramCounterRange;
        end[0].execute = WrapToStart;
        end[1].execute = WrapToStart;
    }
}

void SetStopMarks(Processor& processor, int address, int marks) {
    Dispatch& dispatch = processor.dispatch;
    dispatch.stopMarks[static_cast<std::size_t>(address)] = static_cast<std::uint8_t>(marks);
    ForgetLoops(processor);
    for (std::ptrdiff_t bank = 0; bank < kBankCount; ++bank) {
        dispatch.code[static_cast<std::size_t>(bank * kDecodedWordsOfBank + address)].execute =
            DecodeAndExecute;
    }
}

DecodedWord* EntryAtPc(Processor& processor) {
    const std::ptrdiff_t bank = BankOf(processor.state.dataMemory[kStatus]);
    DecodedWord* const entry =
        processor.dispatch.code.data() + bank * kDecodedWordsOfBank + processor.state.pc;
    if (entry->execute == DecodeAndExecute) {
        DecodeEntry(processor, entry);
    }
    return entry;
}

ExecuteFunction DecodeEntry(Processor& processor, DecodedWord* entry) {
    const Place place = PlaceOf(processor, entry);
    const auto address = static_cast<std::size_t>(place.address);
    const auto size = static_cast<std::size_t>(processor.model->programWords);
    *entry = Decode(processor, processor.programMemory[address % size], place.address, place.bank);
    const ExecuteFunction execute = entry->execute;
    if (processor.dispatch.stopMarks[address] != 0) {
        entry->execute = StopAtMark;
    }
    return execute;
}

}  // namespace corvane::core
