// A file that a source includes, to be looked at.
#pragma once

#include <QWidget>

namespace corvane::ui {

class NumberedEditor;

class IncludedFileWindow final : public QWidget {
    Q_OBJECT
  public:
    explicit IncludedFileWindow(QWidget* parent);

    // The bytes of the file at this path, with the line (from 1) in the middle.
    void ShowFile(const QString& path, const std::string& bytes, int line);

  private:
    NumberedEditor* text_;
};

}  // namespace corvane::ui
