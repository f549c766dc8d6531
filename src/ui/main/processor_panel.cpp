#include "ui/main/processor_panel.h"

#include <QGridLayout>

#include "common/number_text.h"
#include "ui/main/register_table.h"
#include "ui/widgets/heading.h"

namespace corvane::ui {

namespace {

constexpr int kPcBits = 13;
constexpr int kWBits = 8;

// The bit cells, most significant first, under their numbers, from this column of the grid on.
std::vector<BitCell*> AddBits(QGridLayout& grid, int firstColumn, int count, const QString& name,
                              const QString& meaning) {
    std::vector<BitCell*> bits;
    for (int bit = 0; bit < count; ++bit) {
        const int column = firstColumn + count - 1 - bit;
        auto* cell = new BitCell;
        cell->setObjectName(QStringLiteral("%1[%2]").arg(name).arg(bit));
        cell->SetMeaning(QStringLiteral("%1 bit %2").arg(meaning).arg(bit));
        grid.addWidget(NewHeading(QString::number(bit)), 0, column, Qt::AlignCenter);
        grid.addWidget(cell, 1, column);
        bits.push_back(cell);
    }
    return bits;
}

void ShowBits(const std::vector<BitCell*>& bits, int value) {
    for (std::size_t i = 0; i < bits.size(); ++i) {
        bits[i]->ShowState(((value >> i) & 1) != 0 ? BitState::Set : BitState::Clear);
    }
}

}  // namespace

ProcessorPanel::ProcessorPanel(QWidget* parent)
    : QGroupBox(tr("Program Counter and W Register"), parent),
      pc_(new DataLabel(4)),
      w_(new DataLabel(2)) {
    pc_->setObjectName("qpc");
    pc_->SetMeaning(tr("Program counter"));
    pc_->SetFramed();
    w_->setObjectName("qw");
    w_->SetMeaning(tr("W register"));
    w_->SetFramed();
    auto* pcCaption = new QLabel(tr("PC"));
    pcCaption->setBuddy(pc_);
    auto* wCaption = new QLabel(tr("W Register"));
    wCaption->setBuddy(w_);

    constexpr int kPcColumn = 2;
    constexpr int kWColumn = kPcColumn + 1 + kPcBits + 4;
    auto* grid = new QGridLayout(this);
    grid->setHorizontalSpacing(kBitSpacing);
    grid->setVerticalSpacing(kRowSpacing);
    grid->addWidget(pcCaption, 1, 0);
    grid->addWidget(pc_, 1, 1);
    pcBits_ = AddBits(*grid, kPcColumn + 1, kPcBits, "qpcbit", tr("PC"));
    grid->setColumnMinimumWidth(kPcColumn, kColumnGap);
    grid->setColumnMinimumWidth(kPcColumn + 1 + kPcBits, kColumnGap);
    grid->setColumnStretch(kPcColumn + 1 + kPcBits, 1);
    grid->addWidget(wCaption, 1, kWColumn - 3);
    grid->addWidget(w_, 1, kWColumn - 2);
    grid->setColumnMinimumWidth(kWColumn - 1, kColumnGap);
    wBits_ = AddBits(*grid, kWColumn, kWBits, "qwbit", tr("W"));
}

void ProcessorPanel::Show(const core::ProcessorState& state, bool hasChangedW) {
    pc_->ShowText(common::Hex4(state.pc));
    ShowBits(pcBits_, state.pc);
    w_->ShowText(common::Hex2(state.w));
    w_->Emphasize(hasChangedW);
    ShowBits(wBits_, state.w);
}

std::optional<app::ValuePlace> ProcessorPanel::PlaceOf(const QLabel& value) const {
    if (&value == pc_ || &value == w_) {
        return app::ValuePlace{&value == pc_ ? app::ValueKind::Pc : app::ValueKind::W};
    }
    for (int bit = 0; bit < kPcBits; ++bit) {
        if (&value == pcBits_.at(static_cast<std::size_t>(bit))) {
            return app::ValuePlace{.kind = app::ValueKind::Pc, .bit = bit};
        }
    }
    for (int bit = 0; bit < kWBits; ++bit) {
        if (&value == wBits_.at(static_cast<std::size_t>(bit))) {
            return app::ValuePlace{.kind = app::ValueKind::W, .bit = bit};
        }
    }
    return std::nullopt;
}

}  // namespace corvane::ui
