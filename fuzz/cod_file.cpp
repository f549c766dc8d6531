// Any bytes are a .cod file: the reader must end, and what it returns must agree with itself.
#include "project/cod_file.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

#include "require.h"

namespace {

using corvane::project::CodFile;
using corvane::project::kCodWords;

void CheckFile(const CodFile& file, std::size_t size) {
    Require(file.words.size() == kCodWords && file.lines.size() == kCodWords);
    Require(file.files.size() <= size / 64 && file.symbols.size() <= size / 8);
    for (std::size_t address = 0; address < kCodWords; ++address) {
        const auto& line = file.lines[address];
        Require(!line || (file.words[address] && line->line > 0 && line->file >= 0 &&
                          std::cmp_less(line->file, file.files.size())));
    }
    Require(std::all_of(file.symbols.begin(), file.symbols.end(), [](const auto& symbol) {
        return !symbol.name.empty() && symbol.value >= 0 && symbol.value <= 0xFFFFFFFF;
    }));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const auto file = corvane::project::ReadCodFile(bytes);
    if (file) {
        CheckFile(*file, size);
    } else {
        Require(!file.error.empty());
    }
    return 0;
}
