// What the two register tables of the main window have in common.
#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QScrollBar>

namespace corvane::ui {

constexpr int kBitSpacing = 3;  // pixels between bit cells,
constexpr int kRowSpacing = 3;  // between rows,
constexpr int kColumnGap = 12;  // and between columns that do not belong together

// A titled group with a scroll bar that counts the rows of a list from 1. The bar never keeps the
// keyboard focus.
class RegisterTable : public QGroupBox {
    Q_OBJECT
  public:
    RegisterTable(const QString& title, const QString& scrollBarName, int visibleRows);

    // The list has another length: back to its first row.
    void SetListSize(std::size_t size);
    void SetFocusTaker(QWidget* widget) { scrollBar_->setFocusProxy(widget); }
    QScrollBar* ScrollBar() const { return scrollBar_; }

  signals:
    void Scrolled();

  protected:
    // Index of the list entry in the first row.
    std::size_t FirstEntry() const { return static_cast<std::size_t>(scrollBar_->value() - 1); }
    void wheelEvent(QWheelEvent* event) override;

  private:
    int visibleRows_;
    QScrollBar* scrollBar_;
};

}  // namespace corvane::ui
