// Each *.bas of this folder gives the .asm beside it, byte for byte, and the warnings of the
// .warnings file, if there is one. Its first line names the model, the clock frequency in MHz and,
// where the model's own RAM would not show the case, the RAM addresses.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "basic/basic_fixture.h"
#include "basic/editor_form.h"
#include "common/text.h"

namespace corvane::basic {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kFolder = "tests/basic/";

struct Setting {
    std::string modelName;
    float clockFrequency = 0;
    models::ModelDescription description;
};

// "' PIC16F877 20 020-02B 0A0-0A4"
Setting ReadSetting(const std::string& source) {
    Setting setting;
    std::string quote;
    std::string range;
    std::istringstream words(source.substr(0, source.find('\n')));
    words >> quote >> setting.modelName >> setting.clockFrequency;
    setting.description = DescriptionOf(ModelNamed(setting.modelName));
    std::vector<models::Gpr> cells;
    while (words >> range) {
        const int last = std::stoi(range.substr(range.find('-') + 1), nullptr, 16);
        for (int address = std::stoi(range, nullptr, 16); address <= last; ++address) {
            cells.push_back({"", address});
        }
    }
    if (!cells.empty()) {
        setting.description.gprList = cells;
    }
    return setting;
}

std::vector<std::string> SourceNames() {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(fs::path(CORVANE_SOURCE_DIR) / kFolder)) {
        if (entry.path().extension() == ".bas") {
            names.push_back(entry.path().stem().string());
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::string WarningTexts(const Compilation& compilation) {
    std::string text;
    for (const common::Diagnostic& warning : compilation.warnings) {
        text += std::to_string(warning.line) + ": " + warning.text + "\n";
    }
    return text;
}

// The comment that shows a source line begins what is made of it; the end and the routines come
// from none.
std::vector<int> SourceLines(std::string_view assembler) {
    std::vector<int> lines;
    int current = 0;
    for (const std::string_view line : common::SplitLines(assembler)) {
        const std::string comment = "; " + std::to_string(current + 1) + ": ";
        current = line == "; End" ? 0 : current + (line.starts_with(comment) ? 1 : 0);
        lines.push_back(current);
    }
    return lines;
}

// The lines after the heading of a file of examples, up to the next empty line or heading.
std::vector<std::string> LinesOf(const std::string& fileName) {
    std::vector<std::string> lines;
    std::istringstream file(ReadSourceFile(std::string(kFolder) + fileName));
    for (std::string line; std::getline(file, line);) {
        lines.push_back(line);
    }
    return lines;
}

class BasicFile : public testing::TestWithParam<std::string> {};

TEST_P(BasicFile, GivesTheExpectedAssembler) {
    const std::string path = std::string(kFolder) + GetParam();
    const std::string source = ReadSourceFile(path + ".bas");
    const Setting setting = ReadSetting(source);
    const auto compilation = CompileSource(source, ModelNamed(setting.modelName),
                                           setting.description, setting.clockFrequency);
    ASSERT_TRUE(compilation) << TextWithLine(compilation.error);
    EXPECT_EQ(ReadSourceFile(path + ".asm"), common::WithLf(compilation->assembler));
    EXPECT_EQ(compilation->assembler, common::WithCrLf(compilation->assembler));
    EXPECT_EQ(SourceLines(compilation->assembler), compilation->sourceLines);
    const bool hasWarnings = fs::exists(CORVANE_SOURCE_DIR "/" + path + ".warnings");
    EXPECT_EQ(hasWarnings ? ReadSourceFile(path + ".warnings") : "", WarningTexts(*compilation));
}

INSTANTIATE_TEST_SUITE_P(Folder, BasicFile, testing::ValuesIn(SourceNames()),
                         [](const auto& file) { return file.param; });

TEST(ErrorsFile, EachProgramGivesItsMessage) {
    constexpr std::string_view kMark = "=== ";
    std::string expected;
    std::string program;
    int programs = 0;
    const auto check = [&] {
        if (!expected.empty()) {
            EXPECT_EQ(expected, CompileError(program)) << program;
            ++programs;
        }
        program.clear();
    };
    for (const std::string& line : LinesOf("errors.txt")) {
        if (line.starts_with(kMark)) {
            check();
            expected = line.substr(kMark.size());
        } else {
            program += line + "\n";
        }
    }
    check();
    EXPECT_GT(programs, 50);
}

TEST(RewriteFile, EachLineBecomesTheOneBelowIt) {
    const std::vector<EditorKeyword> keywords =
        EditorKeywords(DescriptionOf(ModelNamed("PIC16F84")));
    const std::vector<std::string> lines = LinesOf("rewrite.txt");
    ASSERT_GT(lines.size(), 60U);
    for (std::size_t i = 2; i + 1 < lines.size(); i += 3) {
        EXPECT_EQ(lines[i + 1], RewriteLine(lines[i], keywords)) << lines[i];
        EXPECT_EQ(lines[i + 1], RewriteLine(lines[i + 1], keywords)) << "rewritten once more";
    }
}

}  // namespace
}  // namespace corvane::basic
