// "General Purpose Registers (GPRs)": two columns of sixteen rows.
#pragma once

#include <vector>

#include "app/chip_value.h"
#include "core/processor.h"
#include "ui/main/last_step.h"
#include "ui/main/register_table.h"
#include "ui/widgets/data_label.h"

namespace corvane::ui {

class GprTable : public RegisterTable {
    Q_OBJECT
  public:
    GprTable();

    void gprprint(const core::Processor& processor, const LastStep& lastStep);
    // What this label shows, if it is a value of the table.
    std::optional<app::ValuePlace> PlaceOf(const QLabel& value,
                                           const core::Processor& processor) const;

  private:
    struct Row {
        DataLabel* name;
        DataLabel* value;
    };
    std::vector<Row> rows_;
};

}  // namespace corvane::ui
