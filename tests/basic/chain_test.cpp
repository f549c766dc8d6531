// Compiled, assembled and simulated programs leave in their variables what plain C++ computes.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <map>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "basic/chip.h"
#include "case_file.h"

namespace corvane::basic {
namespace {

// A program, which is in small letters, with texts in place of its capital letters.
std::string With(std::string_view program, const std::map<char, std::string>& texts) {
    std::string result;
    for (const char c : program) {
        const auto found = texts.find(c);
        result += found == texts.end() ? std::string(1, c) : found->second;
    }
    return result;
}

struct Pair {
    int a;
    int b;
};

std::vector<Pair> LimitPairs(bool areWords) {
    const std::vector<int> values =
        areWords ? std::vector{0, 1, 7, 255, 256, 1000, 32767, 32768, 65279, 65280, 65535}
                 : std::vector{0, 1, 2, 7, 100, 127, 128, 200, 254, 255};
    std::vector<Pair> pairs;
    for (const int a : values) {
        for (const int b : values) {
            pairs.push_back({a, b});
        }
    }
    return pairs;
}

struct Operation {
    std::string name;
    unsigned (*compute)(unsigned a, unsigned b);
};

// Division by 0 gives all ones and leaves the dividend as the remainder.
const std::vector<Operation>& Operations() {
    static const std::vector<Operation> kOperations = {
        {"+", [](unsigned a, unsigned b) { return a + b; }},
        {"-", [](unsigned a, unsigned b) { return a - b; }},
        {"*", [](unsigned a, unsigned b) { return a * b; }},
        {"/", [](unsigned a, unsigned b) { return b == 0 ? 0xFFFF : a / b; }},
        {"Mod", [](unsigned a, unsigned b) { return b == 0 ? a : a % b; }}};
    return kOperations;
}

const std::vector<Operation>& Comparisons() {
    static const std::vector<Operation> kComparisons = {
        {"=", [](unsigned a, unsigned b) { return unsigned{a == b}; }},
        {"<>", [](unsigned a, unsigned b) { return unsigned{a != b}; }},
        {">", [](unsigned a, unsigned b) { return unsigned{a > b}; }},
        {"<", [](unsigned a, unsigned b) { return unsigned{a < b}; }},
        {">=", [](unsigned a, unsigned b) { return unsigned{a >= b}; }},
        {"<=", [](unsigned a, unsigned b) { return unsigned{a <= b}; }}};
    return kComparisons;
}

class Widths : public testing::TestWithParam<std::string> {
  protected:
    bool AreWords() const { return GetParam() == "Word"; }
    int Mask() const { return AreWords() ? 0xFFFF : 0xFF; }

    // After the program, in which O, A and B stand for the operation's name and the values of a and
    // b, I for its number and T for the type, once for each operation.
    Chip Run(Pair pair, const std::vector<Operation>& operations, std::string_view program) const {
        std::map<char, std::string> texts = {
            {'T', GetParam()}, {'A', std::to_string(pair.a)}, {'B', std::to_string(pair.b)}};
        std::string text = With("dim a as T\ndim b as T\ndim n as byte\n", texts);
        for (std::size_t i = 0; i < operations.size(); ++i) {
            texts['I'] = std::to_string(i);
            texts['O'] = operations[i].name;
            text += With(program, texts);
        }
        Chip chip("PIC16F877", text);
        chip.SetValue("a", pair.a);
        chip.SetValue("b", pair.b);
        chip.RunToEnd();
        return chip;
    }
};

INSTANTIATE_TEST_SUITE_P(Types, Widths, testing::Values("Byte", "Word"),
                         [](const auto& type) { return type.param; });

TEST_P(Widths, ArithmeticAtTheLimits) {
    for (const Pair pair : LimitPairs(AreWords())) {
        const Chip chip = Run(pair, Operations(),
                              "dim pI as T\ndim qI as T\ndim rI as T\ndim sI as T\n"
                              "pI=a O b\nqI=a O B\nrI=A O b\nsI=a\nsI=sI O b\n");
        for (std::size_t i = 0; i < Operations().size(); ++i) {
            const auto& [name, compute] = Operations()[i];
            const unsigned result =
                compute(static_cast<unsigned>(pair.a), static_cast<unsigned>(pair.b));
            for (const char* variable : {"p", "q", "r", "s"}) {
                EXPECT_EQ(static_cast<int>(result) & Mask(),
                          chip.Value(variable + std::to_string(i)))
                    << variable << ": " << pair.a << name << pair.b;
            }
        }
        EXPECT_EQ(pair.b, chip.Value("b"));
    }
}

TEST_P(Widths, ComparisonsInIfAndWhile) {
    for (const Pair pair : LimitPairs(AreWords())) {
        const Chip chip = Run(pair, Comparisons(),
                              "if a O b then\nn=n+1\nend if\nif a O B then\nn=n+1\nend if\n"
                              "if A O b then\nn=n+1\nend if\n"
                              "while a O b\nn=n+1\ngoto afterI\nwend\nafterI:\n");
        unsigned expected = 0;
        for (const auto& [name, compute] : Comparisons()) {
            expected += 4 * compute(static_cast<unsigned>(pair.a), static_cast<unsigned>(pair.b));
        }
        EXPECT_EQ(static_cast<int>(expected), chip.Value("n")) << pair.a << " and " << pair.b;
    }
}

TEST(Bits, LogicNegationAndComparison) {
    const std::string text =
        "dim a as bit\ndim b as bit\ndim n as byte\n"
        "n.0 = a and b\nn.1 = a or b\nn.2 = a xor b\nn.3 = a nand b\nn.4 = a nor b\n"
        "n.5 = a nxor b\nn.6 = not a\nif a = b then\nn.7 = true\nelse\nn.7 = false\nend if\n"
        "dim m as byte\nm = 0\nif a <> b then\nm.0 = b\nm.1 = 1\nend if\n"
        "if not a then\nm.2 = 1\nend if\nif a then\nm.3 = 1\nend if\n";
    for (int bits = 0; bits < 4; ++bits) {
        const int a = bits & 1;
        const int b = bits >> 1;
        Chip chip("PIC16F84", "dim unused as bit\n" + text);
        chip.SetValue("a", a);
        chip.SetValue("b", b);
        chip.RunToEnd();
        const int expected = (a & b) | (a | b) << 1 | (a ^ b) << 2 | (1 - (a & b)) << 3 |
                             (1 - (a | b)) << 4 | (1 - (a ^ b)) << 5 | (1 - a) << 6 |
                             (1 - (a ^ b)) << 7;
        EXPECT_EQ(expected, chip.Value("n")) << a << b;
        EXPECT_EQ((a != b ? b | 2 : 0) | (a == 0 ? 4 : 8), chip.Value("m")) << a << b;
    }
}

struct Loop {
    int first;
    int last;
    int step;  // negative to count down
};

std::string HeadOf(const std::string& name, const Loop& loop) {
    return "for " + name + "=" + std::to_string(loop.first) + " to " + std::to_string(loop.last) +
           " step " + std::to_string(loop.step) + "\n";
}

// A loop ends where the variable passes the last value or would leave its range.
int Passes(const Loop& loop, int largest) {
    int passes = 0;
    for (int i = loop.first; loop.step < 0 ? i >= loop.last : i <= loop.last; i += loop.step) {
        ++passes;
        if (i + loop.step < 0 || i + loop.step > largest) {
            break;
        }
    }
    return passes;
}

TEST_P(Widths, NestedLoopsUpAndDown) {
    std::vector<Loop> loops = {{1, 10, 1}, {10, 0, -1},  {5, 4, 1},      {4, 5, -1},    {7, 7, 1},
                               {7, 7, -1}, {0, 255, 50}, {255, 250, -2}, {250, 255, 3}, {9, 0, -4}};
    if (AreWords()) {
        loops.insert(loops.end(), {{250, 520, 9},
                                   {520, 250, -9},
                                   {65000, 65535, 100},
                                   {600, 0, -256},
                                   {65535, 0, -65535},
                                   {0, 65535, 65535},
                                   {0, 65535, 4096}});
    }
    for (const Loop& outer : loops) {
        for (const Loop& inner : loops) {
            Chip chip(
                "PIC16F84",
                With("dim i as T\ndim j as T\ndim n as word\nn=0\n"
                     "IJn=n+1\nnext j\nnext i\n",
                     {{'T', GetParam()}, {'I', HeadOf("i", outer)}, {'J', HeadOf("j", inner)}}));
            chip.RunToEnd();
            EXPECT_EQ(Passes(outer, Mask()) * Passes(inner, Mask()), chip.Value("n"))
                << HeadOf("i", outer) << HeadOf("j", inner);
        }
    }
}

TEST(SquareRoot, AroundAllSquares) {
    Chip chip("PIC16F84", "dim w as word\ndim x as byte\ndim v as word\nx=sqr(w)\nv=sqr(w)\n");
    for (int argument = 0; argument < 65536; ++argument) {
        const int root = static_cast<int>(std::sqrt(argument));
        const int distance = std::min(argument - root * root, (root + 1) * (root + 1) - argument);
        if (distance <= 1) {
            chip.Restart();
            chip.SetValue("w", argument);
            chip.RunToEnd();
            EXPECT_EQ(root, chip.Value("x")) << argument;
            EXPECT_EQ(root, chip.Value("v")) << argument;
        }
    }
}

TEST(WaitMs, LastsThatManyMilliseconds) {
    for (const int megahertz : {4, 10, 20}) {
        const auto clockCycles = [megahertz](int milliseconds) {
            Chip chip("PIC16F84",
                      "dim w as word\nw=" + std::to_string(1000 + milliseconds) +
                          "\nw=w-1000\nwaitms w\n",
                      static_cast<float>(megahertz));
            chip.RunToEnd();
            return chip.Processor().state.clockCycles;
        };
        const std::int64_t none = clockCycles(0);
        for (const int milliseconds : {1, 2, 255, 256, 257, 1000}) {
            EXPECT_EQ(std::int64_t{milliseconds} * megahertz * 1000,
                      clockCycles(milliseconds) - none)
                << milliseconds << " ms at " << megahertz << " MHz";
        }
    }
}

// Words x, a, b and Bytes p, q, r in each bank of a PIC16F877, named by letter and bank; n in bank
// 0.
std::string VariablesInAllBanks() {
    constexpr std::array<int, 4> kFillers = {76, 71, 87, 0};
    std::string text = "dim n as byte\nn=0\n";
    for (std::size_t bank = 0; bank < kFillers.size(); ++bank) {
        text += With(
            "dim xN as word\ndim aN as word\ndim bN as word\n"
            "dim pN as byte\ndim qN as byte\ndim rN as byte\n",
            {{'N', std::to_string(bank)}});
        for (int i = 0; i < kFillers.at(bank); ++i) {
            text +=
                With("dim fN_I as byte\n", {{'N', std::to_string(bank)}, {'I', std::to_string(i)}});
        }
    }
    return text;
}

// The program for each combination of three banks: X in a name stands for the first one, A for the
// second, B for the third.
void ForAllBanks(
    const std::string& program,
    const std::function<void(const Chip&, const std::map<char, std::string>&)>& check) {
    const std::string variables = VariablesInAllBanks();
    for (int combination = 0; combination < 64; ++combination) {
        const std::map<char, std::string> banks = {{'X', std::to_string(combination & 3)},
                                                   {'A', std::to_string((combination >> 2) & 3)},
                                                   {'B', std::to_string(combination >> 4)}};
        Chip chip("PIC16F877", variables + With(program, banks));
        chip.RunToEnd();
        check(chip, banks);
    }
}

// "PIC16F84 PIC16F877: bad=1 d=200" and the program below it.
void CheckProgram(const std::string& heading, const std::string& program) {
    const std::size_t colon = heading.find(':');
    const auto check = [&](const Chip& chip, const std::map<char, std::string>& banks) {
        std::istringstream values(With(heading.substr(colon + 1), banks));
        for (std::string value; values >> value;) {
            const std::size_t equals = value.find('=');
            EXPECT_EQ(std::stoi(value.substr(equals + 1)), chip.Value(value.substr(0, equals)))
                << value << " after\n"
                << With(program, banks);
        }
    };
    std::istringstream models(heading.substr(0, colon));
    for (std::string model; models >> model;) {
        if (model == "banks") {
            ForAllBanks(program, check);
        } else {
            Chip chip(model, program);
            chip.RunToEnd();
            check(chip, {});
        }
    }
}

TEST(Programs, LeaveTheirValues) {
    EXPECT_EQ(ForEachPart("tests/basic/chain_programs.txt", CheckProgram), 6);
}

TEST(AllBanks, BitStatementsWorkUnlessWarnedOf) {
    const std::string program =
        "pX=0\nqA=255\nrB=0\n"
        "pX.0=qA.2 and rB.3\npX.1=qA.2 or rB.3\npX.2=qA.2 xor rB.3\npX.3=qA.2 nand rB.3\n"
        "pX.4=qA.2 nor rB.3\npX.5=qA.2 nxor rB.3\npX.6=not rB.3\npX.7=rB.3\n";
    ForAllBanks(program, [](const Chip& chip, const std::map<char, std::string>& banks) {
        const bool isHazard = banks.at('X') != banks.at('B');
        EXPECT_EQ(isHazard ? 8U : 0U, chip.Warnings().size());
        EXPECT_TRUE(isHazard || chip.Value("p" + banks.at('X')) == 0b01001110);
    });
}

}  // namespace
}  // namespace corvane::basic
