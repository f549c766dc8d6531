#include <set>

#include "check/effects.h"
#include "check/rules.h"
#include "check/trail.h"
#include "common/number_text.h"
#include "common/text.h"
#include "isa/instruction_set.h"

namespace corvane::check {

namespace {

constexpr int kBankSize = 0x80;
constexpr int kBankCount = 4;

// The registers by name and by address.
class RegisterNames {
  public:
    explicit RegisterNames(const models::ModelDescription& description) {
        names_.resize(models::kDataMemorySize);
        for (const models::Sfr& sfr : description.sfrList) {
            if (sfr.address < models::kDataMemorySize) {
                names_[static_cast<std::size_t>(sfr.address)] =
                    sfr.label.substr(sfr.label.rfind(' ') + 1);
            }
        }
        for (const models::Gpr& gpr : description.gprList) {
            names_[static_cast<std::size_t>(gpr.address)] = kRam;
        }
    }

    const std::string& At(int address) const { return names_[static_cast<std::size_t>(address)]; }

    // The name says which register is meant, so that its bank can be judged.
    bool IsMeant(const Operand& operand) const {
        const std::string& name = At(operand.value);
        return operand.value >= kBankSize || name == kRam || name == common::ToUpper(operand.name);
    }

    static constexpr std::string_view kRam = "RAM";

  private:
    std::vector<std::string> names_;
};

KnownByte BankPart(const ChipState& state) {
    return state.bank;
}

// "RP0 is 0 and RP1 is 1", as far as they are known.
std::string BankText(KnownByte bank) {
    std::string text;
    for (int bit = 0; bit < 2; ++bit) {
        const int mask = 1 << (kBankBit + bit);
        if ((bank.known & mask) != 0) {
            text += (text.empty() ? "RP" : " and RP") + std::to_string(bit) + " is " +
                    ((bank.value & mask) != 0 ? "1" : "0");
        }
    }
    return text;
}

// The addresses that an access to f can reach.
std::vector<int> Reachable(int f, KnownByte bank) {
    std::vector<int> addresses;
    for (int i = 0; i < kBankCount; ++i) {
        if (bank.CanBe(i << kBankBit)) {
            addresses.push_back(i * kBankSize + f);
        }
    }
    return addresses;
}

bool IsMissed(const Operand& operand, const std::vector<int>& reachable,
              const models::ModelDescription& description) {
    const auto cell = [&](int address) {
        return description.addressMap[static_cast<std::size_t>(address)];
    };
    for (const int address : reachable) {
        if (cell(address) == cell(operand.value)) {
            return false;
        }
    }
    return true;
}

Finding WrongBank(const Subject& subject, const RegisterNames& names, const Operand& operand,
                  std::uint32_t place, const std::vector<int>& reachable) {
    const Place& at = subject.paths.places[place];
    std::string text = operand.name + " (" + common::Hex3(operand.value) +
                       "h) is not reached, because " + BankText(at.state.bank);
    if (reachable.size() == 1) {
        const int cell =
            subject.description.addressMap[static_cast<std::size_t>(reachable.front())];
        const std::string& name = names.At(cell);
        text += "; this is " + (name.empty() ? "address" : name) + " (" + common::Hex3(cell) + "h)";
    }
    const std::vector<std::uint32_t> trail = TrailSince(subject.paths, place, BankPart);
    return {Rule::Bank, at.address, text + ".",
            NotesSince(subject, trail, BankPart, BankText(at.state.bank))};
}

}  // namespace

void FindWrongBanks(const Subject& subject, FindingList& findings) {
    const RegisterNames names(subject.description);
    std::set<int> told;
    const std::vector<Place>& places = subject.paths.places;
    for (std::size_t i = 0; i < places.size(); ++i) {
        const auto address = static_cast<std::size_t>(places[i].address);
        const std::optional<Operand>& operand = subject.program.operands[address];
        const int word = subject.program.words[address];
        if (!operand || !NamesRegister(word) || operand->value >= models::kDataMemorySize ||
            isa::RegisterField(operand->value) != isa::RegisterField(word) ||
            !names.IsMeant(*operand) || told.contains(places[i].address)) {
            continue;
        }
        const std::vector<int> reachable =
            Reachable(isa::RegisterField(word), places[i].state.bank);
        if (IsMissed(*operand, reachable, subject.description)) {
            told.insert(places[i].address);
            findings.push_back(
                WrongBank(subject, names, *operand, static_cast<std::uint32_t>(i), reachable));
        }
    }
}

}  // namespace corvane::check
