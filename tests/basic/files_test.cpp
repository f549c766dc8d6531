// Programs and lines that stand in files. Each *.bas of this folder gives the .asm beside it, byte
// for byte, and the warnings of the .warnings file, if there is one. Its first line names the
// model, the clock frequency in MHz and, where the model's own RAM would not show the case, the RAM
// addresses.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "basic/basic_fixture.h"
#include "case_file.h"
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

// The expected texts have only the headings of the routines.
std::string WithRoutines(std::string text) {
    ForEachPart("tests/basic/routines.txt", [&](const std::string& heading, const auto& body) {
        if (const std::size_t at = text.find(heading + "\n"); at != std::string::npos) {
            text.insert(at + heading.size() + 1, body);
        }
    });
    return text;
}

class BasicFile : public testing::TestWithParam<std::string> {};

TEST_P(BasicFile, GivesTheExpectedAssembler) {
    const std::string path = std::string(kFolder) + GetParam();
    const std::string source = ReadSourceFile(path + ".bas");
    const Setting setting = ReadSetting(source);
    const auto compilation = CompileSource(source, ModelNamed(setting.modelName),
                                           setting.description, setting.clockFrequency);
    ASSERT_TRUE(compilation) << TextWithLine(compilation.error);
    EXPECT_EQ(WithRoutines(ReadSourceFile(path + ".asm")), common::WithLf(compilation->assembler));
    EXPECT_EQ(compilation->assembler, common::WithCrLf(compilation->assembler));
    EXPECT_EQ(SourceLines(compilation->assembler), compilation->sourceLines);
    const bool hasWarnings = fs::exists(CORVANE_SOURCE_DIR "/" + path + ".warnings");
    EXPECT_EQ(hasWarnings ? ReadSourceFile(path + ".warnings") : "", WarningTexts(*compilation));
}

INSTANTIATE_TEST_SUITE_P(Folder, BasicFile, testing::ValuesIn(SourceNames()),
                         [](const auto& file) { return file.param; });

TEST(ErrorsFile, EachProgramGivesItsMessage) {
    const int programs = ForEachPart("tests/basic/errors.txt",
                                     [](const std::string& expected, const std::string& program) {
                                         EXPECT_EQ(expected, CompileError(program)) << program;
                                     });
    EXPECT_GT(programs, 50);
}

TEST(EditorForm, RewritesALineOnceAndForAll) {
    const auto keywords = EditorKeywords(DescriptionOf(ModelNamed("PIC16F84")));
    ExpectCases("tests/basic/rewrite.txt", [&](const std::string& line) {
        std::string rewritten = RewriteLine(line, keywords);
        EXPECT_EQ(rewritten, RewriteLine(rewritten, keywords)) << "rewritten once more";
        return rewritten;
    });
}

TEST(EditorForm, WholeText) {
    const auto keywords = EditorKeywords(DescriptionOf(ModelNamed("PIC16F84")));
    EXPECT_EQ("\r\n", RewriteText("", keywords));
    EXPECT_EQ("If a Then\r\n\r\n'x\r\n", RewriteText("IF A THEN\n \r\n  ' x", keywords));
}

TEST(EditorForm, Colors) {
    const auto keywords = EditorKeywords(DescriptionOf(ModelNamed("PIC16F84")));
    ExpectCases("tests/basic/colors.txt", [&](const std::string& line) {
        std::string colors(line.size(), '.');
        for (const common::ColoredSpan& span : ColorLine(line, keywords)) {
            const auto length = static_cast<std::size_t>(span.length);
            colors.replace(static_cast<std::size_t>(span.start), length, length,
                           span.color == common::TextColor::Keyword        ? 'k'
                           : span.color == common::TextColor::BasicComment ? 'c'
                                                                           : 'q');
        }
        return colors;
    });
}

// Every program of the help text compiles as it stands there, and is in the editor's form.
TEST(Help, EveryProgramCompiles) {
    const std::string fence = "```\n";
    const models::Model& model = ModelNamed("PIC16F84");
    const models::ModelDescription description = DescriptionOf(model);
    std::string text = ReadSourceFile("data/help/basic_compiler.md");
    int programs = 0;
    for (std::size_t begin = 0; (begin = text.find(fence)) != std::string::npos; ++programs) {
        text.erase(0, begin + fence.size());
        const std::string program = common::WithCrLf(text.substr(0, text.find(fence)));
        text.erase(0, text.find(fence) + fence.size());
        EXPECT_EQ(RewriteText(program, EditorKeywords(description)), program);
        const auto compilation = Compile(program, model, description, 4);
        EXPECT_TRUE(compilation) << program << TextWithLine(compilation.error);
    }
    EXPECT_GT(programs, 10);
}

}  // namespace
}  // namespace corvane::basic
