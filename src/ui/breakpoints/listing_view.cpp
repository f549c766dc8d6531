#include "ui/breakpoints/listing_view.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>

#include "common/text.h"
#include "ui/breakpoints/accessible_listing.h"
#include "ui/widgets/qt_text.h"

namespace corvane::ui {

ListingView::ListingView() : scrollBar_(new QScrollBar(Qt::Vertical)) {
    InstallAccessibleListing();
    setAccessibleName(tr("Program listing"));
    setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    scrollBar_->setObjectName("VScroll1");
    scrollBar_->setAccessibleName(tr("Line of the listing"));
    scrollBar_->setPageStep(app::kListingRows);
    SetLargestScrollValue(1);
    connect(scrollBar_, &QScrollBar::valueChanged, this, &ListingView::Scrolled);

    auto* column = new QVBoxLayout;
    column->setSpacing(0);
    for (int row = 0; row < app::kListingRows; ++row) {
        MakeRow(row);
        column->addWidget(rows_.at(static_cast<std::size_t>(row)));
    }
    column->addStretch(1);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(column, 1);
    layout->addWidget(scrollBar_);
    pcSymbol_ = new MarkerSymbol(Marker::ProgramCounter, tr("Current instruction"), this);
    pcSymbol_->setObjectName("pcsimbol");
}

void ListingView::MakeRow(int row) {
    auto* button = new ListingRowButton(row);
    rows_.at(static_cast<std::size_t>(row)) = button;
    connect(button, &ListingRowButton::FocusTaken, this, [this, row] { SetCurrentRow(row); });
    connect(button, &ListingRowButton::clicked, this, [this, button] {
        if (button->Address()) {
            emit AddressClicked(*button->Address());
        }
    });
}

void ListingView::SetLargestScrollValue(int value) {
    scrollBar_->setRange(1, value);
    scrollBar_->setEnabled(value > 1);
}

int ListingView::ScrollValue() const {
    return scrollBar_->value();
}

void ListingView::ScrollTo(int value) {
    scrollBar_->setValue(value);
}

int ListingView::TextLeft() const {
    return frameWidth() + ListingRowButton::TextLeft();
}

void ListingView::ShowRows(std::span<const app::ListingRow> rows) {
    SetShownRows(static_cast<int>(rows.size()));
    int pcRow = -1;
    for (std::size_t row = 0; row < rows_.size(); ++row) {
        const app::ListingRow* line = row < rows.size() ? &rows[row] : nullptr;
        rows_.at(row)->ShowLine(line);
        if (line != nullptr && line->hasPc) {
            pcRow = static_cast<int>(row);
        }
    }
    if (pcRow_ != pcRow) {
        pcRow_ = pcRow;
        PlacePcSymbol();
        pcSymbol_->setVisible(pcRow_ >= 0);
    }
}

void ListingView::PlacePcSymbol() {
    if (pcRow_ >= 0) {
        const ListingRowButton* row = rows_.at(static_cast<std::size_t>(pcRow_));
        pcSymbol_->setGeometry(row->PcArea().translated(row->pos()));
    }
}

void ListingView::SetShownRows(int count) {
    if (shownRows_ != count) {
        shownRows_ = count;
        SetCurrentRow(std::clamp(currentRow_, 0, std::max(count - 1, 0)));
    }
}

void ListingView::SetCurrentRow(int current) {
    currentRow_ = current;
    setFocusProxy(rows_.at(static_cast<std::size_t>(current)));
    int row = 0;
    for (ListingRowButton* button : rows_) {
        const Qt::FocusPolicy policyOfLine = row == current ? Qt::StrongFocus : Qt::ClickFocus;
        button->setFocusPolicy(row < shownRows_ ? policyOfLine : Qt::NoFocus);
        ++row;
    }
}

void ListingView::FocusAddress(int address) {
    const auto row = std::ranges::find(rows_, address, &ListingRowButton::Address);
    if (row != rows_.end()) {
        MoveFocus(static_cast<int>(row - rows_.begin()));
    }
}

void ListingView::MoveFocus(int row) {
    if (row >= 0 && row < shownRows_) {
        SetCurrentRow(row);
        rows_.at(static_cast<std::size_t>(row))->setFocus(Qt::OtherFocusReason);
    }
}

void ListingView::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy)) {
        const std::string& line = rows_.at(static_cast<std::size_t>(currentRow_))->Text();
        QGuiApplication::clipboard()->setText(QtString(common::TrimRight(line)));
        return;
    }
    switch (event->key()) {
        case Qt::Key_Up:
            if (currentRow_ > 0) {
                MoveFocus(currentRow_ - 1);
            } else {
                scrollBar_->triggerAction(QScrollBar::SliderSingleStepSub);
            }
            break;
        case Qt::Key_Down:
            if (currentRow_ < shownRows_ - 1) {
                MoveFocus(currentRow_ + 1);
            } else {
                scrollBar_->triggerAction(QScrollBar::SliderSingleStepAdd);
            }
            break;
        case Qt::Key_PageUp:
            scrollBar_->triggerAction(QScrollBar::SliderPageStepSub);
            break;
        case Qt::Key_PageDown:
            scrollBar_->triggerAction(QScrollBar::SliderPageStepAdd);
            break;
        case Qt::Key_Home:
            scrollBar_->triggerAction(QScrollBar::SliderToMinimum);
            MoveFocus(0);
            break;
        case Qt::Key_End:
            scrollBar_->triggerAction(QScrollBar::SliderToMaximum);
            MoveFocus(shownRows_ - 1);
            break;
        default:
            QFrame::keyPressEvent(event);
    }
}

void ListingView::resizeEvent(QResizeEvent* event) {
    QFrame::resizeEvent(event);
    PlacePcSymbol();
}

void ListingView::wheelEvent(QWheelEvent* event) {
    QCoreApplication::sendEvent(scrollBar_, event);
}

}  // namespace corvane::ui
