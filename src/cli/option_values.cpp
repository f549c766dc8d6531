#include "cli/option_values.h"

#include <charconv>
#include <cmath>
#include <limits>

#include "common/number_text.h"

namespace corvane::cli {

namespace {

// The text's number, if all of the text is one.
template <typename Number, typename... Base>
std::optional<Number> ReadNumber(const std::string& text, Base... base) {
    Number value{};
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value, base...);
    return error == std::errc() && stop == end ? std::optional(value) : std::nullopt;
}

[[noreturn]] void RefuseValue(const std::string& names, const std::string& text,
                              const std::string& expected) {
    throw CLI::ValidationError(names.substr(names.find("--")),
                               "'" + text + "' is not " + expected + ".");
}

template <typename Number>
Number WholeNumber(const std::string& names, const std::string& text, Number lowest) {
    const std::optional<Number> value = ReadNumber<Number>(text);
    if (!value || *value < lowest) {
        RefuseValue(names, text,
                    "a whole number from " + std::to_string(lowest) + " to " +
                        std::to_string(std::numeric_limits<Number>::max()));
    }
    return *value;
}

int HexNumber(const std::string& names, const std::string& text, int highest) {
    constexpr int kBase = 16;
    constexpr std::size_t kMostDigits = 4;
    const std::optional<int> value = ReadNumber<int>(text, kBase);
    if (!value || text.size() > kMostDigits || *value < 0 || text.front() == '-' ||
        *value > highest) {
        RefuseValue(
            names, text,
            "a hexadecimal number of up to four digits, " + common::Hex4(highest) + " at most");
    }
    return *value;
}

}  // namespace

void AddNumberOption(CLI::App& app, const std::string& names, std::optional<std::int64_t>& value,
                     std::int64_t lowest, const std::string& description) {
    app.add_option_function<std::string>(
           names,
           [names, lowest, &value](const std::string& text) {
               value = WholeNumber(names, text, lowest);
           },
           description)
        ->type_name("N");
}

void AddNumberOption(CLI::App& app, const std::string& names, int& value, int lowest,
                     const std::string& description) {
    app.add_option_function<std::string>(
           names,
           [names, lowest, &value](const std::string& text) {
               value = WholeNumber(names, text, lowest);
           },
           description + ", " + std::to_string(value) + " by default")
        ->type_name("N");
}

void AddFrequencyOption(CLI::App& app, const std::string& names, float& megahertz,
                        const std::string& description,
                        const std::function<void(const std::string&)>& tellText) {
    app.add_option_function<std::string>(
           names,
           [names, &megahertz, tellText](const std::string& text) {
               const std::optional<float> value = ReadNumber<float>(text);
               if (!value || !std::isfinite(*value) || *value <= 0) {
                   RefuseValue(names, text, "a number above 0");
               }
               megahertz = *value;
               if (tellText) {
                   tellText(text);
               }
           },
           description)
        ->type_name("MHZ");
}

void AddFaultsOption(CLI::App& app, const std::string& name, inspect::FaultSet& faults,
                     const std::string& description) {
    const std::string fullDescription = description + ": stack-overflow, stack-underflow, " +
                                        "uninitialised-ram, unimplemented, unsimulated";
    app.add_flag(name + "{all}", fullDescription)->each([&faults](const std::string& list) {
        const common::Result<inspect::FaultSet> kinds = inspect::ReadFaultList(list);
        if (list == "all") {
            faults.set();
        } else if (kinds) {
            faults |= *kinds;
        } else {
            throw CLI::ValidationError("There is no fault '" + kinds.error + "'.");
        }
    });
}

void AddHexOption(CLI::App& app, const std::string& names, std::optional<int>& value, int highest,
                  const std::string& description) {
    app.add_option_function<std::string>(
           names,
           [names, highest, &value](const std::string& text) {
               value = HexNumber(names, text, highest);
           },
           description)
        ->type_name("HHHH");
}

void AddHexListOption(CLI::App& app, const std::string& names, std::vector<int>& values,
                      int highest, std::size_t mostValues, const std::string& description) {
    app.add_option_function<std::vector<std::string>>(
           names,
           [names, highest, mostValues, &values](const std::vector<std::string>& texts) {
               if (texts.size() > mostValues) {
                   throw CLI::ValidationError(
                       names.substr(names.find("--")),
                       "More than " + std::to_string(mostValues) + " values were given.");
               }
               for (const std::string& text : texts) {
                   values.push_back(HexNumber(names, text, highest));
               }
           },
           description)
        ->type_name("HHHH")
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

}  // namespace corvane::cli
