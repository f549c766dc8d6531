// What single instructions and short programs do, derived by hand from the data sheets: the cases
// of engine_cases.txt, which says how they are written. Each runs on the engine and on the plain
// one.
#include <gtest/gtest.h>

#include <memory>
#include <sstream>

#include "common/text.h"
#include "core/engine_pair.h"
#include "core/state_fields.h"
#include "isa/instruction_set.h"
#include "project/last_instruction.h"
#include "shipped_files.h"

namespace corvane::core {
namespace {

int NumberOf(const std::string& text) {
    return std::stoi(text, nullptr, 0);
}

// The case as it runs: a chip, and whether "name=value" says what to set or what to expect.
class Case {
  public:
    void Start(const std::string& model, const std::string& program) {
        pair_ = std::make_unique<EnginePair>(ModelNamed(model));
        std::vector<std::string> texts;
        std::istringstream stream(program);
        for (std::string text; std::getline(stream, text, ';');) {
            texts.emplace_back(common::Trim(text));
        }
        pair_->Load(Words(texts));
        pair_->Start();
    }

    void Do(const std::string& word) {
        const std::size_t equals = word.find('=');
        const std::string name = word.substr(0, equals);
        const auto value = [&] { return NumberOf(word.substr(equals + 1)); };
        if (word == "=>") {
            expects_ = true;
            EXPECT_TRUE(pair_->AreEqual()) << pair_->Report();
        } else if (word == "then") {
            expects_ = false;
        } else if (equals != std::string::npos && expects_) {
            Expect(name, word.substr(equals + 1));
        } else if (name == "times") {  // of an EEPROM write and a conversion
            pair_->SetTimes(value(), value());
        } else if (name.starts_with("AN")) {
            pair_->SetAnalog(NumberOf(name.substr(2)), value());
        } else if (equals != std::string::npos) {
            Set(name, value());
        } else {
            expects_ = false;
            Act(word);
        }
    }

  private:
    void Set(const std::string& name, int value) {
        pair_->Edit([&](ProcessorState& state) {
            bool isKnown = false;
            ForEachField(state, [&](const std::string& field, auto& cell) {
                if (field == name) {
                    cell = static_cast<std::remove_reference_t<decltype(cell)>>(value);
                    isKnown = true;
                }
            });
            EXPECT_TRUE(isKnown) << name;
        });
    }

    void Expect(const std::string& name, const std::string& value) {
        if (name == "text") {
            EXPECT_EQ(project::LastInstructionText(pair_->state()), value);
            return;
        }
        bool isKnown = false;
        ForEachField(pair_->state(), [&](const std::string& field, auto cell) {
            if (field == name) {
                EXPECT_EQ(static_cast<std::int64_t>(cell), NumberOf(value)) << name;
                isKnown = true;
            }
        });
        EXPECT_TRUE(isKnown) << name;
    }

    void Act(const std::string& word) {
        if (word[0] == '+' || word[0] == '-') {
            pair_->Toggle(FindPin(*pair_->chip().model, word.substr(1)).value(), word[0] == '+');
            return;
        }
        for (int steps = NumberOf(word.substr(0, word.find('x'))); steps > 0; --steps) {
            pair_->Step();
        }
    }

    std::unique_ptr<EnginePair> pair_;
    bool expects_ = false;
};

TEST(EngineCases, AllOfTheFile) {
    int cases = 0;
    std::string model;
    std::istringstream file(ReadSourceFile("tests/core/engine_cases.txt"));
    for (std::string line; std::getline(file, line);) {
        SCOPED_TRACE(line);
        const std::size_t bar = line.find('|');
        if (line.starts_with("PIC")) {
            model = line;
        } else if (bar != std::string::npos && !line.starts_with("#")) {
            Case run;
            run.Start(model, line.substr(0, bar));
            std::istringstream words(line.substr(bar + 1));
            for (std::string word; words >> word;) {
                run.Do(word);
            }
            ++cases;
        }
    }
    EXPECT_GT(cases, 150);
}

TEST(EngineCases, CyclesAreThoseOfTheInstructionSet) {
    for (const isa::Instruction& row : isa::kInstructions) {
        EnginePair pair(ModelNamed("PIC16F84"));
        const bool hasRegister = row.form == isa::OperandForm::Register ||
                                 row.form == isa::OperandForm::RegisterDestination ||
                                 row.form == isa::OperandForm::RegisterBit;
        pair.Load(
            std::vector{static_cast<std::uint16_t>(row.firstWord + (hasRegister ? 0x20 : 0))});
        pair.Start();
        pair.Edit([&](ProcessorState& state) {  // nothing skips
            state.dataMemory[0x20] = row.operation == isa::Operation::Btfsc ? 0xFF : 0x00;
        });
        pair.Step();
        EXPECT_EQ(pair.state().clockCycles, 4 + 4 * row.cycles) << row.mnemonic;
    }
}

}  // namespace
}  // namespace corvane::core
