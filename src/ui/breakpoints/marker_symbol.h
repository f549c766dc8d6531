// The marks in front of a listing line: a dot for a breakpoint, an arrow for the program counter.
#pragma once

#include <QWidget>
#include <cstdint>

namespace corvane::ui {

enum class Marker : std::uint8_t { Breakpoint, ProgramCounter };

// Of a mark that is in force, on light and dark backgrounds.
QColor ColorOf(Marker marker);

// Fills as much of the area as a square has room for.
void PaintMarker(QPainter& painter, Marker marker, const QRect& area, const QColor& color);

class MarkerSymbol final : public QWidget {
    Q_OBJECT
  public:
    MarkerSymbol(Marker marker, const QString& meaning, QWidget* parent);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    Marker marker_;
};

}  // namespace corvane::ui
