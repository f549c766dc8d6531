#include "ui/main/gpr_table.h"

#include <QGridLayout>
#include <algorithm>

#include "common/number_text.h"
#include "ui/widgets/heading.h"

namespace corvane::ui {

namespace {

constexpr int kColumns = 2;
constexpr int kRowsPerColumn = 16;
constexpr int kGridColumns = 3;  // address, value, gap

void AddHeadings(QGridLayout& grid, int column) {
    grid.addWidget(NewHeading(GprTable::tr("Addr.")), 0, column, 2, 1, Qt::AlignBottom);
    grid.addWidget(NewHeading(GprTable::tr("Value")), 0, column + 1);
    grid.addWidget(NewHeading(GprTable::tr("Hex")), 1, column + 1);
}

}  // namespace

GprTable::GprTable()
    : RegisterTable(tr("General Purpose Registers (GPRs)"), "qgprpoint",
                    kColumns * kRowsPerColumn) {
    auto* grid = new QGridLayout(this);
    grid->setHorizontalSpacing(kBitSpacing);
    grid->setVerticalSpacing(kRowSpacing);
    for (int column = 0; column < kColumns; ++column) {
        AddHeadings(*grid, column * kGridColumns);
        grid->setColumnMinimumWidth(column * kGridColumns + 2, 2 * kColumnGap);
    }
    for (int i = 0; i < kColumns * kRowsPerColumn; ++i) {
        const Row row{.name = new DataLabel(5), .value = new DataLabel(4)};
        row.name->setObjectName(QStringLiteral("qgprname[%1]").arg(i));
        row.value->setObjectName(QStringLiteral("qgpr[%1]").arg(i));
        row.name->setBuddy(row.value);
        const int column = i / kRowsPerColumn * kGridColumns;
        grid->addWidget(row.name, 2 + i % kRowsPerColumn, column);
        grid->addWidget(row.value, 2 + i % kRowsPerColumn, column + 1);
        rows_.push_back(row);
    }
    grid->setColumnStretch(kColumns * kGridColumns + 1, 1);
    grid->setRowStretch(2 + kRowsPerColumn, 1);  // with the column, what a larger window spares
    grid->addWidget(ScrollBar(), 2, kColumns * kGridColumns, kRowsPerColumn, 1);
}

void GprTable::gprprint(const core::Processor& processor, const LastStep& lastStep) {
    const std::vector<models::Gpr>& list = processor.description.gprList;
    std::size_t entry = FirstEntry();
    for (const Row& row : rows_) {
        if (entry >= list.size()) {
            row.name->ShowText("");
            row.value->ShowText("");
            row.value->SetMeaning("");
            continue;
        }
        const models::Gpr& gpr = list[entry++];
        row.name->ShowText(gpr.label);
        row.value->SetMeaning(QStringLiteral("GPR ") +
                              QString::fromStdString(gpr.label).chopped(1));
        row.value->ShowText(
            common::Hex2(processor.state.dataMemory.at(static_cast<std::size_t>(gpr.address))));
        row.value->Emphasize(lastStep.HasChanged(gpr.address));
    }
}

std::optional<app::ValuePlace> GprTable::PlaceOf(const QLabel& value,
                                                 const core::Processor& processor) const {
    const auto row = std::ranges::find(rows_, &value, &Row::value);
    const std::size_t entry = FirstEntry() + static_cast<std::size_t>(row - rows_.begin());
    if (row == rows_.end() || entry >= processor.description.gprList.size()) {
        return std::nullopt;
    }
    return app::ValuePlace{.kind = app::ValueKind::Register,
                           .index = processor.description.gprList[entry].address};
}

}  // namespace corvane::ui
