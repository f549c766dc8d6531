#include "project/cod_file.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace corvane::project {

namespace {

constexpr std::size_t kBlockSize = 512;

// Places in the directory, which is the first block: a text begins with its length, a number has
// its low byte first, a table is named by its first and its last block.
constexpr std::size_t kNameTable = 0x1AE;
constexpr std::size_t kLineTable = 0x1B2;
constexpr std::size_t kMemoryMap = 0x1BB;
constexpr std::size_t kFormat = 0x1C3;
constexpr std::size_t kProcessor = 0x1C5;
constexpr std::size_t kSymbolTable = 0x1CE;

constexpr int kKnownFormat = 1;
constexpr std::size_t kProcessorWidth = 9;  // with the length
constexpr std::size_t kWordsOfBlock = kBlockSize / 2;
constexpr std::size_t kNameWidth = 64;  // of a file's name, with the length
constexpr std::size_t kLineWidth = 6;   // file, flags, line (2), address (2)
constexpr int kUsedLine = 0x80;         // flags of an entry that is one
constexpr int kCodeLine = 0x80;         // flags of a line that makes words

// Types of symbols.
constexpr int kShort = 0x02;
constexpr int kAddress = 0x2E;
constexpr std::size_t kValueWidth = 6;  // behind a symbol's name: type (2) and value (4)

struct LineEntry {
    int file;
    int flags;
    int line;
    int address;
};

// A file's blocks. Every access is inside the file.
class Blocks {
  public:
    explicit Blocks(std::string_view bytes) : bytes_(bytes) {}

    int Byte(std::size_t place) const {
        return place < bytes_.size() ? static_cast<unsigned char>(bytes_[place]) : 0;
    }
    int Number(std::size_t place) const { return Byte(place) + 256 * Byte(place + 1); }

    // A text behind its length, of at most width bytes together.
    std::string_view Text(std::size_t place, std::size_t width) const {
        const auto length = std::min(static_cast<std::size_t>(Byte(place)), width - 1);
        return place + 1 + length <= bytes_.size() ? bytes_.substr(place + 1, length) : "";
    }

    // The blocks of a table; none when the table is empty.
    struct Range {
        std::size_t begin = 0;
        std::size_t end = 0;  // one past the last
    };
    std::optional<Range> Table(std::size_t entry) const {
        const auto first = static_cast<std::size_t>(Number(entry));
        const auto last = static_cast<std::size_t>(Number(entry + 2));
        if (first == 0) {
            return Range{};
        }
        const bool isInFile = last >= first && (last + 1) * kBlockSize <= bytes_.size();
        return isInFile ? std::optional(Range{first, last + 1}) : std::nullopt;
    }

  private:
    std::string_view bytes_;
};

using Range = Blocks::Range;

std::vector<std::string> ReadNames(const Blocks& blocks, Range table) {
    std::vector<std::string> names;
    for (std::size_t place = table.begin * kBlockSize; place < table.end * kBlockSize;
         place += kNameWidth) {
        if (blocks.Byte(place) != 0) {
            names.emplace_back(blocks.Text(place, kNameWidth));
        }
    }
    return names;
}

std::vector<LineEntry> ReadLineEntries(const Blocks& blocks, Range table, std::size_t fileCount) {
    std::vector<LineEntry> entries;
    for (std::size_t block = table.begin; block < table.end; ++block) {
        for (std::size_t i = 0; i + kLineWidth <= kBlockSize; i += kLineWidth) {
            const std::size_t place = block * kBlockSize + i;
            const LineEntry entry = {.file = blocks.Byte(place),
                                     .flags = blocks.Byte(place + 1),
                                     .line = blocks.Number(place + 2),
                                     .address = blocks.Number(place + 4)};
            if ((entry.flags & kUsedLine) != 0 && entry.line > 0 && entry.address < kCodWords &&
                static_cast<std::size_t>(entry.file) < fileCount) {
                entries.push_back(entry);
            }
        }
    }
    return entries;
}

CodSymbolKind KindOf(int type) {
    switch (type) {
        case kShort:
            return CodSymbolKind::Register;
        case kAddress:
            return CodSymbolKind::Address;
        default:
            return CodSymbolKind::Constant;
    }
}

// No symbol goes beyond its block; a length of 0 ends the block's symbols.
std::vector<CodSymbol> ReadSymbols(const Blocks& blocks, Range table) {
    std::vector<CodSymbol> symbols;
    for (std::size_t block = table.begin; block < table.end; ++block) {
        const std::size_t end = (block + 1) * kBlockSize;
        for (std::size_t place = block * kBlockSize; place < end && blocks.Byte(place) != 0;) {
            const auto length = static_cast<std::size_t>(blocks.Byte(place));
            const std::size_t type = place + 1 + length;
            if (type + kValueWidth > end) {
                break;
            }
            std::int64_t value = 0;  // its high byte comes first
            for (std::size_t i = 2; i < kValueWidth; ++i) {
                value = 256 * value + blocks.Byte(type + i);
            }
            symbols.push_back(
                {std::string(blocks.Text(place, length + 1)), KindOf(blocks.Number(type)), value});
            place = type + kValueWidth;
        }
    }
    return symbols;
}

// The memory map is a list of first and last byte addresses; the directory begins with the block of
// each 256 words.
common::Result<std::vector<std::optional<std::uint16_t>>> ReadWords(const Blocks& blocks,
                                                                    std::size_t blockCount,
                                                                    Range map) {
    using WordsResult = common::Result<std::vector<std::optional<std::uint16_t>>>;
    std::vector<std::optional<std::uint16_t>> words(kCodWords);
    for (std::size_t place = map.begin * kBlockSize; place < map.end * kBlockSize; place += 4) {
        const int first = blocks.Number(place) / 2;
        const int last = blocks.Number(place + 2) / 2;
        const bool isEnd = blocks.Number(place) == 0 && blocks.Number(place + 2) == 0;
        for (int address = first; !isEnd && address <= last && address < kCodWords; ++address) {
            const auto index = static_cast<std::size_t>(address);
            const auto block = static_cast<std::size_t>(blocks.Number(index / kWordsOfBlock * 2));
            if (block == 0 || block >= blockCount || words[index]) {
                return WordsResult::Failure("The file does not hold the words that it names.");
            }
            words[index] = static_cast<std::uint16_t>(
                blocks.Number(block * kBlockSize + index % kWordsOfBlock * 2));
        }
    }
    return WordsResult::Success(std::move(words));
}

// Gives words without a line that of an entry, the first entry of an address.
template <typename Condition>
void Assign(const std::vector<LineEntry>& entries, Condition applies,
            std::vector<std::optional<CodLine>>& lines) {
    for (std::size_t i = 0; i < entries.size(); ++i) {
        std::optional<CodLine>& line = lines[static_cast<std::size_t>(entries[i].address)];
        if (!line && applies(i)) {
            line = {entries[i].file, entries[i].line};
        }
    }
}

// Several entries in a row for one line: a message about the line stands before it with the address
// of the line before, so that the last one counts. A linker, though, writes one for each word, and
// those count where nothing else does.
std::vector<std::optional<CodLine>> LinesOfWords(
    const std::vector<LineEntry>& entries, const std::vector<std::optional<std::uint16_t>>& words) {
    const auto isLast = [&](std::size_t i) {
        return i + 1 == entries.size() || entries[i].file != entries[i + 1].file ||
               entries[i].line != entries[i + 1].line;
    };
    const auto makesWords = [&](std::size_t i) { return entries[i].flags == kCodeLine; };
    std::vector<std::optional<CodLine>> lines(kCodWords);
    Assign(
        entries, [&](std::size_t i) { return isLast(i) && makesWords(i); }, lines);
    Assign(entries, makesWords, lines);
    Assign(entries, isLast, lines);
    for (std::size_t address = 0; address < lines.size(); ++address) {
        if (!words[address]) {
            lines[address].reset();
        } else if (!lines[address] && address > 0) {
            lines[address] = lines[address - 1];  // nothing when no word stands there
        }
    }
    return lines;
}

}  // namespace

common::Result<CodFile> ReadCodFile(std::string_view bytes) {
    using ReadResult = common::Result<CodFile>;
    const Blocks blocks(bytes);
    if (bytes.size() < kBlockSize || blocks.Number(kFormat) != kKnownFormat) {
        return ReadResult::Failure("This is no .cod file.");
    }
    const std::optional<Range> names = blocks.Table(kNameTable);
    const std::optional<Range> lines = blocks.Table(kLineTable);
    const std::optional<Range> map = blocks.Table(kMemoryMap);
    const std::optional<Range> symbols = blocks.Table(kSymbolTable);
    if (!names || !lines || !map || !symbols) {
        return ReadResult::Failure("The file is cut off.");
    }
    auto words = ReadWords(blocks, bytes.size() / kBlockSize, *map);
    if (!words) {
        return ReadResult::Failure(words.error);
    }
    CodFile file;
    file.processor = blocks.Text(kProcessor, kProcessorWidth);
    file.files = ReadNames(blocks, *names);
    file.words = *std::move(words.value);
    file.lines = LinesOfWords(ReadLineEntries(blocks, *lines, file.files.size()), file.words);
    file.symbols = ReadSymbols(blocks, *symbols);
    return ReadResult::Success(std::move(file));
}

}  // namespace corvane::project
