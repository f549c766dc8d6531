// Asks for the configuration word, field by field.
#pragma once

#include <QDialog>
#include <span>
#include <vector>

#include "models/configuration_word.h"

class QButtonGroup;

namespace corvane::ui {

class ConfigurationBitsDialog final : public QDialog {
    Q_OBJECT
  public:
    ConfigurationBitsDialog(models::ModelFamily family, int word, QWidget* parent = nullptr);

    // The word of the selections; bits of a field without selection are 1.
    int Word() const;

  private:
    QWidget* MakeField(std::size_t index, int word);

    std::span<const models::ConfigurationField> fields_;
    std::vector<QButtonGroup*> choices_;  // one for each field
};

}  // namespace corvane::ui
