#include "ui/dialogs/select_microcontroller_dialog.h"

#include <QAbstractButton>
#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>
#include <QStyleOptionFocusRect>
#include <QVBoxLayout>

#include "models/catalogue.h"

namespace corvane::ui {

namespace {

constexpr QColor kChosenColour(0xC0, 0xFF, 0xC0);

// One model. The chosen one is light green, the others are white, in every theme.
class ModelChoice final : public QAbstractButton {
  public:
    explicit ModelChoice(const QString& name) {
        setText(name);
        setCheckable(true);
        setFocusPolicy(Qt::StrongFocus);
    }

    QSize sizeHint() const override {
        return {fontMetrics().horizontalAdvance(text()) + 200, fontMetrics().height() + 10};
    }

  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.fillRect(rect(), palette().color(QPalette::Mid));
        painter.fillRect(rect().adjusted(1, 1, -1, -1), isChecked() ? kChosenColour : Qt::white);
        painter.setPen(Qt::black);
        painter.drawText(rect(), Qt::AlignCenter, text());
        if (hasFocus()) {
            painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
            painter.drawRect(rect().adjusted(1, 1, -1, -1));
        }
    }
};

}  // namespace

SelectMicrocontrollerDialog::SelectMicrocontrollerDialog(int currentModel, QWidget* parent)
    : QDialog(parent), currentModel_(currentModel), choices_(new QButtonGroup(this)) {
    setObjectName("Form5");
    setWindowTitle(tr("Select Microcontroller"));
    setWindowModality(Qt::WindowModal);

    auto* list = new QVBoxLayout;
    list->setSpacing(3);
    for (int row = 0; row < models::kModelCount; ++row) {
        const models::Model& model = models::kModelCatalogue.at(static_cast<std::size_t>(row));
        if (!model.isOffered) {
            continue;
        }
        auto* choice =
            new ModelChoice(QString::fromLatin1(model.name.data(), std::ssize(model.name)));
        choice->setObjectName(QStringLiteral("opcija[%1]").arg(row));
        choices_->addButton(choice, row);
        list->addWidget(choice);
    }
    auto* select = new QPushButton(tr("Select"));
    select->setObjectName("Command1");
    select->setDefault(true);
    connect(select, &QPushButton::clicked, this, &QDialog::accept);
    auto* cancel = new QPushButton(tr("Cancel"));
    cancel->setObjectName("Command2");
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(select);
    buttons->addWidget(cancel);
    auto* layout = new QVBoxLayout(this);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addLayout(list);
    layout->addSpacing(6);
    layout->addLayout(buttons);
    if (QAbstractButton* current = choices_->button(currentModel)) {
        current->setChecked(true);
        current->setFocus();
    }
}

int SelectMicrocontrollerDialog::ChosenModel() const {
    const int row = choices_->checkedId();
    return row < 0 ? currentModel_ : row;
}

}  // namespace corvane::ui
