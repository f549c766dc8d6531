// Every program of the help text compiles as it stands there, and is in the editor's form.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "basic/basic_fixture.h"
#include "basic/editor_form.h"
#include "common/text.h"

namespace corvane::basic {
namespace {

std::vector<std::string> ProgramsOfTheHelp() {
    const std::string text = ReadSourceFile("data/help/basic_compiler.md");
    std::vector<std::string> programs;
    bool isProgram = false;
    for (const std::string_view line : common::SplitLines(text)) {
        if (line == "```") {
            isProgram = !isProgram;
            if (isProgram) {
                programs.emplace_back();
            }
        } else if (isProgram) {
            programs.back().append(line).append("\r\n");
        }
    }
    return programs;
}

TEST(BasicHelp, EveryProgramCompiles) {
    const std::vector<std::string> programs = ProgramsOfTheHelp();
    EXPECT_GT(programs.size(), 10U);
    const models::Model& model = ModelNamed("PIC16F84");
    const models::ModelDescription description = DescriptionOf(model);
    for (const std::string& program : programs) {
        EXPECT_EQ(RewriteText(program, EditorKeywords(description)), program);
        const auto compilation = Compile(program, model, description, 4);
        EXPECT_TRUE(compilation) << program << TextWithLine(compilation.error);
    }
}

}  // namespace
}  // namespace corvane::basic
