// The eight description files against data_sheets.txt.
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <sstream>

#include "case_file.h"
#include "common/number_text.h"
#include "common/text.h"
#include "models/package.h"
#include "models/symbol_lines.h"

namespace corvane::models {

void PrintTo(const Model& model, std::ostream* out) {
    *out << model.name;
}

namespace {

struct Register {
    std::string name;
    int resetValue = 0;
};

// What data_sheets.txt says of one model.
struct DataSheet {
    std::array<std::uint16_t, kDataMemorySize> map = ModelDescription().addressMap;
    std::array<std::uint8_t, kDataMemorySize> mask{};
    std::map<int, Register> registers;  // by address
    std::vector<int> ram;
    std::map<std::string, int> bits;
};

std::set<std::string> TagsOf(const Model& model) {
    switch (model.family) {
        case ModelFamily::Pic16F8x:
            return {"all", "8x", std::string(model.name)};
        case ModelFamily::Pic16F62x:
            return {"all", "62x", std::string(model.name)};
        case ModelFamily::Pic16F87x28:
            return {"all", "87x", "28", std::string(model.name)};
        default:
            return {"all", "87x", "40", std::string(model.name)};
    }
}

bool HoldsFor(const std::set<std::string>& tags, const std::string& list) {
    std::istringstream names(list);
    for (std::string name; std::getline(names, name, ',');) {
        if (tags.contains(name)) {
            return true;
        }
    }
    return false;
}

void ReadLine(std::istringstream& words, const std::string& kind, DataSheet& sheet) {
    std::string name;
    std::size_t first = 0;
    std::size_t last = 0;
    int target = 0;
    words >> std::hex;
    if (kind == "register") {
        int resetValue = 0;
        words >> name >> first >> resetValue >> target;
        sheet.registers[static_cast<int>(first)] = {name, resetValue};
        sheet.mask.at(first) = static_cast<std::uint8_t>(target);
    } else if (kind == "bits") {
        for (int bit = 7; words >> name; --bit) {
            sheet.bits[name] = bit;
        }
    } else if (words >> first >> last) {
        const bool isMirror = kind == "mirror" && (words >> target);
        for (std::size_t address = first; address <= last; ++address) {
            if (isMirror) {
                sheet.map.at(address) = static_cast<std::uint16_t>(target++);
            } else {
                sheet.mask.at(address) = 0xFF;
                sheet.ram.push_back(static_cast<int>(address));
            }
        }
    }
}

DataSheet DataSheetOf(const Model& model) {
    DataSheet sheet;
    std::istringstream file(ReadSourceFile("tests/models/data_sheets.txt"));
    for (std::string line; std::getline(file, line);) {
        std::istringstream words(line);
        std::string kind;
        std::string models;
        if (words >> kind >> models && kind != "#" && HoldsFor(TagsOf(model), models)) {
            ReadLine(words, kind, sheet);
        }
    }
    sheet.bits.erase("-");
    return sheet;
}

class ModelFile : public testing::TestWithParam<Model> {
  protected:
    const DataSheet sheet_ = DataSheetOf(GetParam());
    const ModelDescription description_ = DescriptionOf(GetParam());
};

TEST_P(ModelFile, ListsEveryAddressOnceInAscendingOrder) {
    int next = 0;
    const std::string text = ReadSourceFile("data/models/" + DescriptionFileName(GetParam().name));
    for (const std::string_view line : common::SplitLines(text)) {
        if (!line.starts_with(';') && line.find(',') != std::string_view::npos) {
            EXPECT_EQ(line.substr(0, 3), common::Hex3(next++));
        }
    }
    EXPECT_EQ(next, kDataMemorySize);
}

TEST_P(ModelFile, MapsAndMasksAreTheDataSheets) {
    for (std::size_t address = 0; address < sheet_.map.size(); ++address) {
        const std::size_t cell = sheet_.map[address];
        EXPECT_EQ(description_.addressMap[address], cell) << common::Hex3(address);
        EXPECT_EQ(sheet_.map[cell], cell) << "a chain of mirrors at " << common::Hex3(address);
        // A mirror has its register's mask; what is not implemented has none.
        EXPECT_EQ(description_.writeMask[address], sheet_.mask[cell]) << common::Hex3(address);
    }
}

TEST_P(ModelFile, RegistersAndRamAreTheDataSheetsAndNoOthers) {
    std::string expected;
    for (const auto& [address, some] : sheet_.registers) {
        expected += common::Hex3(address) + "h  " + some.name + " " + std::to_string(address) +
                    " " + std::to_string(some.resetValue) + "\n";
    }
    std::string shown;
    for (const Sfr& sfr : description_.sfrList) {
        shown += sfr.label + " " + std::to_string(sfr.address) + " " +
                 std::to_string(sfr.resetValue) + "\n";
    }
    EXPECT_EQ(shown, expected + "TMR0 Prescaler 1000 0\n");
    std::vector<int> listed;
    for (const Gpr& gpr : description_.gprList) {
        listed.push_back(gpr.address);
        EXPECT_EQ(gpr.label, common::Hex3(gpr.address) + "h");
    }
    EXPECT_EQ(listed, sheet_.ram);
    EXPECT_LT(listed.at(9), 0x80);  // the BASIC compiler's scratch registers need no bank line
}

TEST_P(ModelFile, NamesAreRegistersBitsAndDestinations) {
    std::string basicNames;
    std::map<std::string, int> expected = sheet_.bits;
    for (const auto& [address, some] : sheet_.registers) {
        expected[some.name] = address;
        basicNames += some.name + " " + std::to_string(address) + "\n";
    }
    expected["W"] = 0;
    expected["F"] = 1;
    if (GetParam().family == ModelFamily::Pic16F62x) {
        expected["OPTION"] = 0x081;
    }
    const PredefinedSymbols read = ReadSymbolLines(description_.asmSymbolLines);
    EXPECT_TRUE(read.badLines.empty());
    std::map<std::string, int> named;
    for (const PredefinedSymbol& symbol : read.symbols) {
        EXPECT_TRUE(named.emplace(symbol.name, symbol.value).second) << symbol.name << " twice";
    }
    EXPECT_EQ(named, expected);
    const FamilyTraits& traits = TraitsOf(GetParam().family);
    EXPECT_EQ(named["EEDATA"], traits.eedata);
    EXPECT_EQ(named["EEADR"], traits.eeadr);
    EXPECT_EQ(named["EECON1"], traits.eecon1);
    EXPECT_EQ(named["EECON2"], traits.eecon2);
    EXPECT_EQ(1 << named["EEIF"], traits.eeifMask);

    const PredefinedSymbols basic = ReadSymbolLines(description_.basicSymbolLines);
    EXPECT_TRUE(basic.badLines.empty());
    std::string basicNamed;
    for (const PredefinedSymbol& symbol : basic.symbols) {
        basicNamed += symbol.name + " " + std::to_string(symbol.value) + "\n";
    }
    EXPECT_EQ(basicNamed, basicNames);
}

TEST(Catalogue, HasTheDataSheetsFigures) {
    ExpectCases("tests/models/catalogue.txt", [](const std::string& name) {
        const Model& model = ModelNamed(name);
        const FamilyTraits& traits = TraitsOf(model.family);
        return std::to_string(model.programWords) + " " + std::to_string(model.eepromBytes) + " " +
               common::Hex4(model.defaultConfigurationWord) + " " +
               std::string(TraitsOf(model.family).name) + ", " +
               std::to_string(traits.analogChannels) + " " + std::to_string(traits.analogFullScale);
    });
    EXPECT_EQ(FindModel("PIC16F88"), std::nullopt);
}

TEST(Packages, HaveTheDataSheetsPins) {
    ExpectCases("tests/models/packages.txt", [](const std::string& model) {
        std::map<int, std::string_view> labels;
        for (const PackagePin& pin : PackagePins(ModelNamed(model).family)) {
            labels[pin.number] = pin.label;
        }
        std::string text;
        for (const auto& [number, label] : labels) {
            text += (text.empty() ? "" : " ") + std::string(label);
        }
        return text;
    });
}

TEST(Packages, LabelTheAnalogPins) {
    for (const Model& model : kModelCatalogue) {
        const FamilyTraits& traits = TraitsOf(model.family);
        for (const PackagePin& pin : PackagePins(model.family)) {
            const std::size_t channel = pin.label.find("/AN");
            std::optional<int> named;
            if (channel != std::string_view::npos) {
                named = pin.label.at(channel + 3) - '0';
            }
            const Pin place = {pin.label.at(1) - 'A', pin.label.at(2) - '0'};
            EXPECT_EQ(AnalogChannelOf(traits, place), named) << model.name << " " << pin.label;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Models, ModelFile, testing::ValuesIn(kModelCatalogue),
                         [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace corvane::models
