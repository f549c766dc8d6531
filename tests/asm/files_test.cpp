// Each *.asm of this folder gives the .lst and the .hex beside it, byte for byte.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "asm/assembler.h"
#include "asm/test_symbols.h"
#include "shipped_files.h"

namespace corvane::assembler {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> SourceNames() {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(CORVANE_SOURCE_DIR "/tests/asm")) {
        if (entry.path().extension() == ".asm") {
            names.push_back(entry.path().stem().string());
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

class AsmFile : public testing::TestWithParam<std::string> {};

// GoogleTest shows unequal texts of several lines as a difference line by line.
TEST_P(AsmFile, GivesTheExpectedListingAndHex) {
    const std::string path = "tests/asm/" + GetParam();
    const Assembly assembly =
        Assemble(ReadSourceFile(path + ".asm"), TestSymbols(), kTestConfigurationWord);
    EXPECT_EQ(ReadSourceFile(path + ".lst"), assembly.listing);
    EXPECT_EQ(ReadSourceFile(path + ".hex"), assembly.hex);
}

INSTANTIATE_TEST_SUITE_P(Folder, AsmFile, testing::ValuesIn(SourceNames()),
                         [](const auto& file) { return file.param; });

}  // namespace
}  // namespace corvane::assembler
