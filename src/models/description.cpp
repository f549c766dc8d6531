#include "models/description.h"

#include <algorithm>
#include <cstddef>
#include <optional>

#include "common/number_text.h"
#include "common/text.h"

namespace corvane::models {

namespace {

enum class Section { None, Registers, AsmSymbols, BasicSymbols };

std::optional<Section> MarkedSection(std::string_view line) {
    if (line == "***** Section 1 *****") {
        return Section::Registers;
    }
    if (line == "***** Section 2 *****") {
        return Section::AsmSymbols;
    }
    if (line == "***** Section 3 *****") {
        return Section::BasicSymbols;
    }
    return std::nullopt;
}

struct RegisterLine {
    int address;
    int mappedAddress;
    std::string name;
    int resetValue;
    int writeMask;
};

// Cuts a field off the front; false when no comma ends it.
bool TakeField(std::string_view& line, std::string_view& field) {
    const std::size_t comma = line.find(',');
    if (comma == std::string_view::npos) {
        return false;
    }
    field = line.substr(0, comma);
    line.remove_prefix(comma + 1);
    return true;
}

std::optional<RegisterLine> ReadRegisterLine(std::string_view line) {
    std::string commas(line);
    std::replace(commas.begin(), commas.end(), '\t', ',');
    std::string_view rest = commas;
    std::array<std::string_view, 4> fields;
    for (std::string_view& field : fields) {
        if (!TakeField(rest, field)) {
            return std::nullopt;
        }
    }
    const RegisterLine result = {common::ParseHex3(fields[0]), common::ParseHex3(fields[1]),
                                 std::string(fields[2]), common::ParseHex2(fields[3]),
                                 common::ParseHex2(rest)};
    const auto isAddress = [](int value) { return value >= 0 && value < kDataMemorySize; };
    const bool isValid = isAddress(result.address) && isAddress(result.mappedAddress) &&
                         common::Trim(result.name) == result.name && result.resetValue >= 0 &&
                         result.writeMask >= 0;
    return isValid ? std::optional(result) : std::nullopt;
}

void AddRegister(ModelDescription& description, const RegisterLine& line) {
    const auto index = static_cast<std::size_t>(line.address);
    description.addressMap[index] = static_cast<std::uint16_t>(line.mappedAddress);
    description.writeMask[index] = static_cast<std::uint8_t>(line.writeMask);
    const std::string label = common::Hex3(line.address) + "h";
    if (line.name == "RAM") {
        description.gprList.push_back({label, line.address});
    } else if (line.name != "XXXX") {
        description.sfrList.push_back({label + "  " + line.name, line.address, line.resetValue});
    }
}

}  // namespace

ModelDescription::ModelDescription() {
    for (std::size_t address = 0; address < addressMap.size(); ++address) {
        addressMap[address] = static_cast<std::uint16_t>(address);
    }
}

common::Result<ModelDescription, int> ReadModelDescription(std::string_view text) {
    using ReadResult = common::Result<ModelDescription, int>;
    ModelDescription description;
    Section section = Section::None;
    int lineNumber = 0;
    for (const std::string_view line : common::SplitLines(text)) {
        ++lineNumber;
        if (const std::optional<Section> marked = MarkedSection(line)) {
            section = *marked;
        } else if (line.starts_with(';') || section == Section::None) {
            continue;
        } else if (section == Section::AsmSymbols) {
            description.asmSymbolLines.push_back({std::string(line), lineNumber});
        } else if (section == Section::BasicSymbols) {
            description.basicSymbolLines.push_back({std::string(line), lineNumber});
        } else if (const std::optional<RegisterLine> fields = ReadRegisterLine(line)) {
            AddRegister(description, *fields);
        } else {
            return ReadResult::Failure(lineNumber);
        }
    }
    description.sfrList.push_back({"TMR0 Prescaler", kPrescalerAddress, 0});
    return ReadResult::Success(std::move(description));
}

}  // namespace corvane::models
