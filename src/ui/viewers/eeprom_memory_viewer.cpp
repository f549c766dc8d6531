#include "ui/viewers/eeprom_memory_viewer.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <algorithm>

#include "app/memory_texts.h"
#include "ui/widgets/data_font.h"

namespace corvane::ui {

namespace {

constexpr int kBytesPerRow = 16;

}  // namespace

EepromMemoryViewer::EepromMemoryViewer(app::Workbench& workbench, const DialogsFactory& makeDialogs)
    : SecondaryWindow(app::Window::EepromMemoryViewer, workbench),
      dialogs_(makeDialogs(*this)),
      text_(new MemoryText(kBytesPerRow * 3, workbench.Model().eepromBytes / kBytesPerRow)) {
    setObjectName("EepromMemoryViewer");
    setWindowTitle(tr("EEPROM Memory Viewer"));
    const int bytes = workbench.Model().eepromBytes;
    auto* rowHeading = new MemoryText(3, bytes / kBytesPerRow);
    rowHeading->setObjectName("Text2");
    rowHeading->setAccessibleName(tr("Addresses"));
    rowHeading->ShowText(app::EepromRowHeading(bytes));
    rowHeading->setFrameStyle(QFrame::NoFrame);
    rowHeading->viewport()->setAutoFillBackground(false);
    auto* columnHeading =
        new QLabel(QStringLiteral(" F  E  D  C  B  A  9  8  7  6  5  4  3  2  1  0"));
    columnHeading->setFont(DataFont());
    columnHeading->setObjectName("Text3");
    columnHeading->setContentsMargins(text_->frameWidth() + 4, 0, 0, 0);
    text_->setObjectName("Text1");
    text_->setAccessibleName(tr("Data EEPROM"));

    auto* grid = new QGridLayout;
    grid->addWidget(columnHeading, 0, 1);
    auto* besideText = new QVBoxLayout;  // the text's lines begin below its frame
    besideText->setContentsMargins(0, text_->frameWidth(), 0, 0);
    besideText->addWidget(rowHeading);
    grid->addLayout(besideText, 1, 0, Qt::AlignTop);
    grid->addWidget(text_, 1, 1, Qt::AlignTop);
    auto* layout = new QVBoxLayout(this);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addLayout(grid);
    AddFooter(*layout);
    text_->Serve(*this, *CloseButton());
    text_->OfferChange();
    // Queued, because the question that is asked outlasts the click.
    connect(text_, &MemoryText::FieldChosen, this, &EepromMemoryViewer::ChangeByte,
            Qt::QueuedConnection);
    rowHeading->setFocusProxy(CloseButton());
    CloseButton()->setFocus();
}

EepromMemoryViewer::~EepromMemoryViewer() = default;

void EepromMemoryViewer::ChangeByte(int line, int column) {
    constexpr int kFieldWidth = 3;  // two digits and a blank, the highest address first
    const int field = std::min(column / kFieldWidth, kBytesPerRow - 1);
    const int address = line * kBytesPerRow + kBytesPerRow - 1 - field;
    Workbench().ChangeValue(*dialogs_, {.kind = app::ValueKind::Eeprom, .index = address});
}

void EepromMemoryViewer::eepromprint() {
    const core::ProcessorState& state = Workbench().Processor().state;
    text_->ShowText(app::EepromText(state, Workbench().Model().eepromBytes), watch_.Observe(state));
}

}  // namespace corvane::ui
