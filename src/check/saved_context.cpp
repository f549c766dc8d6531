#include "check/saved_context.h"

#include <algorithm>
#include <utility>

#include "isa/instruction_set.h"

namespace corvane::check {

namespace {

using isa::Operation;

// Places in Context::changedAt.
constexpr std::size_t kW = 0;
constexpr std::size_t kFsrIndex = 1;
constexpr std::size_t kPclathIndex = 2;

constexpr int kBankUnknown = 0x1000;  // in a cell's number: it may be in any bank

// STATUS' bits that are resources of their own.
constexpr std::array<std::pair<int, Resources>, 5> kStatusResources = {
    {{0, kCarry}, {1, kDigitCarry}, {2, kZero}, {kBankBit, kRp0}, {kBankBit + 1, kRp1}}};

std::uint8_t StatusBitsOf(Resources resources) {
    int bits = 0;
    for (const auto& [bit, resource] : kStatusResources) {
        bits |= (resources & resource) != 0 ? 1 << bit : 0;
    }
    return static_cast<std::uint8_t>(bits);
}

SavedByte WithoutBits(SavedByte byte, int bits) {
    byte.bits = static_cast<std::uint8_t>(byte.bits & ~bits);
    return byte;
}

int CellOf(int f, const ChipState& state) {
    constexpr int kBothKnown = kBankBits;
    return (state.bank.known & kBankBits) == kBothKnown ? ((state.bank.value & kBankBits) << 2) | f
                                                        : kBankUnknown | f;
}

// Without the bank nobody can tell whether two accesses meet; then they are taken to.
bool MayBeSame(int first, int second) {
    constexpr int kFileBits = 0x7F;
    const bool isUnknown = ((first | second) & kBankUnknown) != 0;
    return first == second || (isUnknown && (first & kFileBits) == (second & kFileBits));
}

class Executing {
  public:
    Executing(Context before, int address, const ChipState& state)
        : context_(std::move(before)), address_(address), state_(state) {}

    Context Execute(int word) {
        const Operation operation = isa::Classify(word);
        if (NamesRegister(word)) {
            ExecuteRegister(operation, word);
        } else if (operation != Operation::Unrecognized &&
                   (isa::InstructionOf(operation).form == isa::OperandForm::Literal8 ||
                    operation == Operation::Clrw)) {
            SetW({});
        }
        ChangeStatus(StatusBitsOf(FlagsOf(word)));
        return std::move(context_);
    }

  private:
    void ExecuteRegister(Operation operation, int word) {
        const int f = isa::RegisterField(word);
        const SavedByte content = ContentOf(f);
        SavedByte result;
        if (operation == Operation::Movf) {
            result = content;
        } else if (operation == Operation::Swapf) {
            result = content;
            result.isSwapped = !result.isSwapped;
        } else if (operation == Operation::Movwf) {
            result = context_.w;
        } else if (operation == Operation::Bsf || operation == Operation::Bcf) {
            result =
                content.isSwapped ? SavedByte{} : WithoutBits(content, 1 << isa::BitField(word));
        }
        if (f == kStatus && isa::InstructionOf(operation).form == isa::OperandForm::RegisterBit) {
            ChangeStatus(WritesRegister(word) ? 1 << isa::BitField(word) : 0);
        } else if (WritesRegister(word)) {
            Write(f, result);
        } else if (isa::InstructionOf(operation).form == isa::OperandForm::RegisterDestination) {
            SetW(result);
        }
    }

    SavedByte ContentOf(int f) const {
        switch (f) {
            case kStatus:
                return context_.status;
            case kFsr:
                return context_.fsr;
            case kPclath:
                return context_.pclath;
            default:
                return CellContent(CellOf(f, state_));
        }
    }

    SavedByte CellContent(int cell) const {
        SavedByte content;
        for (const SavedCell& saved : context_.cells) {
            if (saved.cell == cell) {
                return saved.content;
            }
            if (MayBeSame(saved.cell, cell)) {
                content = saved.content;
            }
        }
        return content;
    }

    void SetW(SavedByte value) {
        context_.w = value;
        context_.changedAt[kW] = address_;
    }

    void Write(int f, SavedByte value) {
        switch (f) {
            case kStatus:
                context_.status = {Saved::Status, false, 0xFF};
                ChangeStatus(value.source == Saved::Status && !value.isSwapped ? ~value.bits
                                                                               : 0xFF);
                break;
            case kFsr:
                context_.fsr = value;
                context_.changedAt[kFsrIndex] = address_;
                break;
            case kPclath:
                context_.pclath = value;
                context_.changedAt[kPclathIndex] = address_;
                break;
            default:
                WriteCell(CellOf(f, state_), value);
                break;
        }
    }

    void WriteCell(int cell, SavedByte value) {
        std::erase_if(context_.cells,
                      [cell](const SavedCell& saved) { return saved.cell == cell; });
        if (value.source != Saved::Nothing) {
            context_.cells.push_back({cell, value});
        }
    }

    void ChangeStatus(int bits) {
        context_.status = WithoutBits(context_.status, bits);
        for (int bit = 0; bit < 8; ++bit) {
            if ((bits & (1 << bit)) != 0) {
                context_.statusChangedAt[static_cast<std::size_t>(bit)] = address_;
            }
        }
    }

    Context context_;
    int address_;
    const ChipState& state_;
};

SavedByte Common(SavedByte first, SavedByte second) {
    if (first.source != second.source || first.isSwapped != second.isSwapped) {
        return {};
    }
    first.bits &= second.bits;
    return first;
}

bool IsLost(SavedByte byte, Saved wanted) {
    return byte.source != wanted || byte.isSwapped || byte.bits != 0xFF;
}

bool IsRegisterLost(const Context& context, std::size_t index) {
    switch (index) {
        case kW:
            return IsLost(context.w, Saved::W);
        case kFsrIndex:
            return IsLost(context.fsr, Saved::Fsr);
        default:
            return IsLost(context.pclath, Saved::Pclath);
    }
}

bool HasBit(SavedByte byte, std::size_t bit) {
    return (byte.bits & (1U << bit)) != 0;
}

int Later(int first, bool firstIsLost, int second, bool secondIsLost) {
    if (firstIsLost != secondIsLost) {
        return firstIsLost ? first : second;
    }
    return std::max(first, second);
}

}  // namespace

Context ContextBehind(const Context& context, int word, int address, const ChipState& state) {
    return Executing(context, address, state).Execute(word);
}

Context Common(const Context& first, const Context& second) {
    Context common;
    common.w = Common(first.w, second.w);
    common.status = Common(first.status, second.status);
    common.fsr = Common(first.fsr, second.fsr);
    common.pclath = Common(first.pclath, second.pclath);
    for (const SavedCell& saved : first.cells) {
        for (const SavedCell& other : second.cells) {
            const SavedByte content = Common(saved.content, other.content);
            if (saved.cell == other.cell && content.source != Saved::Nothing) {
                common.cells.push_back({saved.cell, content});
            }
        }
    }
    // Where only one of them has lost something, that one tells where.
    for (std::size_t i = 0; i < first.changedAt.size(); ++i) {
        common.changedAt[i] = Later(first.changedAt[i], IsRegisterLost(first, i),
                                    second.changedAt[i], IsRegisterLost(second, i));
    }
    for (std::size_t bit = 0; bit < first.statusChangedAt.size(); ++bit) {
        common.statusChangedAt[bit] =
            Later(first.statusChangedAt[bit], !HasBit(first.status, bit),
                  second.statusChangedAt[bit], !HasBit(second.status, bit));
    }
    return common;
}

Resources LostResources(const Context& context) {
    Resources lost = 0;
    lost |= IsLost(context.w, Saved::W) ? kWorking : 0;
    lost |= IsLost(context.fsr, Saved::Fsr) ? kFileSelect : 0;
    lost |= IsLost(context.pclath, Saved::Pclath) ? kPclathPage | kPclathBlock : 0;
    for (const auto& [bit, resource] : kStatusResources) {
        lost |= (context.status.bits & (1 << bit)) == 0 ? resource : 0;
    }
    return lost;
}

int ChangedAt(const Context& context, Resources resource) {
    switch (resource) {
        case kWorking:
            return context.changedAt[kW];
        case kFileSelect:
            return context.changedAt[kFsrIndex];
        case kPclathPage:
        case kPclathBlock:
            return context.changedAt[kPclathIndex];
        default:
            for (const auto& [bit, bitResource] : kStatusResources) {
                if (bitResource == resource) {
                    return context.statusChangedAt[static_cast<std::size_t>(bit)];
                }
            }
            return 0;
    }
}

}  // namespace corvane::check
