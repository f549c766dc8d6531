#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QRadioButton>
#include <set>

#include "ui/dialogs/configuration_bits_dialog.h"

namespace corvane::ui {

namespace {

TEST(ConfigurationBitsDialog, ShowsTheWordAndGivesItBack) {
    // Partial code protection is no choice; Close turns it off.
    ConfigurationBitsDialog dialog(models::ModelFamily::Pic16F87x28, 0x1D51);
    std::set<QString> selected;
    for (const QRadioButton* button : dialog.findChildren<QRadioButton*>()) {
        if (button->isChecked()) {
            selected.insert(button->objectName());
        }
    }
    EXPECT_EQ(selected,
              (std::set<QString>{"op21", "op32", "op42", "op52", "op61", "op72", "op82", "op93"}));
    dialog.findChild<QAbstractButton*>("Command1")->click();
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(dialog.Word(), 0x3D71);
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
