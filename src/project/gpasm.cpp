#include "project/gpasm.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <utility>

#include "common/text.h"
#include "common/text_file.h"
#include "project/process.h"

namespace corvane::project {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kProcessorSuperseded = "215";  // by the command line, as was meant
constexpr int kDefaultTimeout = 60;                       // seconds
constexpr int kLongestTimeout = 24 * 3600;

struct MessageKind {
    std::string_view mark;
    common::Severity severity;
};
constexpr MessageKind kKinds[] = {{":Error[", common::Severity::Error},
                                  {":Warning[", common::Severity::Warning},
                                  {":Message[", common::Severity::Note}};

std::string Environment(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? "" : value;
}

// A name without a folder is looked for in PATH; another is taken from the present folder, not from
// the source's.
std::string ProgramName() {
    const std::string named = Environment("CORVANE_GPASM");
    if (named.empty()) {
        return "gpasm";
    }
    return named.find('/') == std::string::npos ? named : fs::absolute(named).string();
}

int Timeout() {
    const int seconds = std::atoi(Environment("CORVANE_GPASM_TIMEOUT").c_str());
    return seconds > 0 ? std::min(seconds, kLongestTimeout) : kDefaultTimeout;
}

// A name that begins like an option is none.
std::string SourceArgument(const fs::path& source) {
    const std::string name = source.filename().string();
    return name.starts_with('-') ? "./" + name : name;
}

bool IsNumber(std::string_view text) {
    constexpr std::size_t kMostDigits = 9;
    return !text.empty() && text.size() <= kMostDigits &&
           std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// "FILE:LINE:Error[NUMBER] TEXT"; false for a line of another form.
bool ReadMessage(std::string_view line, common::Diagnostic& message, std::string_view& number) {
    for (const MessageKind& kind : kKinds) {
        const std::size_t mark = line.find(kind.mark);
        const std::size_t colon =
            mark == std::string_view::npos ? mark : line.substr(0, mark).rfind(':');
        const std::size_t end = line.find(']', std::min(mark, line.size()));
        if (colon == std::string_view::npos || end == std::string_view::npos ||
            !IsNumber(line.substr(colon + 1, mark - colon - 1))) {
            continue;
        }
        const std::size_t begin = mark + kind.mark.size();
        number = line.substr(begin, end - begin);
        message.file = line.substr(0, colon);
        message.line = std::atoi(std::string(line.substr(colon + 1, mark - colon - 1)).c_str());
        message.severity = kind.severity;
        message.text =
            std::string(common::Trim(line.substr(end + 1))) + " [" + std::string(number) + "]";
        return true;
    }
    return false;
}

std::string FailureText(const ProcessResult& result, const std::string& program) {
    switch (result.ending) {
        case ProcessEnding::NotFound:
            return "gpasm could not be started as '" + program + "' (" + result.detail +
                   "). Install the package gputils (apt install gputils), or name the program in "
                   "CORVANE_GPASM.";
        case ProcessEnding::Signalled:
            return "gpasm was ended by a signal: " + result.detail + ".";
        case ProcessEnding::TimedOut:
            return "gpasm has not ended within " + std::to_string(Timeout()) + " s.";
        case ProcessEnding::TooMuchOutput:
            return "gpasm has printed more than 16 MB.";
        case ProcessEnding::Exited:
        case ProcessEnding::Cancelled:
            break;
    }
    return "";
}

// What a program says that fails without a message about the source.
std::string FirstLine(std::string_view printed) {
    for (const std::string_view line : common::SplitLines(printed)) {
        if (!common::Trim(line).empty()) {
            return ": " + std::string(common::FirstCharacters(common::Trim(line), 200));
        }
    }
    return "";
}

std::string TextOf(const fs::path& path) {
    common::Result<std::string> text = common::ReadTextFile(path);
    return text ? *std::move(text.value) : "";
}

void ReadResults(const fs::path& hexFile, const ProcessResult& process, std::string_view printed,
                 GpasmResult& result) {
    result.listing = TextOf(fs::path(hexFile).replace_extension(".lst"));
    result.hasErrors = std::any_of(
        result.messages.begin(), result.messages.end(),
        [](const auto& message) { return message.severity == common::Severity::Error; });
    if (result.hasErrors) {
        return;
    }
    std::string hex = TextOf(hexFile);
    std::string codBytes = TextOf(fs::path(hexFile).replace_extension(".cod"));
    auto cod = ReadCodFile(codBytes);
    if (process.status != 0) {
        result.failure = "gpasm has failed" + FirstLine(printed);
    } else if (hex.empty()) {
        result.failure = "gpasm has left no HEX file" + FirstLine(printed);
    } else if (!cod) {
        result.failure = "gpasm has left no .cod file that can be read. " + cod.error;
    } else {
        result.hex = std::move(hex);
        result.codBytes = std::move(codBytes);
        result.cod = *std::move(cod.value);
    }
}

// The line in capitals, without its comment, and its first word.
struct FirstWord {
    std::string word;
    std::string rest;  // without blanks
};

FirstWord FirstWordOf(std::string_view line) {
    const std::string text = common::ToUpper(line.substr(0, line.find(';')));
    const std::size_t begin = std::min(text.find_first_not_of(" \t"), text.size());
    const std::size_t end = std::min(text.find_first_of(" \t", begin), text.size());
    FirstWord first{text.substr(begin, end - begin), text.substr(end)};
    std::erase_if(first.rest, [](char c) { return c == ' ' || c == '\t'; });
    return first;
}

// A directive that sources for gpasm begin with.
bool IsOfGpasm(const assembler::AsmLine& line) {
    const std::string word = FirstWordOf(line.source).word;
    return word == "LIST" || word == "PROCESSOR" || word == "INCLUDE" ||
           word.starts_with("#INCLUDE");
}

}  // namespace

std::vector<common::Diagnostic> ReadGpasmMessages(std::string_view printed,
                                                  const std::string& source) {
    std::vector<common::Diagnostic> messages;
    const std::string ownName = SourceArgument(source);
    for (const std::string_view line : common::SplitLines(printed)) {
        common::Diagnostic message;
        std::string_view number;
        if (ReadMessage(line, message, number) && number != kProcessorSuperseded) {
            message.file = message.file == ownName ? source : message.file;
            messages.push_back(std::move(message));
        }
    }
    return messages;
}

GpasmResult RunGpasm(const GpasmOptions& options) {
    GpasmResult result;
    const TemporaryFolder temporary;
    if (temporary.Path().empty()) {
        result.failure = "There is no folder for temporary files.";
        return result;
    }
    const fs::path source(options.source);
    const fs::path hexFile = temporary.Path() / "program.hex";
    const fs::path output = temporary.Path() / "output";
    std::vector<std::string> arguments = {ProgramName(), "-L", "-o", hexFile.string()};
    if (!options.processor.empty()) {
        arguments.insert(arguments.end(), {"-p", options.processor});
    }
    arguments.insert(arguments.end(), options.extra.begin(), options.extra.end());
    arguments.push_back(SourceArgument(source));
    const ProcessResult process = RunProcess({.arguments = arguments,
                                              .folder = source.parent_path(),
                                              .output = output,
                                              .timeoutSeconds = Timeout(),
                                              .isCancelled = options.isCancelled});
    result.isCancelled = process.ending == ProcessEnding::Cancelled;
    const std::string printed = TextOf(output);
    result.messages = ReadGpasmMessages(printed, options.source);
    result.failure = FailureText(process, arguments.front());
    if (process.ending == ProcessEnding::Exited) {
        ReadResults(hexFile, process, printed, result);
    }
    return result;
}

std::string GpasmProcessor(std::string_view modelName) {
    const std::string name = common::ToLower(modelName);
    return name.starts_with("pic") ? name.substr(3) : name;
}

bool NamesProcessor(std::string_view text) {
    return std::ranges::any_of(common::SplitLines(text), [](std::string_view line) {
        const FirstWord first = FirstWordOf(line);
        const bool hasProcessor =
            first.rest.starts_with("P=") || first.rest.find(",P=") != std::string::npos;
        return first.word == "PROCESSOR" || (first.word == "LIST" && hasProcessor);
    });
}

bool IsWrittenForGpasm(const assembler::Assembly& assembly) {
    return std::any_of(assembly.lines.begin(), assembly.lines.end(), IsOfGpasm);
}

}  // namespace corvane::project
