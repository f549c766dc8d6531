// A label for a value: fixed-pitch, of a fixed width, and touched only when its text changes.
#pragma once

#include <QLabel>
#include <string_view>

namespace corvane::ui {

class DataLabel : public QLabel {
    Q_OBJECT
  public:
    // Wide enough for this many characters. The size never follows the text, so that a change
    // repaints the label and nothing else.
    explicit DataLabel(int columns, QWidget* parent = nullptr);

    // In a box of its own, as a field is.
    void SetFramed();

    // What the value means ("GPR 00C"), for the tooltip and for assistive technology.
    void SetMeaning(const QString& meaning);

    void ShowText(std::string_view text);
    // Sets a value that has just changed off from the others.
    void Emphasize(bool on);
};

}  // namespace corvane::ui
