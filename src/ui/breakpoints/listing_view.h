// The twenty visible lines of the program listing, with their scroll bar. It is one stop of the Tab
// key; the arrow keys go from line to line and scroll at both ends.
#pragma once

#include <QFrame>
#include <array>
#include <span>

#include "ui/breakpoints/listing_row_button.h"

class QScrollBar;

namespace corvane::ui {

class ListingView final : public QFrame {
    Q_OBJECT
  public:
    ListingView();

    // The scroll bar's values are the numbers of the listing's lines, from 1.
    void SetLargestScrollValue(int value);
    int ScrollValue() const;
    void ScrollTo(int value);
    // Gives the focus to the row of this address, if one shows it.
    void FocusAddress(int address);

    void ShowRows(std::span<const app::ListingRow> rows);

    // Where the rows' texts begin.
    int TextLeft() const;

  signals:
    void Scrolled();
    void AddressClicked(int address);

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void MakeRow(int row);
    void PlacePcSymbol();
    void SetShownRows(int count);
    void SetCurrentRow(int current);
    void MoveFocus(int row);

    std::array<ListingRowButton*, app::kListingRows> rows_{};
    MarkerSymbol* pcSymbol_;
    QScrollBar* scrollBar_;
    int shownRows_ = 0;
    int currentRow_ = 0;  // the one that Tab leads to
    int pcRow_ = -1;
};

}  // namespace corvane::ui
