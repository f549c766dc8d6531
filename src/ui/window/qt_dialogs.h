// The toolkit's message boxes, input boxes and file dialogs, modal to one window.
#pragma once

#include <QWidget>

#include "app/dialogs.h"

namespace corvane::ui {

class QtDialogs final : public app::Dialogs {
  public:
    explicit QtDialogs(QWidget& window) : window_(&window) {}

    void Inform(const std::string& text) override;
    void InformWithDetails(const std::string& text, const std::string& details) override;
    bool Ask(const std::string& question) override;
    std::optional<std::string> Input(const std::string& prompt,
                                     const std::string& defaultText) override;
    std::optional<std::string> OpenFile(const app::FileDialog& dialog) override;
    std::optional<std::string> SaveFile(const app::FileDialog& dialog) override;
    std::optional<int> ChooseModel(int currentModel) override;

  private:
    QWidget* window_;
};

}  // namespace corvane::ui
