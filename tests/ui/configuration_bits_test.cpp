#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QRadioButton>
#include <set>
#include <string>

#include "ui/dialogs/configuration_bits_dialog.h"

namespace corvane::ui {

namespace {

using Names = std::set<std::string>;

Names Selected(const ConfigurationBitsDialog& dialog) {
    Names names;
    for (const QRadioButton* button : dialog.findChildren<QRadioButton*>()) {
        if (button->isChecked()) {
            names.insert(button->objectName().toStdString());
        }
    }
    return names;
}

struct Case {
    int modelRow;
    int word;
    Names selected;
    int wordAfterClose;
};

TEST(ConfigurationBitsDialog, ShowsTheWordAndGivesItBack) {
    const Case cases[] = {
        {1, 0x3FF1, {"op12", "op21", "op32", "op43"}, 0x3FF1},
        {1, 0x000A, {"op11", "op22", "op32", "op42"}, 0x000A},
        {5,
         0x3D71,
         {"op12", "op21", "op32", "op42", "op52", "op61", "op72", "op82", "op93"},
         0x3D71},
        {7, 0x3F50, {"op12", "op21", "op32", "op42", "op52", "op61", "op72", "op85"}, 0x3F50},
        // Partial code protection is no choice; Close turns it off.
        {2, 0x1D51, {"op21", "op32", "op42", "op52", "op61", "op72", "op82", "op93"}, 0x3D71},
    };
    for (const Case& c : cases) {
        const models::Model& model =
            models::kModelCatalogue.at(static_cast<std::size_t>(c.modelRow));
        ConfigurationBitsDialog dialog(model.family, c.word);
        EXPECT_EQ(Selected(dialog), c.selected) << model.name;
        dialog.findChild<QAbstractButton*>("Command1")->click();
        EXPECT_EQ(dialog.result(), QDialog::Accepted);
        EXPECT_EQ(dialog.Word(), c.wordAfterClose) << model.name;
    }
}

TEST(ConfigurationBitsDialog, OneChoiceOfAFieldExcludesTheOthers) {
    ConfigurationBitsDialog dialog(models::ModelFamily::Pic16F62x, 0x3F50);
    dialog.findChild<QRadioButton*>("op88")->click();
    EXPECT_EQ(dialog.Word(), 0x3F53);
    dialog.findChild<QRadioButton*>("op81")->click();
    EXPECT_EQ(dialog.Word(), 0x3F40);
}

}  // namespace

}  // namespace corvane::ui
