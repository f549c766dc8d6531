// "General Purpose Registers (GPRs)": two columns of sixteen rows.
#pragma once

#include <vector>

#include "core/processor.h"
#include "ui/common/data_label.h"
#include "ui/main/last_step.h"
#include "ui/main/register_table.h"

namespace corvane::ui {

class GprTable : public RegisterTable {
    Q_OBJECT
  public:
    GprTable();

    void gprprint(const core::Processor& processor, const LastStep& lastStep);

  private:
    struct Row {
        DataLabel* name;
        DataLabel* value;
    };
    std::vector<Row> rows_;
};

}  // namespace corvane::ui
