#include "ui/main/sfr_table.h"

#include <QGridLayout>
#include <algorithm>

#include "common/number_text.h"
#include "ui/widgets/heading.h"

namespace corvane::ui {

namespace {

constexpr int kRows = 16;
constexpr int kBits = 8;
constexpr int kValueColumn = 2;
constexpr int kFirstBitColumn = 4;  // there is a gap before this and before the value
constexpr int kNameColumns = 19;    // "18Ch  OPTION_REG" and "TMR0 Prescaler" fit

struct Content {
    int value;
    int mask;  // the bits that are implemented
};

Content ContentOf(const models::Sfr& sfr, const core::Processor& processor) {
    if (sfr.address == models::kPrescalerAddress) {
        return {.value = processor.state.prescalerCount, .mask = 0xFF};
    }
    const auto cell = static_cast<std::size_t>(sfr.address);
    return {.value = processor.state.dataMemory.at(cell),
            .mask = processor.description.writeMask.at(cell)};
}

BitState StateOf(const Content& content, int bit) {
    if (((content.mask >> bit) & 1) == 0) {
        return BitState::Unimplemented;
    }
    return ((content.value >> bit) & 1) != 0 ? BitState::Set : BitState::Clear;
}

// "STATUS" of "003h  STATUS".
QString RegisterName(const models::Sfr& sfr) {
    const QString label = QString::fromStdString(sfr.label);
    return sfr.address == models::kPrescalerAddress ? label
                                                    : label.section(QStringLiteral("  "), 1);
}

}  // namespace

SfrTable::SfrTable() : RegisterTable(tr("Special Function Registers (SFRs)"), "qsfrpoint", kRows) {
    auto* grid = new QGridLayout(this);
    grid->setHorizontalSpacing(kBitSpacing);
    grid->setVerticalSpacing(kRowSpacing);
    grid->addWidget(NewHeading(tr("Address and Name")), 0, 0, 2, 1, Qt::AlignBottom);
    grid->addWidget(NewHeading(tr("Value")), 0, kValueColumn);
    grid->addWidget(NewHeading(tr("Hex")), 1, kValueColumn);
    grid->addWidget(NewHeading(tr("Binary Value")), 0, kFirstBitColumn, 1, kBits, Qt::AlignCenter);
    for (int bit = 0; bit < kBits; ++bit) {
        grid->addWidget(NewHeading(QString::number(bit)), 1, kFirstBitColumn + kBits - 1 - bit,
                        Qt::AlignCenter);
    }
    for (int i = 0; i < kRows; ++i) {
        Row row{.name = new DataLabel(kNameColumns), .value = new DataLabel(4), .bits = {}};
        row.name->setObjectName(QStringLiteral("qsfrname[%1]").arg(i));
        row.value->setObjectName(QStringLiteral("qsfr[%1]").arg(i));
        row.name->setBuddy(row.value);
        grid->addWidget(row.name, 2 + i, 0);
        grid->addWidget(row.value, 2 + i, kValueColumn);
        for (int bit = kBits - 1; bit >= 0; --bit) {
            auto* cell = new BitCell;
            cell->setObjectName(QStringLiteral("qsfrbit%1[%2]").arg(bit).arg(i));
            grid->addWidget(cell, 2 + i, kFirstBitColumn + kBits - 1 - bit);
            row.bits.at(static_cast<std::size_t>(bit)) = cell;
        }
        rows_.push_back(row);
    }
    grid->setColumnMinimumWidth(kValueColumn - 1, kColumnGap);
    grid->setColumnMinimumWidth(kFirstBitColumn - 1, kColumnGap);
    const int gapColumn = kFirstBitColumn + kBits;
    grid->setColumnMinimumWidth(gapColumn, kColumnGap);
    grid->setColumnStretch(gapColumn + 2, 1);
    grid->setRowStretch(2 + kRows, 1);  // with the column, what a larger window spares
    grid->addWidget(ScrollBar(), 2, gapColumn + 1, kRows, 1);
}

void SfrTable::sfrprint(const core::Processor& processor, const LastStep& lastStep) {
    const std::vector<models::Sfr>& list = processor.description.sfrList;
    std::size_t entry = FirstEntry();
    for (const Row& row : rows_) {
        if (entry < list.size()) {
            ShowEntry(row, list[entry++], processor, lastStep);
        } else {
            ShowNothing(row);
        }
    }
}

void SfrTable::ShowEntry(const Row& row, const models::Sfr& sfr, const core::Processor& processor,
                         const LastStep& lastStep) {
    if (row.name->text() != QLatin1StringView(sfr.label)) {
        row.name->ShowText(sfr.label);
        const QString name = RegisterName(sfr);
        row.value->SetMeaning(name);
        for (int bit = 0; bit < kBits; ++bit) {
            row.bits.at(static_cast<std::size_t>(bit))
                ->SetMeaning(QStringLiteral("%1 bit %2").arg(name).arg(bit));
        }
    }
    const Content content = ContentOf(sfr, processor);
    row.value->ShowText(common::Hex2(content.value));
    row.value->Emphasize(lastStep.HasChanged(sfr.address));
    for (int bit = 0; bit < kBits; ++bit) {
        row.bits.at(static_cast<std::size_t>(bit))->ShowState(StateOf(content, bit));
    }
}

void SfrTable::ShowNothing(const Row& row) {
    row.name->ShowText("");
    row.value->ShowText("");
    row.value->SetMeaning("");
    for (BitCell* cell : row.bits) {
        cell->SetMeaning("");
        cell->ShowState(BitState::Clear);
    }
}

std::optional<app::ValuePlace> SfrTable::PlaceOf(const QLabel& value,
                                                 const core::Processor& processor) const {
    const std::vector<models::Sfr>& list = processor.description.sfrList;
    std::size_t entry = FirstEntry();
    for (const Row& row : rows_) {
        const auto bit = std::ranges::find(row.bits, &value);
        if (entry < list.size() && (&value == row.value || bit != row.bits.end())) {
            app::ValuePlace place{.kind = app::ValueKind::Register, .index = list[entry].address};
            if (bit != row.bits.end()) {
                place.bit = static_cast<int>(bit - row.bits.begin());
            }
            return place;
        }
        ++entry;
    }
    return std::nullopt;
}

}  // namespace corvane::ui
