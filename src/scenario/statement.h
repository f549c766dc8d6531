// A test as it is executed: one statement for each line.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/pins.h"
#include "inspect/expression.h"

namespace corvane::scenario {

enum class Action : std::uint8_t {
    Set,
    Toggle,
    Analog,
    Press,
    Hold,
    Release,
    Wait,
    Within,
    WithinEnd,
    For,
    Expect,
    Never,
    Always,
    Call,
    Serial,
    Send,
    Reset,
    End,
};

// What is to hold: an expression, or that a serial line has received a text.
struct Judgement {
    std::optional<inspect::Expression> expression{};
    std::size_t serial = 0;  // without an expression
    std::string received{};
};

struct Assignment {
    std::string name;
    inspect::Quantity target;  // W, a cell, a pair of them or a bit
    inspect::Expression value;
};

// Only what the action needs is filled in.
struct Statement {
    Action action;
    int line;          // in the file, from 1
    std::string text;  // as written
    core::Pin pin{};
    int channel = 0;
    int value = 0;              // level of a pin, or value of an analog input
    std::int64_t duration = 0;  // clock cycles
    std::string durationText{};
    Judgement judgement{};
    int address = 0;  // of the subroutine
    std::vector<Assignment> assignments{};
    std::size_t serial = 0;  // index into Test::serials
    std::string bytes{};
};

// 8 data bits, no parity, one stop bit.
struct SerialPort {
    std::string name;
    std::optional<core::Pin> tx;  // the chip sends there
    std::optional<core::Pin> rx;  // the chip receives there
    std::int64_t baud;            // bits per second, 1 or more
};

struct Test {
    std::string name;
    int line = 0;
    std::vector<Statement> statements{};
    std::vector<SerialPort> serials{};
};

}  // namespace corvane::scenario
