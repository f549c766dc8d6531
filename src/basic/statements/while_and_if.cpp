// While .. Wend and If .. Else .. Endif
#include <utility>

#include "basic/statements/condition.h"
#include "basic/statements/translate.h"

namespace corvane::basic {

using common::Status;

Status Translate(Translation& translation, const While& statement) {
    OpenWhile open;
    open.topLabel = translation.labels.NewLabel();
    open.exitLabel = translation.labels.NewLabel();
    translation.code.LabelLine(open.topLabel);
    const auto bank = JumpIfFalse(translation, statement.condition, open.exitLabel);
    if (!bank) {
        return Status::Failure(bank.error);
    }
    open.exitBank = *bank;
    translation.open.whiles.push_back(std::move(open));
    return Status::Success();
}

Status Translate(Translation& translation, const Wend& /*statement*/) {
    std::vector<OpenWhile>& whiles = translation.open.whiles;
    if (whiles.empty()) {
        return Status::Failure("Wend without While.");
    }
    const OpenWhile& open = whiles.back();
    translation.code.Goto(open.topLabel);
    translation.code.LabelLineFromBank(open.exitLabel, open.exitBank);
    whiles.pop_back();
    return Status::Success();
}

Status Translate(Translation& translation, const If& statement) {
    OpenIf open;
    open.falseLabel = translation.labels.NewLabel();
    const auto bank = JumpIfFalse(translation, statement.condition, open.falseLabel);
    if (!bank) {
        return Status::Failure(bank.error);
    }
    open.falseBank = *bank;
    translation.open.ifs.push_back(std::move(open));
    return Status::Success();
}

Status Translate(Translation& translation, const Else& /*statement*/) {
    if (translation.open.ifs.empty()) {
        return Status::Failure("Else without If.");
    }
    OpenIf& open = translation.open.ifs.back();
    if (!open.endLabel.empty()) {
        return Status::Failure("Duplicate Else.");
    }
    open.endLabel = translation.labels.NewLabel();
    translation.code.Goto(open.endLabel);
    translation.code.LabelLineFromBank(open.falseLabel, open.falseBank);
    return Status::Success();
}

Status Translate(Translation& translation, const Endif& /*statement*/) {
    std::vector<OpenIf>& ifs = translation.open.ifs;
    if (ifs.empty()) {
        return Status::Failure("Endif without If.");
    }
    const OpenIf& open = ifs.back();
    if (open.endLabel.empty()) {
        translation.code.LabelLineFromBank(open.falseLabel, open.falseBank);
    } else {
        translation.code.LabelLine(open.endLabel);
    }
    ifs.pop_back();
    return Status::Success();
}

Status Translate(Translation& /*translation*/, const EmptyStatement& /*statement*/) {
    return Status::Success();
}

Status Translate(Translation& /*translation*/, const UnknownStatement& /*statement*/) {
    return Status::Failure("Syntax error.");
}

}  // namespace corvane::basic
