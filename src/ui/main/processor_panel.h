// "Program Counter and W Register": both in hexadecimal and bit by bit.
#pragma once

#include <QGroupBox>
#include <vector>

#include "app/chip_value.h"
#include "core/processor_state.h"
#include "ui/widgets/bit_cell.h"
#include "ui/widgets/data_label.h"

namespace corvane::ui {

class ProcessorPanel : public QGroupBox {
    Q_OBJECT
  public:
    explicit ProcessorPanel(QWidget* parent = nullptr);

    void Show(const core::ProcessorState& state, bool hasChangedW);
    // What this label shows, if it is one of the panel's.
    std::optional<app::ValuePlace> PlaceOf(const QLabel& value) const;

  private:
    DataLabel* pc_;
    std::vector<BitCell*> pcBits_;  // bit 0 first
    DataLabel* w_;
    std::vector<BitCell*> wBits_;
};

}  // namespace corvane::ui
