#include "ui/dialogs/configuration_bits_dialog.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "ui/widgets/qt_text.h"

namespace corvane::ui {

namespace {

constexpr std::size_t kMostChoicesInARow = 2;

}  // namespace

ConfigurationBitsDialog::ConfigurationBitsDialog(models::ModelFamily family, int word,
                                                 QWidget* parent)
    : QDialog(parent), fields_(models::ConfigurationFields(family)) {
    setWindowTitle(tr("Configuration Bits"));
    auto* close = new QPushButton(tr("Close"));
    close->setObjectName("Command1");
    close->setDefault(true);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);

    auto* grid = new QGridLayout;
    int cell = 0;
    for (std::size_t i = 0; i < fields_.size(); ++i) {
        const bool isWide = fields_[i].choices.size() > kMostChoicesInARow;
        cell += isWide ? cell % 2 : 0;
        grid->addWidget(MakeField(i, word), cell / 2, cell % 2, 1, isWide ? 2 : 1);
        cell += isWide ? 2 : 1;
    }
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addLayout(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

QWidget* ConfigurationBitsDialog::MakeField(std::size_t index, int word) {
    const models::ConfigurationField& field = fields_[index];
    auto* frame = new QGroupBox(QtString(field.caption));
    auto* group = new QButtonGroup(frame);
    auto* layout = new QGridLayout;
    frame->setLayout(layout);
    const auto columns =
        static_cast<int>(field.choices.size() > kMostChoicesInARow ? 4 : kMostChoicesInARow);
    const std::optional<int> chosen = models::ChoiceOf(field, word);
    for (int i = 0; i < static_cast<int>(field.choices.size()); ++i) {
        auto* button =
            new QRadioButton(QtString(field.choices[static_cast<std::size_t>(i)].caption));
        button->setObjectName(
            QString::fromStdString(models::ChoiceControlName(static_cast<int>(index), i)));
        button->setAccessibleDescription(frame->title());
        button->setChecked(chosen == i);
        group->addButton(button, i);
        layout->addWidget(button, i / columns, i % columns);
    }
    choices_.push_back(group);
    return frame;
}

int ConfigurationBitsDialog::Word() const {
    std::vector<std::optional<int>> choices;
    for (const QButtonGroup* group : choices_) {
        const int id = group->checkedId();
        choices.push_back(id >= 0 ? std::optional(id) : std::nullopt);
    }
    return models::WordOfChoices(fields_, choices);
}

}  // namespace corvane::ui
