// One bit as a coloured box: light red when set, white when clear, light grey when the register
// does not implement it.
#pragma once

#include <QLabel>
#include <cstdint>

namespace corvane::ui {

enum class BitState : std::uint8_t { Clear, Set, Unimplemented };

// A label without visible text; its tooltip and what a screen reader reads say what the colour says
// ("STATUS bit 5: 1").
class BitCell : public QLabel {
    Q_OBJECT
  public:
    explicit BitCell(QWidget* parent = nullptr);

    // Which bit it is: "STATUS bit 5". Empty for a cell of an empty row.
    void SetMeaning(const QString& meaning);
    void ShowState(BitState state);

    BitState State() const { return state_; }
    QString StateText() const;  // "0", "1", or nothing for a bit that is not implemented
    static QColor ColourOf(BitState state);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void Describe();

    QString meaning_;
    BitState state_ = BitState::Clear;
};

}  // namespace corvane::ui
