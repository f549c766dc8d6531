// One visible line of the program listing. A click, Space or Enter sets or clears its breakpoint.
#pragma once

#include <QAbstractButton>
#include <string>

#include "app/breakpoint_listing.h"
#include "ui/breakpoints/marker_symbol.h"

namespace corvane::ui {

class ListingRowButton final : public QAbstractButton {
    Q_OBJECT
  public:
    explicit ListingRowButton(int row);

    // Null for a row that no line of the listing reaches. Touches only what differs.
    void ShowLine(const app::ListingRow* line);

    const std::string& Text() const { return text_; }
    std::optional<int> Address() const { return address_; }

    // Where the text begins, and where the program counter's mark has its place.
    static int TextLeft();
    QRect PcArea() const;

    QSize sizeHint() const override;

  signals:
    void FocusTaken();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    // What is checked is the breakpoint list's business.
    void nextCheckState() override {}

  private:
    void Describe();

    MarkerSymbol* breakpointSymbol_;
    std::string text_;
    std::optional<int> address_;
    bool hasPc_ = false;
};

}  // namespace corvane::ui
