// "Special Function Registers (SFRs)": sixteen rows with their bits.
#pragma once

#include <array>
#include <vector>

#include "app/chip_value.h"
#include "core/processor.h"
#include "ui/main/last_step.h"
#include "ui/main/register_table.h"
#include "ui/widgets/bit_cell.h"
#include "ui/widgets/data_label.h"

namespace corvane::ui {

class SfrTable : public RegisterTable {
    Q_OBJECT
  public:
    SfrTable();

    void sfrprint(const core::Processor& processor, const LastStep& lastStep);
    // What this label shows, if it is a value of the table.
    std::optional<app::ValuePlace> PlaceOf(const QLabel& value,
                                           const core::Processor& processor) const;

  private:
    struct Row {
        DataLabel* name;
        DataLabel* value;
        std::array<BitCell*, 8> bits;  // bit 0 first
    };
    static void ShowEntry(const Row& row, const models::Sfr& sfr, const core::Processor& processor,
                          const LastStep& lastStep);
    static void ShowNothing(const Row& row);

    std::vector<Row> rows_;
};

}  // namespace corvane::ui
