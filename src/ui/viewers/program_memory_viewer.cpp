#include "ui/viewers/program_memory_viewer.h"

#include <QCoreApplication>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <array>

#include "app/memory_texts.h"

namespace corvane::ui {

namespace {

constexpr int kColumns = 30;  // "0005h   2805h   10100000000101"

}  // namespace

ProgramMemoryViewer::ProgramMemoryViewer(app::Workbench& workbench,
                                         const DialogsFactory& makeDialogs)
    : SecondaryWindow(app::Window::ProgramMemoryViewer, workbench),
      dialogs_(makeDialogs(*this)),
      text_(new MemoryText(kColumns, app::kProgramMemoryRows)),
      scrollBar_(new QScrollBar(Qt::Vertical)) {
    setObjectName("ProgramMemoryViewer");
    setWindowTitle(tr("Program Memory Viewer"));
    text_->setObjectName("Text1");
    text_->setAccessibleName(tr("Program memory"));
    scrollBar_->setObjectName("VScroll1");
    scrollBar_->setAccessibleName(tr("Program memory address"));
    scrollBar_->setRange(1, app::LargestProgramMemoryScrollValue(workbench.Model().programWords));
    scrollBar_->setPageStep(app::kProgramMemoryRows);
    connect(scrollBar_, &QScrollBar::valueChanged, this, &SecondaryWindow::Refresh);

    auto* memory = new QHBoxLayout;
    memory->addWidget(text_);
    memory->addWidget(scrollBar_);
    auto* layout = new QVBoxLayout(this);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(
        new MemoryHeading(tr(" Address        Hex Value     Binary Value"), {0, 8, 16}));
    layout->addLayout(memory);
    AddFooter(*layout);
    text_->Serve(*this, *CloseButton());
    scrollBar_->setFocusProxy(CloseButton());
    CloseButton()->setFocus();
    AddScrollKeys();
    AddGoToAddress(*dialogs_, &text_->ContextMenu());
}

ProgramMemoryViewer::~ProgramMemoryViewer() = default;

void ProgramMemoryViewer::AddScrollKeys() {
    struct Key {
        Qt::Key key;
        QAbstractSlider::SliderAction action;
    };
    constexpr std::array kKeys = {
        Key{Qt::Key_Up, QAbstractSlider::SliderSingleStepSub},
        Key{Qt::Key_Down, QAbstractSlider::SliderSingleStepAdd},
        Key{Qt::Key_PageUp, QAbstractSlider::SliderPageStepSub},
        Key{Qt::Key_PageDown, QAbstractSlider::SliderPageStepAdd},
        Key{Qt::Key_Home, QAbstractSlider::SliderToMinimum},
        Key{Qt::Key_End, QAbstractSlider::SliderToMaximum},
    };
    for (const Key& key : kKeys) {
        const auto* shortcut = new QShortcut(key.key, this);
        connect(shortcut, &QShortcut::activated, scrollBar_,
                [this, action = key.action] { scrollBar_->triggerAction(action); });
    }
}

void ProgramMemoryViewer::BringIntoView(int address) {
    const int first = scrollBar_->value() - 1;
    if (address < first || address >= first + app::kProgramMemoryRows) {
        scrollBar_->setValue(address + 1);
    }
}

bool ProgramMemoryViewer::GoTo(int address) {
    BringIntoView(address);
    text_->SelectLine(address - (scrollBar_->value() - 1));
    return true;
}

void ProgramMemoryViewer::memorijaprint() {
    text_->ShowText(app::ProgramMemoryText(Workbench().Processor(), scrollBar_->value()));
}

void ProgramMemoryViewer::wheelEvent(QWheelEvent* event) {
    QCoreApplication::sendEvent(scrollBar_, event);
}

}  // namespace corvane::ui
