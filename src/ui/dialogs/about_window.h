// Name, version and licence.
#pragma once

#include <QWidget>

namespace corvane::ui {

class AboutWindow : public QWidget {
    Q_OBJECT
  public:
    AboutWindow();
};

}  // namespace corvane::ui
