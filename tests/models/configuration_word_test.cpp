#include "models/configuration_word.h"

#include <gtest/gtest.h>

namespace corvane::models {
namespace {

// A word as the captions of the choices that it holds, and as the word that they make.
std::string Reading(ModelFamily family, int word) {
    const std::span<const ConfigurationField> fields = ConfigurationFields(family);
    std::string captions;
    std::vector<std::optional<int>> choices;
    for (const ConfigurationField& field : fields) {
        choices.push_back(ChoiceOf(field, word));
        captions +=
            choices.back() ? field.choices[static_cast<std::size_t>(*choices.back())].caption : "-";
        captions += ", ";
    }
    return captions + std::to_string(WordOfChoices(fields, choices));
}

TEST(ConfigurationWord, WordsAsChoices) {
    const auto f84 = ModelFamily::Pic16F8x;
    const auto f877 = ModelFamily::Pic16F87x40;
    const auto f628 = ModelFamily::Pic16F62x;
    struct Case {
        ModelFamily family;
        int word;
        std::string captions;
        int written;
    };
    const Case cases[] = {
        {f84, 0x3FF1, "OFF, Enabled, Disabled, XT", 0x3FF1},
        {f84, 0x000A, "ON, Disabled, Disabled, HS", 0x000A},
        {f84, 0x0010, "-, Enabled, Disabled, LP", 0x3FF0},
        {f877, 0x3D71, "OFF, Enabled, Disabled, OFF, Disabled, Enabled, Disabled, Disabled, XT",
         0x3D71},
        {ModelFamily::Pic16F87x28, 0x0000,
         "ON, Enabled, Disabled, ON, Disabled, Disabled, Enabled, Disabled, LP", 0x0400},
        {f877, 0x3FDF, "-, Disabled, Enabled, OFF, Enabled, Enabled, Disabled, Enabled, RC",
         0x3FFF},
        {f628, 0x3F50, "OFF, Enabled, Disabled, OFF, Digital I/O, Enabled, Disabled, INTRC",
         0x3F50},
        {f628, 0x03EC, "ON, Disabled, Enabled, OFF, \\MCLR, Enabled, Enabled, LP", 0x03EC},
        {f628, 0x1DFF, "-, Disabled, Enabled, OFF, \\MCLR, Enabled, Enabled, ER +ClkOut", 0x3FFF},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(Reading(c.family, c.word), c.captions + ", " + std::to_string(c.written));
    }
    for (const Model& model : kModelCatalogue) {
        const int word = model.defaultConfigurationWord;
        EXPECT_TRUE(Reading(model.family, word).ends_with(" " + std::to_string(word)));
    }
}

TEST(ConfigurationWord, FieldsDoNotOverlapAndLeaveTheUnimplementedBits) {
    const std::pair<ModelFamily, int> covered[] = {{ModelFamily::Pic16F8x, 0x3FFF},
                                                   {ModelFamily::Pic16F87x28, 0x3BFF},
                                                   {ModelFamily::Pic16F62x, 0x3DFF}};
    for (const auto& [family, bits] : covered) {
        int seen = 0;
        for (const ConfigurationField& field : ConfigurationFields(family)) {
            EXPECT_EQ(seen & field.mask, 0) << field.caption;
            seen |= field.mask;
            for (const ConfigurationChoice& choice : field.choices) {
                EXPECT_EQ(choice.bits & ~field.mask, 0) << field.caption << choice.caption;
            }
        }
        EXPECT_EQ(seen, bits);
    }
    EXPECT_EQ(ChoiceControlName(2, 0), "op31");
}

}  // namespace
}  // namespace corvane::models
