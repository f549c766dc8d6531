// Reading Intel HEX program files.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "common/result.h"

namespace corvane::loader {

struct Program {
    std::vector<std::uint16_t> words;  // as many as program memory has, 0 where the file is silent
    std::vector<bool> isWritten;       // by address: a record wrote the word
    int loadedWords = 0;               // one past the highest address that a record wrote
    int skippedWords = 0;              // program words beyond this memory, below 2000h
};

struct HexError {
    int lineNumber = 0;   // from 1, empty lines counted
    std::string message;  // without leading ": ", such as "The record is too short."
};

// Reads a file's text into a program memory of this many words. Records beyond it (configuration
// word, ID locations, EEPROM) are skipped; reading stops at the end record or at the first error.
common::Result<Program, HexError> ReadIntelHex(std::string_view text, int programWords);

// The program of these words from address 0 on, as a file with them would give it.
Program ProgramOf(std::span<const std::uint16_t> words, int programWords);

// What is told of skipped words: "3 words at 0400 and beyond do not fit PIC16F84 and were
// skipped.". Nothing when there are none.
std::optional<std::string> SkippedWordsMessage(const Program& program, std::string_view modelName);

// "Operation completed.", CR LF and "Total N (KK) program words loaded.".
std::string LoadedMessage(int loadedWords);

// "Input program file in Intel Hex Format contains errors.", CR LF, "Line number N: " and the
// error.
std::string HexErrorMessage(const HexError& error);

}  // namespace corvane::loader
