#include "scenario/test_file.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <set>
#include <utility>

#include "common/text.h"
#include "scenario/line_reader.h"

namespace corvane::scenario {

namespace {

using Failure = std::optional<LineError>;
constexpr int kLargestByte = 0xFF;

Failure ReadProgram(LineReader& line, Setup& setup) {
    if (line.Rest().starts_with('"')) {
        auto quoted = line.TakeQuoted();
        if (!quoted) {
            return quoted.error;
        }
        setup.program = *std::move(quoted.value);
    } else {
        setup.program = line.TakeRest();
    }
    return setup.program.empty() || setup.program.find('\0') != std::string::npos
               ? Failure(line.ErrorHere("The name of a file is expected here."))
               : std::nullopt;
}

Failure ReadModel(LineReader& line, Setup& setup) {
    setup.modelName = line.Word();
    setup.model = models::FindModelAsWritten(setup.modelName);
    if (!setup.model) {
        return line.ErrorHere("There is no model '" + setup.modelName + "'.");
    }
    line.TakeWord();
    return std::nullopt;
}

Failure ReadClock(LineReader& line, Setup& setup) {
    const std::string_view number = line.Word();
    const char* const end = number.data() + number.size();
    const auto [stop, error] = std::from_chars(number.data(), end, setup.clockFrequency);
    const std::optional<inspect::Clock> clock = inspect::ReadClock(number);
    if (error != std::errc() || stop != end || !clock || !(setup.clockFrequency > 0) ||
        setup.clockFrequency > std::numeric_limits<float>::max()) {
        return line.ErrorHere("A frequency such as 4 MHz is expected here.");
    }
    line.TakeWord();
    setup.clock = *clock;
    return line.TakeIf("MHZ") ? std::nullopt : Failure(line.ErrorHere("'MHz' is expected here."));
}

Failure ReadCycles(LineReader& line, int& cycles) {
    const std::optional<std::int64_t> number = ReadWholeNumber(line.Word());
    if (!number || *number < 1 || *number > std::numeric_limits<int>::max()) {
        return line.ErrorHere("A whole number of clock cycles from 1 on is expected here.");
    }
    cycles = static_cast<int>(*number);
    line.TakeWord();
    return std::nullopt;
}

Failure ReadEepromWriteTime(LineReader& line, Setup& setup) {
    return ReadCycles(line, setup.eepromWriteTime);
}

Failure ReadAdConversionTime(LineReader& line, Setup& setup) {
    return ReadCycles(line, setup.adConversionTime);
}

Failure ReadChip(LineReader& line, Setup& /*setup*/) {
    return line.TakeIf("BASIC") ? std::nullopt
                                : Failure(line.ErrorHere("The chip that is simulated is 'basic'."));
}

Failure ReadEeprom(LineReader& line, Setup& setup) {
    constexpr std::int64_t kHighestAddress = 0xFF;
    const std::size_t colon = std::min(line.Rest().find(':'), line.Rest().size());
    const std::size_t column = line.Column();
    const auto address = ReadWholeNumber(common::Trim(line.Rest().substr(0, colon)));
    if (!address || *address > kHighestAddress || colon == line.Rest().size()) {
        return line.ErrorHere("An address with ':' behind it is expected here.");
    }
    LineReader bytes(line.TakeRest().substr(colon + 1));
    auto next = static_cast<int>(*address);
    do {
        const std::optional<std::int64_t> byte = ReadWholeNumber(bytes.Word());
        if (!byte || *byte > kLargestByte || next > kHighestAddress) {
            return LineError{column + colon + bytes.Column(),
                             "A byte, 0 to 255, is expected here."};
        }
        setup.eeprom.push_back({next++, static_cast<int>(*byte), 0});
        bytes.TakeWord();
    } while (!bytes.IsAtEnd());
    return std::nullopt;
}

struct SetupWord {
    std::string_view upperWord;
    Failure (*read)(LineReader& line, Setup& setup);
};

constexpr std::string_view kEepromWord = "EEPROM";
constexpr auto kSetupWords = std::to_array<SetupWord>({
    {"PROGRAM", ReadProgram},
    {"MODEL", ReadModel},
    {"CLOCK", ReadClock},
    {"EEPROM-WRITE-TIME", ReadEepromWriteTime},
    {"AD-CONVERSION-TIME", ReadAdConversionTime},
    {"CHIP", ReadChip},
    {kEepromWord, ReadEeprom},
});

class TestFileReader {
  public:
    Failure ReadLine(std::string_view text, int number) {
        LineReader line(text);
        if (line.IsAtEnd()) {
            return std::nullopt;
        }
        if (line.TakeIf("TEST")) {
            return ReadTestName(line, number);
        }
        if (file.tests.empty()) {
            return ReadSetupLine(line, number);
        }
        file.tests.back().lines.push_back({number, std::string(text)});
        return std::nullopt;
    }

    TestFile file;

  private:
    Failure ReadTestName(LineReader& line, int number) {
        const LineError nameError = line.ErrorHere("");
        auto name = line.TakeQuoted();
        if (!name) {
            return name.error;
        }
        const bool isPrintable = std::none_of(
            name->begin(), name->end(), [](char c) { return static_cast<unsigned char>(c) < ' '; });
        if (name->empty() || !isPrintable) {
            return LineError{nameError.column, "A test's name is a printable text."};
        }
        if (!line.IsAtEnd()) {
            return line.ErrorHere("Nothing more is expected here.");
        }
        if (file.setup.program.empty()) {
            return LineError{1, "No 'program' line stands before the first test."};
        }
        if (!testNames_.insert(*name).second) {
            return LineError{nameError.column, "There is a test of this name already."};
        }
        file.tests.push_back({*std::move(name.value), number, {}});
        return std::nullopt;
    }

    Failure ReadSetupLine(LineReader& line, int number) {
        const std::string word = common::ToUpper(line.Word());
        const auto* row = std::find_if(kSetupWords.begin(), kSetupWords.end(),
                                       [&](const SetupWord& w) { return w.upperWord == word; });
        if (row == kSetupWords.end()) {
            return line.ErrorHere("'" + std::string(line.Word()) +
                                  "' does not stand before the first test.");
        }
        if (word != kEepromWord && !words_.insert(word).second) {
            return line.ErrorHere("This line stands twice.");
        }
        line.TakeWord();
        const Failure failure = row->read(line, file.setup);
        if (row->read == ReadProgram) {
            file.setup.programLine = number;
        }
        for (EepromByte& byte : file.setup.eeprom) {
            byte.line = byte.line == 0 ? number : byte.line;
        }
        return failure || line.IsAtEnd() ? failure
                                         : line.ErrorHere("Nothing more is expected here.");
    }

    std::set<std::string> testNames_;
    std::set<std::string> words_;  // of lines that stand once
};

}  // namespace

common::Result<TestFile, ReadError> ReadTestFile(std::string_view text) {
    using FileResult = common::Result<TestFile, ReadError>;
    TestFileReader reader;
    int number = 0;
    for (const std::string_view line : common::SplitLines(text)) {
        if (const Failure failure = reader.ReadLine(line, ++number)) {
            return FileResult::Failure(AtColumn(number, *failure));
        }
    }
    if (reader.file.tests.empty()) {
        return FileResult::Failure(AtColumn(std::max(number, 1), {1, "There is no test."}));
    }
    return FileResult::Success(std::move(reader.file));
}

std::optional<ReadError> EepromError(const Setup& setup, const models::Model& model) {
    for (const EepromByte& byte : setup.eeprom) {
        if (byte.address >= model.eepromBytes) {
            return ReadError{byte.line, "Address " + std::to_string(byte.address) +
                                            " lies beyond the EEPROM of " +
                                            std::string(model.name) + "."};
        }
    }
    return std::nullopt;
}

ReadError AtColumn(int line, const LineError& error) {
    return {line, error.column == 0
                      ? error.message
                      : "Column " + std::to_string(error.column) + ": " + error.message};
}

}  // namespace corvane::scenario
