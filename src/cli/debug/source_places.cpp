#include "cli/debug/source_places.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <optional>

#include "common/number_text.h"
#include "common/text.h"
#include "common/text_file.h"

namespace corvane::cli {

namespace {

using Found = common::Result<NamedAddresses>;

std::optional<int> ReadAddress(std::string_view text, const models::Model& model) {
    constexpr int kHexadecimal = 16;
    if (text.starts_with("0x") || text.starts_with("0X")) {
        text.remove_prefix(2);
    }
    int address = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, address, kHexadecimal);
    const bool isAddress = error == std::errc() && stop == end && text.size() <= 4 &&
                           address >= 0 && address < model.programWords;
    return isAddress ? std::optional(address) : std::nullopt;
}

// As messages name it, or by its name without folder.
std::optional<int> FindFile(std::string_view name, const project::Program& program) {
    const auto& files = program.files;
    auto file = std::find(files.begin(), files.end(), name);
    if (file == files.end()) {
        file = std::find_if(files.begin(), files.end(), [name](const std::string& path) {
            return std::filesystem::path(path).filename() == name;
        });
    }
    return file == files.end() ? std::nullopt
                               : std::optional(static_cast<int>(file - files.begin()));
}

common::Result<std::vector<std::string>> LinesOf(const std::string& file) {
    using Lines = common::Result<std::vector<std::string>>;
    const common::Result<std::string> text = common::ReadTextFile(file);
    if (!text) {
        return Lines::Failure(file + ": " + text.error);
    }
    std::vector<std::string> lines;
    for (const std::string_view line : common::SplitLines(*text)) {
        lines.emplace_back(line);
    }
    return Lines::Success(std::move(lines));
}

Found AddressesOfLine(int file, int line, const project::Program& program) {
    const project::LineWords words = project::WordsFromLineOn(program, {file, line});
    if (words.line == 0) {
        return Found::Failure("no line from " + std::to_string(line) + " on has program words");
    }
    return Found::Success({words.addresses, words.line == line
                                                ? ""
                                                : "line " + std::to_string(line) +
                                                      " has no program words; line " +
                                                      std::to_string(words.line) + " has\n"});
}

Found FindLine(std::string_view where, const project::Program& program) {
    const std::size_t colon = where.rfind(':');
    const std::string_view name = where.substr(0, colon);
    const std::string_view digits = where.substr(colon + 1);
    const std::optional<int> file = FindFile(name, program);
    if (!file) {
        return Found::Failure("the program has no source '" + std::string(name) + "'");
    }
    int line = 0;
    const char* end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, line);
    const auto lines = LinesOf(program.files[static_cast<std::size_t>(*file)]);
    const bool isLine = error == std::errc() && stop == end && line > 0 &&
                        (!lines || static_cast<std::size_t>(line) <= lines->size());
    return isLine ? AddressesOfLine(*file, line, program)
                  : Found::Failure(std::string(name) + " has no line " + std::string(digits));
}

}  // namespace

Found FindAddresses(std::string_view where, const inspect::Names& names,
                    const project::Program& program) {
    if (where.find(':') != std::string_view::npos) {
        return FindLine(where, program);
    }
    const inspect::Meaning* meaning = names.Find(where);
    if (meaning != nullptr && meaning->isLabel) {
        return Found::Success({{static_cast<int>(meaning->number)}, ""});
    }
    const std::optional<int> address = ReadAddress(where, names.Model());
    return address ? Found::Success({{*address}, ""})
                   : Found::Failure("'" + std::string(where) +
                                    "' is no label, address or FILE:LINE of this program");
}

common::Result<std::string> ListAround(int address, const project::Program& program) {
    using List = common::Result<std::string>;
    constexpr int kLinesAround = 4;
    const std::optional<project::Place> place = project::PlaceAt(program, address);
    if (!place) {
        return List::Failure("no source line made the word at " + common::Hex4(address));
    }
    const auto lines = LinesOf(program.files[static_cast<std::size_t>(place->file)]);
    if (!lines) {
        return List::Failure(lines.error);
    }
    std::string text;
    const int last = std::min(place->line + kLinesAround, static_cast<int>(lines->size()));
    for (int line = std::max(1, place->line - kLinesAround); line <= last; ++line) {
        const std::string number = std::to_string(line);
        const std::string& source = (*lines)[static_cast<std::size_t>(line - 1)];
        text += line == place->line ? "> " : "  ";
        text += number;
        text += source.empty() ? "" : "\t";
        text += source;
        text += "\n";
    }
    return List::Success(std::move(text));
}

}  // namespace corvane::cli
