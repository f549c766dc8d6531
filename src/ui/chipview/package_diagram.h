// The drawing of a dual-in-line package: outline with notch, leads, pin numbers and labels.
#pragma once

#include <QWidget>
#include <cstdint>

#include "models/package.h"

class QGridLayout;

namespace corvane::ui {

class PackageDiagram : public QWidget {
    Q_OBJECT
  public:
    explicit PackageDiagram(const models::Model& model);

    // From outside to the middle of the package.
    enum class Column : std::uint8_t { Button, Level, Label, Lead, Number, Middle };

    void Put(QWidget* control, const models::PackagePin& place, Column column,
             Qt::Alignment alignment = {});
    void PutInside(QWidget* control);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void AddPin(const models::PackagePin& pin);
    QRect Body() const;

    QString partName_;
    int rowCount_ = 0;
    QGridLayout* grid_;
};

}  // namespace corvane::ui
