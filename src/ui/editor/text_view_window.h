// A text file to be looked at: what a source includes, or a firmware test.
#pragma once

#include <QWidget>

namespace corvane::ui {

class NumberedEditor;

class TextViewWindow final : public QWidget {
    Q_OBJECT
  public:
    explicit TextViewWindow(QWidget* parent);

    // The bytes of the file at this path, with the line (from 1) in the middle.
    void ShowFile(const QString& path, const std::string& bytes, int line);

  private:
    NumberedEditor* text_;
};

}  // namespace corvane::ui
