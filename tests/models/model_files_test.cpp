// The eight description files against the data sheets' register maps, written down here once more.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <ostream>
#include <sstream>

#include "common/number_text.h"
#include "common/text.h"
#include "models/catalogue.h"
#include "models/description.h"
#include "models/symbol_lines.h"

namespace corvane::models {

void PrintTo(const Model& model, std::ostream* out) {
    *out << model.name;
}

namespace {

struct Register {
    const char* name;
    int address;
    int resetValue;
    int writeMask;
};

const std::vector<Register> kCommon = {
    {"INDF", 0x000, 0x00, 0x00},   {"TMR0", 0x001, 0x00, 0xFF},   {"PCL", 0x002, 0x00, 0xFF},
    {"STATUS", 0x003, 0x18, 0xFF}, {"FSR", 0x004, 0x00, 0xFF},    {"PORTB", 0x006, 0x00, 0xFF},
    {"PCLATH", 0x00A, 0x00, 0x1F}, {"INTCON", 0x00B, 0x00, 0xFF}, {"OPTION_REG", 0x081, 0xFF, 0xFF},
    {"TRISB", 0x086, 0xFF, 0xFF},
};

const std::vector<Register> kPic16F8x = {
    {"PORTA", 0x005, 0x00, 0x1F}, {"EEDATA", 0x008, 0x00, 0xFF}, {"EEADR", 0x009, 0x00, 0xFF},
    {"TRISA", 0x085, 0x1F, 0x1F}, {"EECON1", 0x088, 0x00, 0x1F}, {"EECON2", 0x089, 0x00, 0x00},
};

// Timers, capture/compare and USART are the same on the PIC16F62x and the PIC16F87x.
const std::vector<Register> kSharedPeripherals = {
    {"TMR1L", 0x00E, 0x00, 0xFF},  {"TMR1H", 0x00F, 0x00, 0xFF},   {"T1CON", 0x010, 0x00, 0x3F},
    {"TMR2", 0x011, 0x00, 0xFF},   {"T2CON", 0x012, 0x00, 0x7F},   {"CCPR1L", 0x015, 0x00, 0xFF},
    {"CCPR1H", 0x016, 0x00, 0xFF}, {"CCP1CON", 0x017, 0x00, 0x3F}, {"RCSTA", 0x018, 0x00, 0xF8},
    {"TXREG", 0x019, 0x00, 0xFF},  {"RCREG", 0x01A, 0x00, 0x00},   {"PR2", 0x092, 0xFF, 0xFF},
    {"TXSTA", 0x098, 0x02, 0xF7},  {"SPBRG", 0x099, 0x00, 0xFF},
};

const std::vector<Register> kPic16F62x = {
    {"PORTA", 0x005, 0x00, 0xDF},  {"PIR1", 0x00C, 0x00, 0xC7},  {"CMCON", 0x01F, 0x00, 0xFF},
    {"TRISA", 0x085, 0xFF, 0xFF},  {"PIE1", 0x08C, 0x00, 0xF7},  {"PCON", 0x08E, 0x08, 0x0B},
    {"EEDATA", 0x09A, 0x00, 0xFF}, {"EEADR", 0x09B, 0x00, 0xFF}, {"EECON1", 0x09C, 0x00, 0x0F},
    {"EECON2", 0x09D, 0x00, 0x00}, {"VRCON", 0x09F, 0x00, 0xEF},
};

const std::vector<Register> kPic16F87x = {
    {"PORTA", 0x005, 0x00, 0x3F},  {"PORTC", 0x007, 0x00, 0xFF},   {"PIR2", 0x00D, 0x00, 0x59},
    {"SSPBUF", 0x013, 0x00, 0xFF}, {"SSPCON", 0x014, 0x00, 0xFF},  {"CCPR2L", 0x01B, 0x00, 0xFF},
    {"CCPR2H", 0x01C, 0x00, 0xFF}, {"CCP2CON", 0x01D, 0x00, 0x3F}, {"ADRESH", 0x01E, 0x00, 0xFF},
    {"ADCON0", 0x01F, 0x00, 0xFD}, {"TRISA", 0x085, 0x3F, 0x3F},   {"TRISC", 0x087, 0xFF, 0xFF},
    {"PIE2", 0x08D, 0x00, 0x59},   {"PCON", 0x08E, 0x00, 0x03},    {"SSPCON2", 0x091, 0x00, 0xFF},
    {"SSPADD", 0x093, 0x00, 0xFF}, {"SSPSTAT", 0x094, 0x00, 0xC0}, {"ADRESL", 0x09E, 0x00, 0xFF},
    {"ADCON1", 0x09F, 0x00, 0x8F}, {"EEDATA", 0x10C, 0x00, 0xFF},  {"EEADR", 0x10D, 0x00, 0xFF},
    {"EEDATH", 0x10E, 0x00, 0x3F}, {"EEADRH", 0x10F, 0x00, 0x1F},  {"EECON1", 0x18C, 0x00, 0x8F},
    {"EECON2", 0x18D, 0x00, 0x00},
};

// Bit 7 of PIR1 and PIE1 belongs to the parallel slave port, which only the 40-pin parts have.
const std::vector<Register> kOnly28Pins = {{"PIR1", 0x00C, 0x00, 0x4F},
                                           {"PIE1", 0x08C, 0x00, 0x7F}};
const std::vector<Register> kOnly40Pins = {
    {"PORTD", 0x008, 0x00, 0xFF}, {"PORTE", 0x009, 0x00, 0x07}, {"PIR1", 0x00C, 0x00, 0xCF},
    {"TRISD", 0x088, 0xFF, 0xFF}, {"TRISE", 0x089, 0x07, 0x37}, {"PIE1", 0x08C, 0x00, 0xFF},
};

struct Range {
    int first;
    int last;
    int target = 0;  // what the first address reaches
};

// Seen in every bank, and TMR0 and PORTB or OPTION_REG and TRISB in every second one.
const std::vector<Range> kCoreMirrors = {
    {0x080, 0x080, 0x000}, {0x082, 0x084, 0x002}, {0x08A, 0x08B, 0x00A}, {0x100, 0x104, 0x000},
    {0x106, 0x106, 0x006}, {0x10A, 0x10B, 0x00A}, {0x180, 0x180, 0x000}, {0x181, 0x181, 0x081},
    {0x182, 0x184, 0x002}, {0x186, 0x186, 0x086}, {0x18A, 0x18B, 0x00A},
};
const std::vector<Range> kPic16F8xMirrors = {
    {0x105, 0x105, 0x005}, {0x108, 0x109, 0x008}, {0x185, 0x185, 0x085}, {0x188, 0x189, 0x088}};
const std::vector<Range> kCommonRam = {
    {0x0F0, 0x0FF, 0x070}, {0x170, 0x17F, 0x070}, {0x1F0, 0x1FF, 0x070}};

struct Layout {
    std::vector<std::vector<Register>> registers;
    std::vector<Range> ram;
    std::vector<std::vector<Range>> mirrors;
};

const Layout& LayoutOf(std::string_view model) {
    static const std::vector<std::vector<Register>> kWith28Pins = {kSharedPeripherals, kPic16F87x,
                                                                   kOnly28Pins};
    static const std::vector<std::vector<Register>> kWith40Pins = {kSharedPeripherals, kPic16F87x,
                                                                   kOnly40Pins};
    static const std::vector<Range> kSmallRam = {{0x020, 0x07F}, {0x0A0, 0x0FF}};
    static const std::vector<Range> kSmallMirrors = {{0x120, 0x17F, 0x020}, {0x1A0, 0x1FF, 0x0A0}};
    static const std::vector<Range> kLargeRam = {
        {0x020, 0x07F}, {0x0A0, 0x0EF}, {0x110, 0x16F}, {0x190, 0x1EF}};
    static const Layout kLayout62x = {{kSharedPeripherals, kPic16F62x},
                                      {{0x020, 0x07F}, {0x0A0, 0x0EF}, {0x120, 0x14F}},
                                      {kCommonRam}};
    static const std::map<std::string_view, Layout> kLayouts = {
        {"PIC16F83",
         {{kPic16F8x},
          {{0x00C, 0x02F}},
          {kPic16F8xMirrors,
           {{0x08C, 0x0AF, 0x00C}, {0x10C, 0x12F, 0x00C}, {0x18C, 0x1AF, 0x00C}}}}},
        {"PIC16F84",
         {{kPic16F8x},
          {{0x00C, 0x04F}},
          {kPic16F8xMirrors,
           {{0x08C, 0x0CF, 0x00C}, {0x10C, 0x14F, 0x00C}, {0x18C, 0x1CF, 0x00C}}}}},
        {"PIC16F873", {kWith28Pins, kSmallRam, {kSmallMirrors}}},
        {"PIC16F874", {kWith40Pins, kSmallRam, {kSmallMirrors}}},
        {"PIC16F876", {kWith28Pins, kLargeRam, {kCommonRam}}},
        {"PIC16F877", {kWith40Pins, kLargeRam, {kCommonRam}}},
        {"PIC16F627", kLayout62x},
        {"PIC16F628", kLayout62x},
    };
    return kLayouts.at(model);
}

// Bit names from bit 7 to bit 0, "-" where the row names none. Names that belong to one bit number
// in all models share a row where there is room.
using BitRows = std::vector<const char*>;
const BitRows kCommonBits = {
    "IRP RP1 RP0 NOT_TO NOT_PD Z DC C",
    "NOT_RBPU INTEDG T0CS T0SE PSA PS2 PS1 PS0",
    "GIE PEIE T0IE INTE RBIE T0IF INTF RBIF",
    "RB7 RB6 RB5 RB4 RB3 RB2 RB1 RB0",
    "TRISB7 TRISB6 TRISB5 TRISB4 TRISB3 TRISB2 TRISB1 TRISB0",
    "- - - RA4 RA3 RA2 RA1 RA0",
    "- - - TRISA4 TRISA3 TRISA2 TRISA1 TRISA0",
    "- - - - WRERR WREN WR RD",
};
const BitRows kPic16F8xBits = {"- EEIE - EEIF - - - -"};
const BitRows kSharedPeripheralBits = {
    "- - T1CKPS1 T1CKPS0 T1OSCEN NOT_T1SYNC TMR1CS TMR1ON",
    "- TOUTPS3 TOUTPS2 TOUTPS1 TOUTPS0 TMR2ON T2CKPS1 T2CKPS0",
    "- - CCP1X CCP1Y CCP1M3 CCP1M2 CCP1M1 CCP1M0",
    "SPEN RX9 SREN CREN ADDEN FERR OERR RX9D",
    "CSRC TX9 TXEN SYNC - BRGH TRMT TX9D",
    "- - RCIF TXIF - CCP1IF TMR2IF TMR1IF",
    "- - RCIE TXIE - CCP1IE TMR2IE TMR1IE",
    "- - RA5 - - - NOT_POR NOT_BOR",
    "- - TRISA5 - - - - -",
};
const BitRows kPic16F62xBits = {
    "EEIF CMIF - - ADEN - - NOT_BOD",
    "EEIE CMIE - - OSCF - - -",
    "RA7 RA6 - - - - - -",
    "TRISA7 TRISA6 - - - - - -",
    "C2OUT C1OUT C2INV C1INV CIS CM2 CM1 CM0",
    "VREN VROE VRR - VR3 VR2 VR1 VR0",
};
const BitRows kPic16F87xBits = {
    "EEPGD ADIF - EEIF SSPIF - - CCP2IF",
    "ADFM ADIE - EEIE SSPIE - - CCP2IE",
    "- - - - BCLIF GO - -",
    "- - - - BCLIE NOT_DONE - -",
    "RC7 RC6 RC5 RC4 RC3 RC2 RC1 RC0",
    "TRISC7 TRISC6 TRISC5 TRISC4 TRISC3 TRISC2 TRISC1 TRISC0",
    "WCOL SSPOV SSPEN CKP SSPM3 SSPM2 SSPM1 SSPM0",
    "GCEN ACKSTAT ACKDT ACKEN RCEN PEN RSEN SEN",
    "SMP CKE D_A P S R_W UA BF",
    "- - NOT_A - - NOT_W - -",
    "- - CCP2X CCP2Y CCP2M3 CCP2M2 CCP2M1 CCP2M0",
    "ADCS1 ADCS0 CHS2 CHS1 CHS0 GO_DONE - ADON",
    "- - - - PCFG3 PCFG2 PCFG1 PCFG0",
};
const BitRows kOnly40PinsBits = {
    "RD7 RD6 RD5 RD4 RD3 RD2 RD1 RD0",
    "TRISD7 TRISD6 TRISD5 TRISD4 TRISD3 TRISD2 TRISD1 TRISD0",
    "PSPIF - - - - RE2 RE1 RE0",
    "PSPIE - - - - - - -",
    "IBF OBF IBOV PSPMODE - TRISE2 TRISE1 TRISE0",
};

std::map<std::string, int> BitsOf(ModelFamily family) {
    std::map<std::string, int> result;
    const auto add = [&result](const BitRows& rows) {
        for (const char* const row : rows) {
            std::istringstream names(row);
            std::string name;
            for (int bit = 7; names >> name; --bit) {
                result[name] = bit;
            }
        }
    };
    add(kCommonBits);
    add(family == ModelFamily::Pic16F8x ? kPic16F8xBits : kSharedPeripheralBits);
    if (family == ModelFamily::Pic16F62x) {
        add(kPic16F62xBits);
    }
    if (IsPic16F87x(family)) {
        add(kPic16F87xBits);
    }
    if (family == ModelFamily::Pic16F87x40) {
        add(kOnly40PinsBits);
    }
    result.erase("-");
    return result;
}

std::vector<Register> RegistersOf(std::string_view model) {
    std::vector<Register> result = kCommon;
    for (const std::vector<Register>& some : LayoutOf(model).registers) {
        result.insert(result.end(), some.begin(), some.end());
    }
    std::sort(result.begin(), result.end(),
              [](const Register& a, const Register& b) { return a.address < b.address; });
    return result;
}

std::string ReadFile(std::string_view model) {
    std::ifstream file(std::string(CORVANE_SOURCE_DIR "/data/models/") +
                       DescriptionFileName(model));
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

class ModelFile : public testing::TestWithParam<Model> {
  protected:
    void SetUp() override {
        text_ = ReadFile(GetParam().name);
        auto result = ReadModelDescription(text_);
        ASSERT_TRUE(result) << "line " << result.error;
        description_ = *result;
    }

    std::string text_;
    ModelDescription description_;
};

TEST_P(ModelFile, ListsEveryAddressOnceInAscendingOrder) {
    int next = 0;
    for (const std::string_view line : common::SplitLines(text_)) {
        if (!line.starts_with(';') && line.find(',') != std::string_view::npos) {
            EXPECT_EQ(line.substr(0, 3), common::Hex3(next++));
        }
    }
    EXPECT_EQ(next, kDataMemorySize);
}

TEST_P(ModelFile, MapIsTheDataSheets) {
    std::array<std::uint16_t, kDataMemorySize> expected = ModelDescription().addressMap;
    std::array<std::uint8_t, kDataMemorySize> mask{};
    const Layout& layout = LayoutOf(GetParam().name);
    const auto reach = [&](const Range& range) {
        for (int address = range.first; address <= range.last; ++address) {
            const int target = range.target + address - range.first;
            expected.at(static_cast<std::size_t>(address)) = static_cast<std::uint16_t>(target);
        }
    };
    std::for_each(kCoreMirrors.begin(), kCoreMirrors.end(), reach);
    for (const std::vector<Range>& mirrors : layout.mirrors) {
        std::for_each(mirrors.begin(), mirrors.end(), reach);
    }
    for (const Range& ram : layout.ram) {
        std::fill(mask.begin() + ram.first, mask.begin() + ram.last + 1, std::uint8_t{0xFF});
    }
    for (const Register& some : RegistersOf(GetParam().name)) {
        mask.at(static_cast<std::size_t>(some.address)) = static_cast<std::uint8_t>(some.writeMask);
    }
    for (std::size_t address = 0; address < expected.size(); ++address) {
        const std::size_t cell = expected[address];
        EXPECT_EQ(description_.addressMap[address], cell) << common::Hex3(address);
        EXPECT_EQ(expected[cell], cell) << "a chain of mirrors at " << common::Hex3(address);
        // A mirror has its register's mask; what is not implemented has none.
        EXPECT_EQ(description_.writeMask[address], mask[cell]) << common::Hex3(address);
    }
}

TEST_P(ModelFile, RegistersAreTheDataSheetsAndNoOthers) {
    const std::vector<Register> expected = RegistersOf(GetParam().name);
    ASSERT_EQ(description_.sfrList.size(), expected.size() + 1);
    for (std::size_t row = 0; row < expected.size(); ++row) {
        const Register& some = expected[row];
        const Sfr& shown = description_.sfrList[row];
        EXPECT_EQ(shown.label, common::Hex3(some.address) + "h  " + some.name);
        EXPECT_EQ(shown.address, some.address) << some.name;
        EXPECT_EQ(shown.resetValue, some.resetValue) << some.name;
    }
}

TEST_P(ModelFile, RamIsListedOnceInAscendingOrder) {
    std::vector<int> expected;
    for (const Range& ram : LayoutOf(GetParam().name).ram) {
        for (int address = ram.first; address <= ram.last; ++address) {
            expected.push_back(address);
        }
    }
    std::vector<int> listed;
    for (const Gpr& gpr : description_.gprList) {
        listed.push_back(gpr.address);
        EXPECT_EQ(gpr.label, common::Hex3(gpr.address) + "h");
    }
    EXPECT_EQ(listed, expected);
    const std::map<std::string_view, std::size_t> byteCounts = {
        {"PIC16F83", 36},   {"PIC16F84", 68},   {"PIC16F873", 192}, {"PIC16F874", 192},
        {"PIC16F876", 368}, {"PIC16F877", 368}, {"PIC16F627", 224}, {"PIC16F628", 224}};
    EXPECT_EQ(listed.size(), byteCounts.at(GetParam().name));
    EXPECT_LT(listed.at(9), 0x80);  // the BASIC compiler's scratch registers need no bank line
}

TEST_P(ModelFile, AssemblerNamesAreRegistersBitsAndDestinations) {
    std::map<std::string, int> expected = BitsOf(GetParam().family);
    for (const Register& some : RegistersOf(GetParam().name)) {
        expected[some.name] = some.address;
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
}

TEST_P(ModelFile, BasicNamesAreTheRegisters) {
    const PredefinedSymbols read = ReadSymbolLines(description_.basicSymbolLines);
    EXPECT_TRUE(read.badLines.empty());
    const std::vector<Register> expected = RegistersOf(GetParam().name);
    ASSERT_EQ(read.symbols.size(), expected.size());
    for (std::size_t row = 0; row < expected.size(); ++row) {
        EXPECT_EQ(read.symbols[row].name, expected[row].name);
        EXPECT_EQ(read.symbols[row].value, expected[row].address) << expected[row].name;
    }
}

INSTANTIATE_TEST_SUITE_P(Models, ModelFile, testing::ValuesIn(kModelCatalogue),
                         [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace corvane::models
