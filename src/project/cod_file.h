// .cod files: what assemblers and linkers write for debuggers beside a .hex file.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/result.h"

namespace corvane::project {

// What a .cod file says of a name.
enum class CodSymbolKind : std::uint8_t {
    Constant,
    Register,  // a place in data memory that the source has reserved
    Address,   // a place in program memory
};

struct CodSymbol {
    std::string name;
    CodSymbolKind kind = CodSymbolKind::Constant;
    std::int64_t value = 0;
};

// A line of one of the files.
struct CodLine {
    int file = 0;  // index into CodFile::files
    int line = 0;  // from 1
};

constexpr int kCodWords = 0x2000;  // program memory; configuration word and EEPROM lie above

struct CodFile {
    std::string processor;  // as its writer names it: "16f84a"
    std::vector<std::string>
        files;  // as their names were given; of a long one the first characters
    std::vector<std::optional<std::uint16_t>> words;  // by address, kCodWords of them
    std::vector<std::optional<CodLine>> lines;        // by address: the line that made the word
    std::vector<CodSymbol> symbols;
};

// Reads a file's bytes. The error says what is wrong with them.
common::Result<CodFile> ReadCodFile(std::string_view bytes);

}  // namespace corvane::project
