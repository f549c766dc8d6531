#include "ui/main/run_panel.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "project/last_instruction.h"
#include "ui/main/register_table.h"
#include "ui/widgets/heading.h"

namespace corvane::ui {

namespace {

constexpr int kInstructionColumns = 20;  // the longest text: "BTFSC 0x7F, 7" and the like
constexpr int kCounterColumns = 15;
constexpr int kModelColumns = 9;

// A value under its caption.
QVBoxLayout* Captioned(const QString& caption, QLabel* value, const char* name,
                       QWidget* corner = nullptr) {
    auto* heading = NewHeading(caption);
    heading->setBuddy(value);
    value->setObjectName(name);
    value->setAccessibleDescription(caption);
    auto* column = new QVBoxLayout;
    column->setSpacing(kRowSpacing);
    auto* top = new QHBoxLayout;
    top->addWidget(heading);
    if (corner != nullptr) {
        top->addStretch();
        top->addWidget(corner);
    }
    column->addLayout(top);
    column->addWidget(value);
    column->addStretch();
    return column;
}

}  // namespace

LastInstructionPanel::LastInstructionPanel()
    : QGroupBox(tr("Last Instruction")),
      instruction_(new DataLabel(kInstructionColumns)),
      shownWord_(core::kNoInstruction) {
    instruction_->setObjectName("qinst");
    instruction_->SetMeaning(title());
    instruction_->SetFramed();
    auto* layout = new QVBoxLayout(this);
    layout->addStretch();
    layout->addWidget(instruction_);
}

void LastInstructionPanel::Show(const core::ProcessorState& state) {
    if (shownWord_ != state.lastInstruction) {
        shownWord_ = state.lastInstruction;
        instruction_->ShowText(project::LastInstructionText(state));
    }
}

RunPanel::RunPanel(QWidget* corner)
    : instructions_(new DataLabel(kCounterColumns)),
      clockCycles_(new DataLabel(kCounterColumns)),
      model_(new DataLabel(kModelColumns)),
      program_(new PathLabel) {
    for (DataLabel* label : {instructions_, clockCycles_, model_}) {
        label->SetFramed();
    }
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(kColumnGap);
    row->addLayout(Captioned(tr("Instructions Counter"), instructions_, "qbrojinst"));
    row->addLayout(Captioned(tr("Clock Cycles Counter"), clockCycles_, "qcount"));
    row->addLayout(Captioned(tr("Microcontroller"), model_, "qprocessor"));
    row->addLayout(Captioned(tr("Program Location"), program_, "qprogram", corner), 1);
}

void RunPanel::Show(const core::ProcessorState& state) {
    instructions_->ShowText(std::to_string(state.instructionCount));
    clockCycles_->ShowText(std::to_string(state.clockCycles));
}

void RunPanel::ShowModel(const models::Model& model) {
    model_->ShowText(model.name);
}

void RunPanel::ShowProgram(const std::string& path) {
    program_->ShowPath(QString::fromStdString(path));
}

}  // namespace corvane::ui
