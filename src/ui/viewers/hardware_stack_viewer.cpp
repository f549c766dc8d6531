#include "ui/viewers/hardware_stack_viewer.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/memory_texts.h"

namespace corvane::ui {

namespace {

constexpr int kColumns = 31;  // "Level 1:  0005h   0000000000101"

}  // namespace

HardwareStackViewer::HardwareStackViewer(app::Workbench& workbench,
                                         const DialogsFactory& makeDialogs)
    : SecondaryWindow(app::Window::HardwareStackViewer, workbench),
      dialogs_(makeDialogs(*this)),
      stackPointer_(new DataLabel(8)),
      text_(new MemoryText(kColumns, core::kStackLevels)) {
    setObjectName("HardwareStackViewer");
    setWindowTitle(tr("Hardware Stack Viewer"));
    stackPointer_->setObjectName("stekpoint");
    stackPointer_->SetMeaning(tr("Stack pointer"));
    auto* caption = new QLabel(tr(" Stack Pointer:"));
    caption->setBuddy(stackPointer_);
    text_->setObjectName("Text1");
    text_->setAccessibleName(tr("Hardware stack"));

    auto* pointer = new QHBoxLayout;
    pointer->addWidget(caption);
    pointer->addWidget(stackPointer_);
    pointer->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addLayout(pointer);
    layout->addWidget(
        new MemoryHeading(tr(" Stack Level       Hex Value     Binary Value"), {0, 10, 18}));
    layout->addWidget(text_);
    AddFooter(*layout);
    text_->Serve(*this, *CloseButton());
    text_->OfferChange();
    // Queued, because the question that is asked outlasts the click.
    connect(
        text_, &MemoryText::FieldChosen, this,
        [this](int line) {
            Workbench().ChangeValue(*dialogs_,
                                    {.kind = app::ValueKind::StackLevel, .index = line + 1});
        },
        Qt::QueuedConnection);
    CloseButton()->setFocus();
}

HardwareStackViewer::~HardwareStackViewer() = default;

void HardwareStackViewer::stekprint() {
    const core::ProcessorState& state = Workbench().Processor().state;
    const SinceLastDraw since = watch_.Observe(state);
    text_->ShowText(app::StackText(state), since);
    const std::string pointer = app::StackPointerText(state);
    if (since != SinceLastDraw::Nothing) {
        stackPointer_->Emphasize(since == SinceLastDraw::OneStep &&
                                 stackPointer_->text().toStdString() != pointer);
    }
    stackPointer_->ShowText(pointer);
}

}  // namespace corvane::ui
