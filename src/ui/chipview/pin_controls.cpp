#include "ui/chipview/pin_controls.h"

#include <algorithm>

#include "ui/chipview/pin_label.h"

namespace corvane::ui {

namespace {

constexpr int kWidestLevel = 5;  // "VREF+"
constexpr int kButtonPadding = 16;
constexpr QSize kLevelPadding(10, 4);  // both sides and the frame together
constexpr int kFramesToHiding = 15;    // a quarter of a second

QColor ColourOf(app::PinLevel level) {
    switch (level) {
        case app::PinLevel::High:
            return {128, 255, 128};
        case app::PinLevel::Low:
            return {128, 128, 128};
        case app::PinLevel::Analog:
            break;
    }
    return Qt::white;
}

QString KindOf(const app::PinAppearance& appearance) {
    if (appearance.level == app::PinLevel::Analog) {
        return appearance.button == app::PinButton::Analog ? QObject::tr("analog input")
                                                           : QObject::tr("reference");
    }
    return appearance.isInput ? QObject::tr("input") : QObject::tr("output");
}

void SetUpButton(QToolButton& button, const QString& name) {
    button.setMinimumWidth(button.fontMetrics().horizontalAdvance("AN0") + kButtonPadding);
    button.setObjectName(name);
    button.setFocusPolicy(Qt::StrongFocus);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    policy.setRetainSizeWhenHidden(true);  // nothing moves while buttons come and go
    button.setSizePolicy(policy);
}

}  // namespace

PinControls::PinControls(PackageDiagram& diagram, const models::PackagePin& place,
                         models::ModelFamily family, core::Pin pin)
    : pin_(pin),
      analogChannel_(models::AnalogChannelOf(models::TraitsOf(family), pin)),
      level_(new DataLabel(kWidestLevel)),
      input_(new InputButton) {
    const QString label = PinLabelInWords(place.label);
    const QString name =
        QStringLiteral("r") + QChar(u'a' + pin.port) + QString::number(pin.bit);  // "ra0"
    place_ = QObject::tr("%1, pin %2").arg(label).arg(place.number);

    level_->setObjectName(name + "out");
    level_->setAlignment(Qt::AlignCenter);
    level_->setFrameShape(QFrame::Box);
    level_->setFixedSize(level_->size() + kLevelPadding);
    level_->setAutoFillBackground(true);
    diagram.Put(level_, place, PackageDiagram::Column::Level);

    SetUpButton(*input_, name + "in");
    input_->setArrowType(place.side == models::PackageSide::Left ? Qt::RightArrow : Qt::LeftArrow);
    input_->setAccessibleName(QObject::tr("Toggle %1").arg(label));
    input_->setToolTip(input_->accessibleName());
    diagram.Put(input_, place, PackageDiagram::Column::Button);

    if (analogChannel_) {
        const QString number = QString::number(*analogChannel_);
        analog_ = new QToolButton;
        SetUpButton(*analog_, "an" + number + "in");
        analog_->setText("AN" + number);
        analog_->setToolTip(QObject::tr("Change the value of AN%1").arg(number));
        diagram.Put(analog_, place, PackageDiagram::Column::Button);
    }
}

void PinControls::Show(const app::PinAppearance& appearance, bool runsExtremelyFast) {
    if (appearance.button == app::PinButton::Input) {
        framesToHiding_ = kFramesToHiding;
    } else {
        framesToHiding_ = runsExtremelyFast ? std::max(0, framesToHiding_ - 1) : 0;
    }
    const bool isSame = shown_ == appearance;
    shown_ = appearance;
    ShowButtons();
    if (isSame) {
        return;
    }
    QPalette palette;  // the text stays dark on a dark desktop
    palette.setColor(QPalette::Window, ColourOf(appearance.level));
    palette.setColor(QPalette::WindowText, Qt::black);
    level_->setPalette(palette);
    level_->ShowText(appearance.text);
    level_->SetMeaning(place_ + ": " + KindOf(appearance));
}

void PinControls::ShowButtons() {
    const bool isAnalog = shown_->button == app::PinButton::Analog;
    const bool isInput = !isAnalog && (framesToHiding_ > 0 || input_->isDown());
    if (input_->isHidden() == isInput) {
        input_->setVisible(isInput);
    }
    if (analog_ != nullptr && analog_->isHidden() == isAnalog) {
        analog_->setVisible(isAnalog);
    }
}

}  // namespace corvane::ui
