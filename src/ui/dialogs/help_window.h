// A window with one of the help texts.
#pragma once

#include <QWidget>

namespace corvane::ui {

class HelpWindow : public QWidget {
    Q_OBJECT
  public:
    // The file's name in data/help.
    HelpWindow(const QString& title, const QString& fileName);
};

}  // namespace corvane::ui
