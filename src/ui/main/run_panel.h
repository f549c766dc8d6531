// What runs and how far it has come: last instruction, counters, program file, model.
#pragma once

#include <QGroupBox>

#include "core/processor.h"
#include "ui/widgets/data_label.h"
#include "ui/widgets/path_label.h"

namespace corvane::ui {

class LastInstructionPanel : public QGroupBox {
    Q_OBJECT
  public:
    LastInstructionPanel();
    void Show(const core::ProcessorState& state);

  private:
    DataLabel* instruction_;
    int shownWord_;
};

class RunPanel : public QWidget {
    Q_OBJECT
  public:
    // The small widget stands at the end of the captions.
    explicit RunPanel(QWidget* corner);
    void Show(const core::ProcessorState& state);
    void ShowModel(const models::Model& model);
    void ShowProgram(const std::string& path);

  private:
    DataLabel* instructions_;
    DataLabel* clockCycles_;
    DataLabel* model_;
    PathLabel* program_;
};

}  // namespace corvane::ui
