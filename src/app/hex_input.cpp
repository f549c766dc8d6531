#include "app/hex_input.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "common/number_text.h"
#include "common/text.h"

namespace corvane::app {

namespace {

constexpr std::size_t kMostDigits = 4;

std::string Digits(int value, int count) {
    return common::Hex4(value).substr(kMostDigits - static_cast<std::size_t>(count));
}

std::optional<int> NumberIn(std::string_view text) {
    std::string number = common::ToUpper(common::Trim(text));
    if (number.starts_with("%") || number.starts_with("0X")) {
        return common::ParseNumber(number);
    }
    if (number.ends_with("H")) {
        number.pop_back();
    }
    if (number.empty() || number.size() > kMostDigits) {
        return std::nullopt;
    }
    number.insert(0, kMostDigits - number.size(), '0');
    const int value = common::ParseHex4(number);
    return value < 0 ? std::nullopt : std::optional(value);
}

}  // namespace

std::optional<int> AskHex(Dialogs& dialogs, const HexQuestion& question) {
    const std::string first = Digits(0, question.digits);
    const std::string last = Digits(question.largest, question.digits);
    const std::optional<std::string> answer =
        dialogs.Input(question.prompt + " [hexadecimal, " + first + " to " + last + "]." +
                          (question.remark.empty() ? "" : "\r\n" + question.remark),
                      Digits(question.current, question.digits));
    if (!answer) {
        return std::nullopt;
    }
    const std::optional<int> number = NumberIn(*answer);
    if (!number || *number > question.largest) {
        dialogs.Inform("'" + *answer + "' is no hexadecimal number from " + first + " to " + last +
                       ".");
        return std::nullopt;
    }
    return number;
}

std::optional<int> AskAddress(Dialogs& dialogs, int current, int lastAddress) {
    return AskHex(dialogs, {.prompt = "Enter the address to go to",
                            .digits = 4,
                            .current = std::min(current, lastAddress),
                            .largest = lastAddress,
                            .remark = ""});
}

}  // namespace corvane::app
